#pragma once
// The list definitions of an RTF header (\listtable, \listoverridetable) and the older paragraph
// numbering (\pn), read into what a paragraph's list membership needs: the kind and start of a level.
#include "text/RtfDocument.h"
#include "text/RtfLexer.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velto::rtf {

inline constexpr int kListLevels = 9;

struct ListLevelStyle {
    ListKind kind = ListKind::Decimal; // what RTF assumes when a level names no format
    int start = 1;

    bool operator==(const ListLevelStyle&) const = default;
};

// A paragraph's \pn numbering: its level and style.
struct OldNumbering {
    int level = 0;
    ListLevelStyle style;

    bool operator==(const OldNumbering&) const = default;
};

class ListTables {
public:
    // Each reads the rest of its group, the one whose keyword was read last, its closing brace included.
    void ReadListTable(Lexer& lexer);
    void ReadOverrideTable(Lexer& lexer);

    // The style of a level of the list that \lsN names; nothing when no override defines N.
    std::optional<ListLevelStyle> Find(int listNumber, int level) const;

private:
    std::map<int, std::vector<ListLevelStyle>> m_lists; // by \listid
    std::map<int, int> m_overrides;                     // \ls number -> \listid
};

// Reads the rest of a \pn group; nothing for a paragraph that continues an item without a label.
std::optional<OldNumbering> ReadOldNumbering(Lexer& lexer);

// The kind a \levelnfc number gives, and the number that gives a kind.
ListKind KindOfNumberFormat(int format);
int NumberFormatOf(ListKind kind);

// The label of a list item, UTF-8: a bullet, or the number in the kind's style followed by '.'.
// Numbers that a style cannot show (letters and roman numerals below 1) are shown as digits.
std::string ListLabel(ListKind kind, int number);

// Numbers the items of the lists of a document in reading order: an item continues its level, and
// starts the levels below it afresh.
class ListCounter {
public:
    int Next(const ListMembership& item);

private:
    std::map<int, std::vector<std::optional<int>>> m_numbers; // by list id: the last number per level
};

} // namespace velto::rtf
