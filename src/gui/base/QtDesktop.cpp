#include "base/QtDesktop.h"

#include "base/ProjectFiles.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QUrl>

namespace velto {

namespace {
QString FromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

QMessageBox::Icon BoxIcon(PromptIcon icon) {
    switch (icon) {
    case PromptIcon::Information:
        return QMessageBox::Information;
    case PromptIcon::Question:
        return QMessageBox::Question;
    case PromptIcon::Warning:
        return QMessageBox::Warning;
    case PromptIcon::Error:
        return QMessageBox::Critical;
    case PromptIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

void AddButton(QMessageBox& box, QMessageBox::StandardButton button, const char* text) {
    box.addButton(button)->setText(QString::fromUtf8(text));
}

void AddButtons(QMessageBox& box, PromptButtons buttons) {
    switch (buttons) {
    case PromptButtons::Ok:
        AddButton(box, QMessageBox::Ok, "OK");
        break;
    case PromptButtons::YesNo:
        AddButton(box, QMessageBox::Yes, "&Ja");
        AddButton(box, QMessageBox::No, "&Nein");
        break;
    case PromptButtons::YesNoCancel:
        AddButton(box, QMessageBox::Yes, "&Ja");
        AddButton(box, QMessageBox::No, "&Nein");
        AddButton(box, QMessageBox::Cancel, "Abbrechen");
        break;
    }
}

// The most cautious button a box offers: its answer when it is closed without a button, and the
// default of a warning.
QMessageBox::StandardButton CautiousButton(PromptButtons buttons) {
    switch (buttons) {
    case PromptButtons::Ok:
        break;
    case PromptButtons::YesNo:
        return QMessageBox::No;
    case PromptButtons::YesNoCancel:
        return QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

PromptAnswer Answer(QMessageBox::StandardButton button) {
    switch (button) {
    case QMessageBox::Yes:
        return PromptAnswer::Yes;
    case QMessageBox::No:
        return PromptAnswer::No;
    case QMessageBox::Cancel:
        return PromptAnswer::Cancel;
    default:
        return PromptAnswer::Ok;
    }
}
} // namespace

PromptAnswer MessageBoxPrompter::Ask(std::string_view caption, std::string_view text, PromptButtons buttons,
                                     PromptIcon icon) {
    QMessageBox box(BoxIcon(icon), FromUtf8(caption), FromUtf8(text), QMessageBox::NoButton,
                    QApplication::activeWindow());
    AddButtons(box, buttons);
    // A warning asks before something that may do harm: a hasty Enter must not agree to it.
    if (icon == PromptIcon::Warning)
        box.setDefaultButton(CautiousButton(buttons));
    box.exec();
    if (QAbstractButton* clicked = box.clickedButton())
        return Answer(box.standardButton(clicked));
    return Answer(CautiousButton(buttons));
}

QString QtDesktop::ChooseFileToOpen(QWidget* parent) {
    return QFileDialog::getOpenFileName(parent, QString::fromUtf8("Öffnen"), QString(), ProjectFileFilter());
}

QString QtDesktop::ChooseFileToSave(QWidget* parent, const QString& suggestion) {
    return QFileDialog::getSaveFileName(parent, QString::fromUtf8("Speichern unter"), suggestion,
                                        ProjectFileFilter());
}

bool QtDesktop::StartProgram(const QString& path) {
    return QProcess::startDetached(path, {});
}

bool QtDesktop::OpenDocument(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QString QtDesktop::ProgramDir() const {
    return QCoreApplication::applicationDirPath();
}

} // namespace velto
