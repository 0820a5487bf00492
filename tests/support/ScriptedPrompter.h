#pragma once
// A Prompter for tests: answers from a script and records every question it was asked.
#include "common/Prompter.h"

#include <deque>
#include <string>
#include <vector>

namespace velto {

class ScriptedPrompter : public Prompter {
public:
    struct Asked {
        std::string caption;
        std::string text;
        PromptButtons buttons;
    };

    // Queues answers in the order the questions will come; when the script runs out, Ok questions
    // are answered Ok and any other question No (and the test can see it in asked()).
    ScriptedPrompter& Answer(PromptAnswer answer) {
        m_script.push_back(answer);
        return *this;
    }

    PromptAnswer Ask(std::string_view caption, std::string_view text, PromptButtons buttons,
                     PromptIcon) override {
        m_asked.push_back({std::string(caption), std::string(text), buttons});
        if (buttons == PromptButtons::Ok)
            return PromptAnswer::Ok;
        if (m_script.empty())
            return PromptAnswer::No;
        const PromptAnswer answer = m_script.front();
        m_script.pop_front();
        return answer;
    }

    const std::vector<Asked>& asked() const { return m_asked; }
    // The texts asked so far, for compact assertions.
    std::vector<std::string> texts() const {
        std::vector<std::string> out;
        for (const auto& a : m_asked)
            out.push_back(a.text);
        return out;
    }
    bool unusedAnswers() const { return !m_script.empty(); }

private:
    std::deque<PromptAnswer> m_script;
    std::vector<Asked> m_asked;
};

} // namespace velto
