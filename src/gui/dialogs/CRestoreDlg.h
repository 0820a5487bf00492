#pragma once
// "Sicherung wiederherstellen": the backups and interrupted saves of a project with their date, size,
// node count and root title, to open one read-only for comparison or to make it the project's content.
// The dialog only chooses; the caller opens or restores.
#include "document/ProjectStates.h"

#include <QDialog>

#include <vector>

class QPushButton;
class QTreeWidget;

namespace velto {

class Prompter;

class CRestoreDlg : public QDialog {
    Q_OBJECT
public:
    enum class Choice { None, Open, Restore };

    // projectName is shown above the list. mayRestore is false for a project opened read-only,
    // whose file this program must not write. The question before a restore goes to prompter.
    CRestoreDlg(std::vector<ProjectState> states, const QString& projectName, bool mayRestore,
                Prompter& prompter, QWidget* parent = nullptr);

    // What the user chose when the dialog was accepted, and the file of the chosen state.
    Choice GetChoice() const { return m_choice; }
    const std::string& ChosenPath() const { return m_chosenPath; }

    // "%d.%m.%Y %H:%M" in local time.
    static QString DateOf(const ProjectState& state);

private:
    QTreeWidget* BuildList();
    void AddRow(const ProjectState& state);
    // The selected state, unless it is damaged (or nothing is selected).
    const ProjectState* SelectedUsable() const;
    void EnableButtons();
    void Open();
    void Restore();
    void Accept(Choice choice, const ProjectState& state);

    std::vector<ProjectState> m_states;
    bool m_mayRestore;
    Prompter& m_prompter;
    QTreeWidget* m_list = nullptr;
    QPushButton* m_open = nullptr;
    QPushButton* m_restore = nullptr;
    Choice m_choice = Choice::None;
    std::string m_chosenPath;
};

} // namespace velto
