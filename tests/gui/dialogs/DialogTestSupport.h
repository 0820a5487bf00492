#pragma once
// Driving the dialogs in tests: finding controls by name, acting on a modal dialog once it is
// open, a scratch folder for the data files and reading them back.
#include "dialogs/CStepEdit.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <stdlib.h>
#include <string>

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

// A fresh folder for the duration of a test.
struct ScratchDir {
    std::filesystem::path path;
    ScratchDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velto-dialogs-XXXXXX").string();
        path = mkdtemp(pattern.data());
    }
    ~ScratchDir() { std::filesystem::remove_all(path); }
    std::string File(const char* name) const { return (path / name).string(); }
};

inline std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}
