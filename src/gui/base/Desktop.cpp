#include "base/Desktop.h"

#include "common/Prompter.h"

namespace velto {

void Desktop::Warn(const QString& text) {
    GetPrompter().Tell(text.toStdString(), Prompter::kCaption, PromptIcon::Warning);
}

} // namespace velto
