#pragma once
// Driving the dialogs in tests: finding controls by name, acting on a modal dialog once it is
// open, and the node dialog on a small tree. The data files go to a temporary folder.
#include "core/model/NodeListTestTree.h"
#include "dialogs/CNodeEditDlg.h"
#include "dialogs/StepEdit.h"
#include "support/ScriptedPrompter.h"
#include "support/TempDir.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace velto {

template <typename T> T* Find(const QObject& root, const char* name) {
    T* found = root.findChild<T*>(name);
    if (!found)
        ADD_FAILURE() << "no control named " << name;
    return found;
}

inline QAbstractButton* ButtonOfRole(const QDialog& dialog, QDialogButtonBox::ButtonRole role) {
    for (auto* box : dialog.findChildren<QDialogButtonBox*>())
        for (QAbstractButton* button : box->buttons())
            if (box->buttonRole(button) == role)
                return button;
    ADD_FAILURE() << "no button of role " << role;
    return nullptr;
}
inline void ClickOk(const QDialog& dialog) {
    ButtonOfRole(dialog, QDialogButtonBox::AcceptRole)->click();
}
inline void ClickCancel(const QDialog& dialog) {
    ButtonOfRole(dialog, QDialogButtonBox::RejectRole)->click();
}

// Acts on the modal dialog of type D that the next event loop shows (a button click then runs
// exec). Should none be open, whatever modal widget is open is closed, so no test can hang.
template <typename D> void OnNextModal(std::function<void(D&)> action) {
    QTimer::singleShot(0, [action] {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* dialog = qobject_cast<D*>(modal))
            return action(*dialog);
        ADD_FAILURE() << "the expected dialog did not open";
        if (modal)
            modal->close();
    });
}

// "Knoten bearbeiten" on a node of R, a project with the children T (a task) and P (a childless
// project); the dialog counts the undo copies it takes.
class NodeDialogFixture : public ::testing::Test {
protected:
    std::unique_ptr<CNodeEditDlg> Open(const char* title) {
        NodeEditContext context{tree.first, histories, [this] { ++undoCopies; },
                                dir.PathOf("Bearbeiter.dat")};
        auto dialog = std::make_unique<CNodeEditDlg>(*tree[title], context, prompter);
        dialog->show();
        return dialog;
    }

    TestTree tree{{0, "R"}, {1, "T", kKindTask}, {1, "P"}};
    testsupport::TempDir dir;
    ScriptedPrompter prompter;
    EntryHistories histories;
    int undoCopies = 0;
};

} // namespace velto
