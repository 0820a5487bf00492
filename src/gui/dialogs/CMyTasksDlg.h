#pragma once
// "Meine Aufgaben in: <project>": the persons responsible for nodes of the project, and the titles
// of the chosen person's nodes in list order; "Gehe zu" asks the view to go to the chosen one
// (goToRequested). The dialog holds no node: the chosen node is found again by person and row
// whenever it is asked for, and Refresh brings both lists in line with the project after a change,
// so a deleted node, an undo or a closed project never leaves it pointing at a node that is gone.
#include <QDialog>

#include <string>
#include <vector>

class QListWidget;

namespace velto {

class CProjectNode;
class CVeltoDoc;

class CMyTasksDlg : public QDialog {
    Q_OBJECT
public:
    CMyTasksDlg(CVeltoDoc& doc, QWidget* parent = nullptr);

    // The node of the chosen row, or null when no row is chosen.
    CProjectNode* ChosenNode() const;
    // Reads both lists again; a chosen person and row stay chosen while their lists are unchanged.
    void Refresh();

signals:
    void goToRequested();

private:
    void FillTasks();
    void GoTo();
    std::vector<CProjectNode*> NodesOfChosenPerson() const;

    CVeltoDoc& m_doc;
    QListWidget* m_persons;
    QListWidget* m_tasks;
    // What the lists show, as the project stores it (Windows-1252).
    std::vector<std::string> m_personTexts;
    std::vector<std::string> m_taskTitles;
};

} // namespace velto
