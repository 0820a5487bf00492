#pragma once
// Reads the small data files token by token with the semantics of a C++ text stream, which is how
// these files have always been read: white space (blank, tab, CR, LF, VT, FF) separates tokens,
// reaching the end of the input during a read sets the end flag even when the read itself
// succeeded, and a read that finds no number fails and makes every later read fail too.
#include <optional>
#include <string>
#include <string_view>

namespace velto {

class TokenReader {
public:
    explicit TokenReader(std::string_view bytes) : m_bytes(bytes) {}

    // The next token, or nothing at the end of the input or after a failure.
    std::optional<std::string_view> NextToken();
    // The next decimal integer (optional sign, digits), or nothing when none stands here, it does
    // not fit an int, or an earlier read failed.
    std::optional<int> NextInt();

    // A read ran into the end of the input.
    bool ReachedEnd() const { return m_reachedEnd; }
    // A read failed; nothing more will be read.
    bool Failed() const { return m_failed; }

private:
    // Skips white space; false (and the stream fails) when only white space was left.
    bool SkipSpace();
    bool AtEnd() const { return m_pos >= m_bytes.size(); }
    std::nullopt_t Fail();

    std::string_view m_bytes;
    size_t m_pos = 0;
    bool m_reachedEnd = false;
    bool m_failed = false;
};

// Blanks are stored as this marker, because a blank would split the token.
inline constexpr std::string_view kBlankMarker = "#~*";
// The stored form of a text: every white-space character becomes the marker (a blank by design;
// a tab or line break pasted into a name would otherwise split it and shift every later value).
std::string EncodeBlanks(std::string_view text);
// The marker back to blanks, left to right.
std::string DecodeBlanks(std::string_view token);

} // namespace velto
