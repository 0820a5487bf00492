#pragma once
// Writes JSON text as it goes, indented by two blanks; a container opened as "one line" keeps its
// contents on one line (the short entries of a node, the history lists).
#include <string>
#include <string_view>
#include <vector>

namespace velto {

class JsonWriter {
public:
    void BeginObject(bool oneLine = false) { Open('{', oneLine); }
    void EndObject() { Close('}'); }
    void BeginArray(bool oneLine = false) { Open('[', oneLine); }
    void EndArray() { Close(']'); }
    void Key(std::string_view name);
    // A number or other JSON text, written as given.
    void Raw(std::string_view text);
    // A UTF-8 text, quoted and escaped.
    void String(std::string_view utf8);

    std::string Take() { return std::move(m_out); }

private:
    struct Level {
        bool oneLine;
        bool empty = true;
    };
    void Open(char bracket, bool oneLine);
    void Close(char bracket);
    // The comma and line break or blank before the next value or key.
    void Separate();
    void NewLine();

    std::string m_out;
    std::vector<Level> m_levels;
    bool m_afterKey = false;
};

} // namespace velto
