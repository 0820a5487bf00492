#pragma once
// "Suchen in: <project>": the modeless text search. From the third typed character on, every change
// of the text searches from the selected node itself; "Abwärts suchen" and "Aufwärts suchen" go on
// to the next node that holds the text. The dialog holds no node: it asks its view for each step
// (stepRequested) and shows in which parts of the found node the text stands.
#include "outline/TextSearch.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace velto {

class CSearchDlg : public QDialog {
    Q_OBJECT
public:
    CSearchDlg(const QString& documentTitle, QWidget* parent = nullptr);

    // The text to look for with the case option; finds nothing when the text holds a character that
    // Windows-1252, and so no project, can hold.
    SearchText Text() const;
    // kSearchInPlace after typing, kSearchForward or kSearchBackward after a button.
    int Direction() const { return m_direction; }
    // Shows the indicator of each part in parts and hides the others.
    void ShowParts(SearchParts parts);

signals:
    void stepRequested();

private:
    void OnTextChanged(const QString& text);
    void Step(int direction);

    QLineEdit* m_text;
    QCheckBox* m_matchCase;
    std::array<QLabel*, kSearchPartCount> m_indicators;
    int m_direction = kSearchInPlace;
};

} // namespace velto
