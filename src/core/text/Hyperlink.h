#pragma once
// Hyperlinks in notes are plain text in square brackets, "[" + target + "]", where the target is a file
// path or a web address. These helpers find them in the text of the note pane; they work on any
// character type, so the pane can pass its UTF-16 text and positions unchanged.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace velto::rtf {

// The target between a pair of brackets: text[begin, end).
struct LinkRange {
    size_t begin = 0;
    size_t end = 0;
    bool operator==(const LinkRange&) const = default;
};

namespace detail {

// A link never spans a line or a paragraph, nor another link's bracket.
template <typename Char> bool EndsSearch(Char c) {
    if (c == Char('\n') || c == Char('\r'))
        return true;
    if constexpr (sizeof(Char) > 1)
        return c == Char(0x2028) || c == Char(0x2029); // line and paragraph separators
    return false;
}

// The position of the nearest '[' before pos, if no ']' or line end comes first.
template <typename Char> std::optional<size_t> OpeningBefore(std::basic_string_view<Char> text, size_t pos) {
    while (pos > 0) {
        const Char c = text[--pos];
        if (c == Char('['))
            return pos;
        if (c == Char(']') || EndsSearch(c))
            return std::nullopt;
    }
    return std::nullopt;
}

// The position of the nearest ']' at or after pos, if no '[' or line end comes first.
template <typename Char> std::optional<size_t> ClosingFrom(std::basic_string_view<Char> text, size_t pos) {
    for (; pos < text.size(); ++pos) {
        const Char c = text[pos];
        if (c == Char(']'))
            return pos;
        if (c == Char('[') || EndsSearch(c))
            return std::nullopt;
    }
    return std::nullopt;
}

} // namespace detail

// The link around a selection (a double click selects a word first): from the selection's start back to
// the nearest "[", from its end forward to the nearest "]". Nothing when the selection is not inside
// brackets.
template <typename Char>
std::optional<LinkRange> FindLinkAround(std::basic_string_view<Char> text, size_t selectionStart,
                                        size_t selectionEnd) {
    selectionEnd = std::min(std::max(selectionStart, selectionEnd), text.size());
    selectionStart = std::min(selectionStart, selectionEnd);
    // A selection that starts on the opening bracket itself is inside the link too.
    const auto opening = selectionStart < text.size() && text[selectionStart] == Char('[')
                             ? std::optional<size_t>(selectionStart)
                             : detail::OpeningBefore(text, selectionStart);
    if (!opening)
        return std::nullopt;
    // Likewise a selection that ends just behind the closing bracket.
    const auto closing = selectionEnd > *opening + 1 && text[selectionEnd - 1] == Char(']')
                             ? std::optional<size_t>(selectionEnd - 1)
                             : detail::ClosingFrom(text, std::max(selectionEnd, *opening + 1));
    if (!closing)
        return std::nullopt;
    return LinkRange{*opening + 1, *closing};
}

// The link that a "]" typed just before the caret closes: the text back to the nearest "[". Nothing when
// the character before the caret is no "]", no "[" precedes it, or the brackets enclose nothing.
template <typename Char>
std::optional<LinkRange> FindLinkClosedAt(std::basic_string_view<Char> text, size_t caret) {
    if (caret == 0 || caret > text.size() || text[caret - 1] != Char(']'))
        return std::nullopt;
    const auto opening = detail::OpeningBefore(text, caret - 1);
    if (!opening || *opening + 1 == caret - 1)
        return std::nullopt;
    return LinkRange{*opening + 1, caret - 1};
}

// How a link target is opened: a file path splits at its last backslash into the folder (with the
// backslash) and the file name; a target without a backslash (a web address) is passed whole with an
// empty folder.
template <typename Char> struct LinkTarget {
    std::basic_string_view<Char> folder;
    std::basic_string_view<Char> file;
};

template <typename Char> LinkTarget<Char> SplitLinkTarget(std::basic_string_view<Char> target) {
    const size_t slash = target.rfind(Char('\\'));
    if (slash == std::basic_string_view<Char>::npos)
        return {{}, target};
    return {target.substr(0, slash + 1), target.substr(slash + 1)};
}

} // namespace velto::rtf
