#pragma once
// The real desktop: message boxes, file dialogs, detached processes and the desktop's file viewer.
#include "base/Desktop.h"
#include "common/Prompter.h"

namespace velto {

// Asks with a modal message box over the active window, with German buttons.
class MessageBoxPrompter : public Prompter {
public:
    PromptAnswer Ask(std::string_view caption, std::string_view text, PromptButtons buttons,
                     PromptIcon icon) override;
};

class QtDesktop : public Desktop {
public:
    Prompter& GetPrompter() override { return m_prompter; }
    QString ChooseFileToOpen(QWidget* parent) override;
    QString ChooseFileToSave(QWidget* parent, const QString& suggestion) override;
    bool StartProgram(const QString& path) override;
    bool OpenDocument(const QString& path) override;
    QString ProgramDir() const override;

private:
    MessageBoxPrompter m_prompter;
};

} // namespace velto
