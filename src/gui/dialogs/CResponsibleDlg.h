#pragma once
// "Verantwortlich": chooses the responsible person of a node from the persons already used in the
// project, or adds a new one. "--- Keiner ---" stands for nobody.
#include <QDialog>

#include <string>

class QListWidget;

namespace velto {

class CProjectNode;

class CResponsibleDlg : public QDialog {
    Q_OBJECT
public:
    // first: the project's node list; current: the node's responsible person, selected at the start.
    CResponsibleDlg(const CProjectNode* first, const std::string& current, QWidget* parent = nullptr);
    // The selected person; empty for no selection and for "--- Keiner ---".
    std::string Person() const;

private:
    void AddNewPerson();

    QListWidget* m_list;
};

} // namespace velto
