#pragma once
// Everything the shell asks of the desktop: questions, file choosers, starting programs and opening
// documents, and where the program lives. Tests put a scripted desktop here, so no modal window
// ever waits for a user who is not there.
#include <QString>

class QWidget;

namespace velto {

class Prompter;

class Desktop {
public:
    virtual ~Desktop() = default;

    virtual Prompter& GetPrompter() = 0;
    // A project file to open, or empty when the user cancelled.
    virtual QString ChooseFileToOpen(QWidget* parent) = 0;
    // The name to save a project under, or empty when the user cancelled.
    virtual QString ChooseFileToSave(QWidget* parent, const QString& suggestion) = 0;
    // Starts a program without waiting for it; false when it could not be started.
    virtual bool StartProgram(const QString& path) = 0;
    // Opens a document in the desktop's viewer for its kind; false when that failed.
    virtual bool OpenDocument(const QString& path) = 0;
    // The folder of the velto executable (the manual and the converter live beside it).
    virtual QString ProgramDir() const = 0;

    // A message with the program's caption and a warning icon.
    void Warn(const QString& text);
};

} // namespace velto
