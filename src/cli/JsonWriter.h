#pragma once
// Writes JSON text as it goes, indented by two blanks; a container opened as "one line" keeps its
// contents on one line (the short entries of a node, the history lists). The text goes to the sink
// a megabyte at a time, so a dump never holds the whole JSON of a large project.
#include <memory>
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
    // A Windows-1252 text, written as UTF-8, quoted and escaped.
    void String(std::string_view text);

private:
    struct Level {
        bool oneLine;
        bool empty = true;
    };
    // Writes the escaped or UTF-8 form of a byte of a text that is not written as it is at out;
    // returns the end.
    static char* Escape(unsigned char byte, char* out);
    // Room for count more bytes after the text not yet handed over.
    char* Room(size_t count);
    void Put(std::string_view text);
    void Put(char c);
    void Open(char bracket, bool oneLine);
    void Close(char bracket);
    // The comma and line break or blank before the next value or key.
    void Separate();
    void NewLine();
    void Flush();

    static constexpr size_t kFlushBytes = size_t(1) << 20;

    std::ostream& m_sink;
    std::unique_ptr<char[]> m_text; // the text not yet handed over
    size_t m_size = 0;
    size_t m_capacity = 0;
    std::vector<Level> m_levels;
    bool m_afterKey = false;
};

} // namespace velto
