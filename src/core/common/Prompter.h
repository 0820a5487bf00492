#pragma once
// Every question and message of the core goes through a Prompter: the GUI answers with a message
// box, tests with a script. Texts and captions are UTF-8.
#include <string>
#include <string_view>

namespace velto {

enum class PromptButtons { Ok, YesNo, YesNoCancel };
enum class PromptAnswer { Ok, Yes, No, Cancel };
enum class PromptIcon { None, Information, Question, Warning, Error };

class Prompter {
public:
    virtual ~Prompter() = default;
    virtual PromptAnswer Ask(std::string_view caption, std::string_view text, PromptButtons buttons,
                             PromptIcon icon) = 0;

    // A plain message with an OK button; the program's caption unless another is given.
    void Tell(std::string_view text, std::string_view caption = kCaption,
              PromptIcon icon = PromptIcon::Information) {
        Ask(caption, text, PromptButtons::Ok, icon);
    }
    bool AskYesNo(std::string_view caption, std::string_view text) {
        return Ask(caption, text, PromptButtons::YesNo, PromptIcon::Question) == PromptAnswer::Yes;
    }

    static constexpr std::string_view kCaption = "Velto";
};

} // namespace velto
