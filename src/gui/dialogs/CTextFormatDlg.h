#pragma once
// The text format of a node title: face name, strike-through, underline, italic, bold and colour.
#include <QDialog>

#include <string>

class QCheckBox;
class QComboBox;
class QPushButton;

namespace velto {

// The six values the dialog edits; the colour is a COLORREF (red in the low byte).
struct TitleFormat {
    std::string fontName;
    bool strikeOut = false;
    bool underline = false;
    bool italic = false;
    bool bold = false;
    int color = 0;
};

class CTextFormatDlg : public QDialog {
    Q_OBJECT
public:
    CTextFormatDlg(const TitleFormat& format, QWidget* parent = nullptr);
    TitleFormat Format() const;

private:
    void ChooseColor();
    void ShowColor();

    QComboBox* m_font;
    QCheckBox* m_strikeOut;
    QCheckBox* m_underline;
    QCheckBox* m_italic;
    QCheckBox* m_bold;
    QPushButton* m_colorButton;
    int m_color;
};

} // namespace velto
