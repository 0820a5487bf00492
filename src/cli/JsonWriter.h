#pragma once
// Writes JSON text as it goes, indented by two blanks; a container opened as "one line" keeps its
// contents on one line (the short entries of a node, the history lists). The text goes to the sink
// a megabyte at a time, so a dump never holds the whole JSON of a large project.
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace velto {

class JsonWriter {
public:
    explicit JsonWriter(std::ostream& sink) : m_sink(sink) {}
    // Hands the rest of the text to the sink.
    ~JsonWriter() { Flush(); }
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void BeginObject(bool oneLine = false) { Open('{', oneLine); }
    void EndObject() { Close('}'); }
    void BeginArray(bool oneLine = false) { Open('[', oneLine); }
    void EndArray() { Close(']'); }
    void Key(std::string_view name);
    // A number or other JSON text, written as given.
    void Raw(std::string_view text);
    // A UTF-8 text, quoted and escaped.
    void String(std::string_view utf8);

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
    void Flush();

    static constexpr size_t kFlushBytes = size_t(1) << 20;

    std::ostream& m_sink;
    std::string m_out;
    std::vector<Level> m_levels;
    bool m_afterKey = false;
};

} // namespace velto
