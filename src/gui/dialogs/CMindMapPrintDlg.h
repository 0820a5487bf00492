#pragma once
// "Mind Map drucken": how many pages across and down the printed mind map takes.
#include "outline/PrintLayout.h"

#include <QDialog>

class QLineEdit;

namespace velto {

class Prompter;

class CMindMapPrintDlg : public QDialog {
public:
    CMindMapPrintDlg(Prompter& prompter, QWidget* parent = nullptr);
    // The pages chosen; valid once the dialog was accepted.
    PageGrid Grid() const { return m_grid; }

    // Refuses numbers outside 1..20 with a message and keeps the dialog open.
    void accept() override;

private:
    Prompter& m_prompter;
    QLineEdit* m_across; // 1058
    QLineEdit* m_down;   // 1059
    PageGrid m_grid;
};

} // namespace velto
