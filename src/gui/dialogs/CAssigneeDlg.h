#pragma once
// "Bearbeiter / Komission": edits the preset texts of "Bearbeiter.dat" that the entry combo boxes
// offer. OK writes the file (the old one becomes "Bearbeiter.bak"); "Abbrechen" writes nothing.
// A file that exists but cannot be read is named with the reason, and OK stays disabled: saving
// would replace its presets with the empty list shown.
#include <QDialog>

#include <string>
#include <vector>

class QKeyEvent;
class QLineEdit;
class QListWidget;

namespace velto {

class Prompter;

class CAssigneeDlg : public QDialog {
    Q_OBJECT
public:
    CAssigneeDlg(std::string presetFile, Prompter& prompter, QWidget* parent = nullptr);
    // The presets in list order (alphabetical).
    std::vector<std::string> Presets() const;

    void accept() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddPreset();
    void TakeBackPreset();

    std::string m_presetFile;
    Prompter& m_prompter;
    int m_readError = 0;
    QListWidget* m_list;
    QLineEdit* m_edit;
};

} // namespace velto
