#include "text/RtfLists.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace velto::rtf {
namespace {

// Calls onWord(token, depth) for every control word of the group being read, depth 0 being the
// group itself, and returns after its closing brace. Binary data is passed over.
template <typename OnWord> void ForEachWordInGroup(Lexer& lexer, OnWord onWord) {
    int depth = 0;
    for (Token token = lexer.Next(); token.kind != Token::Kind::End; token = lexer.Next()) {
        if (token.kind == Token::Kind::GroupOpen) {
            ++depth;
        } else if (token.kind == Token::Kind::GroupClose) {
            if (--depth < 0)
                return;
        } else if (token.kind == Token::Kind::ControlWord) {
            if (token.text == "bin")
                lexer.SkipBytes(token.param);
            else
                onWord(token, depth);
        }
    }
}

} // namespace

ListKind KindOfNumberFormat(int format) {
    switch (format) {
    case 1:
        return ListKind::UpperRoman;
    case 2:
        return ListKind::LowerRoman;
    case 3:
        return ListKind::UpperLetter;
    case 4:
        return ListKind::LowerLetter;
    case 23:
    case 255: // no label at all: shown as the plainest label there is
        return ListKind::Bullet;
    default:
        return ListKind::Decimal;
    }
}

int NumberFormatOf(ListKind kind) {
    switch (kind) {
    case ListKind::UpperRoman:
        return 1;
    case ListKind::LowerRoman:
        return 2;
    case ListKind::UpperLetter:
        return 3;
    case ListKind::LowerLetter:
        return 4;
    case ListKind::Bullet:
        return 23;
    case ListKind::Decimal:
        break;
    }
    return 0;
}

namespace {

// a … z, aa … az, ba …: the letters as a base-26 number without a zero.
std::string Letters(int number, char a) {
    std::string letters;
    for (; number > 0; number = (number - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>(a + (number - 1) % 26));
    return letters;
}

std::string Roman(int number, bool upper) {
    static constexpr std::pair<int, std::string_view> kDigits[] = {
        {1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"}, {90, "xc"}, {50, "l"},
        {40, "xl"},  {10, "x"},   {9, "ix"},  {5, "v"},    {4, "iv"},  {1, "i"},
    };
    std::string roman;
    for (const auto& [value, digits] : kDigits) {
        for (; number >= value; number -= value)
            roman += digits;
    }
    if (upper)
        std::transform(roman.begin(), roman.end(), roman.begin(), [](char c) { return char(c - 'a' + 'A'); });
    return roman;
}

// Roman numerals beyond this grow without bound.
constexpr int kLargestRoman = 3999;

} // namespace

std::string ListLabel(ListKind kind, int number) {
    const bool letters = kind == ListKind::LowerLetter || kind == ListKind::UpperLetter;
    const bool roman = kind == ListKind::LowerRoman || kind == ListKind::UpperRoman;
    if (kind == ListKind::Bullet)
        return "\u2022";
    if (letters && number > 0)
        return Letters(number, kind == ListKind::LowerLetter ? 'a' : 'A') + '.';
    if (roman && number > 0 && number <= kLargestRoman)
        return Roman(number, kind == ListKind::UpperRoman) + '.';
    return std::to_string(number) + '.';
}

int ListCounter::Next(const ListMembership& item) {
    std::vector<std::optional<int>>& numbers = m_numbers[item.id];
    numbers.resize(kListLevels);
    const auto level = static_cast<size_t>(std::clamp(item.level, 0, kListLevels - 1));
    const bool continued = numbers[level] && *numbers[level] < std::numeric_limits<int>::max();
    numbers[level] = continued ? *numbers[level] + 1 : item.start;
    std::fill(numbers.begin() + static_cast<std::ptrdiff_t>(level) + 1, numbers.end(), std::nullopt);
    return *numbers[level];
}

void ListTables::ReadListTable(Lexer& lexer) {
    std::vector<ListLevelStyle> levels;
    std::optional<int> id;  // writers put it after the levels, some before
    ListLevelStyle ignored; // a level beyond the ninth
    ListLevelStyle* level = &ignored;
    const auto keepList = [&] {
        if (id)
            m_lists.insert_or_assign(*id, levels);
    };
    ForEachWordInGroup(lexer, [&](const Token& word, int depth) {
        if (word.text == "list" && depth == 1) {
            keepList();
            levels.clear();
            id.reset();
            level = &ignored;
        } else if (word.text == "listid" && depth == 1) {
            id = word.param;
        } else if (word.text == "listlevel") {
            level = levels.size() < kListLevels ? &levels.emplace_back() : &ignored;
        } else if (word.text == "levelnfc" || word.text == "levelnfcn") {
            level->kind = KindOfNumberFormat(word.param);
        } else if (word.text == "levelstartat") {
            level->start = word.param;
        }
    });
    keepList();
}

void ListTables::ReadOverrideTable(Lexer& lexer) {
    int listId = 0;
    ForEachWordInGroup(lexer, [&](const Token& word, int depth) {
        if (depth != 1)
            return; // \lfolevel overrides of single levels are not kept
        if (word.text == "listid")
            listId = word.param;
        else if (word.text == "ls")
            m_overrides.insert_or_assign(word.param, listId);
    });
}

std::optional<ListLevelStyle> ListTables::Find(int listNumber, int level) const {
    const auto override = m_overrides.find(listNumber);
    if (override == m_overrides.end())
        return std::nullopt;
    const auto list = m_lists.find(override->second);
    if (list == m_lists.end() || static_cast<size_t>(level) >= list->second.size())
        return ListLevelStyle();
    return list->second[level];
}

std::optional<OldNumbering> ReadOldNumbering(Lexer& lexer) {
    OldNumbering numbering;
    bool numbered = false;
    bool continuation = false;
    ForEachWordInGroup(lexer, [&](const Token& word, int depth) {
        static constexpr std::pair<std::string_view, ListKind> kStyles[] = {
            {"pnlvlblt", ListKind::Bullet},     {"pndec", ListKind::Decimal},
            {"pnlcltr", ListKind::LowerLetter}, {"pnucltr", ListKind::UpperLetter},
            {"pnlcrm", ListKind::LowerRoman},   {"pnucrm", ListKind::UpperRoman},
        };
        if (depth != 0)
            return; // \pntxtb, \pntxta: the text around the number, which the kind implies
        for (const auto& [name, kind] : kStyles) {
            if (word.text == name) {
                numbering.style.kind = kind;
                numbered = true;
            }
        }
        if (word.text == "pnlvlbody") {
            numbered = true;
        } else if (word.text == "pnlvlcont") {
            continuation = true;
        } else if (word.text == "pnlvl") {
            numbering.level = std::clamp(word.param - 1, 0, kListLevels - 1);
            numbered = true;
        } else if (word.text == "pnstart") {
            numbering.style.start = word.param;
        }
    });
    if (!numbered || continuation)
        return std::nullopt;
    return numbering;
}

} // namespace velto::rtf
