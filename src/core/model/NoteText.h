#pragma once
// The RTF note of a node. Copies share one unchangeable text, so the undo copy of a large project
// costs a reference per note instead of a copy of every note; giving a node a new note gives it
// its own text and leaves the copies alone.
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

class NoteText {
public:
    NoteText() = default;
    explicit NoteText(std::string text) { *this = std::move(text); }

    NoteText& operator=(std::string text) {
        if (text.empty())
            m_text.reset();
        else
            m_text = std::make_shared<const std::string>(std::move(text));
        return *this;
    }

    const std::string& str() const { return m_text ? *m_text : Empty(); }
    operator const std::string&() const { return str(); }
    operator std::string_view() const { return str(); }
    bool empty() const { return str().empty(); }
    std::size_t size() const { return str().size(); }
    const char* data() const { return str().data(); }

    friend bool operator==(const NoteText& a, const NoteText& b) {
        return a.m_text == b.m_text || a.str() == b.str();
    }
    friend bool operator==(const NoteText& a, std::string_view b) { return a.str() == b; }
    friend std::ostream& operator<<(std::ostream& out, const NoteText& note) { return out << note.str(); }

private:
    static const std::string& Empty() {
        static const std::string empty;
        return empty;
    }

    std::shared_ptr<const std::string> m_text;
};
