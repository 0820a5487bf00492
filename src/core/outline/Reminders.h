#pragma once
// The reminders of a project: which reminder is due at the view's minute check, the intervals an
// alarm can be put off by, the go-to that shows the alarm's node, and how the alarm keeps hold of its
// node while the list changes under the open alarm window.
#include "files/ClockJournal.h"
#include "model/ProjectNode.h"

#include <array>
#include <optional>
#include <string_view>

namespace velto {

struct SnoozeInterval {
    std::string_view label;
    int seconds;
};

// The choices of "Erneut erinnern", in the order the alarm lists them.
inline constexpr std::array<SnoozeInterval, 16> kSnoozeIntervals = {{
    {"5 Minuten", 300},
    {"10 Minuten", 600},
    {"15 Minuten", 900},
    {"30 Minuten", 1800},
    {"1 Stunde", 3600},
    {"2 Stunden", 7200},
    {"4 Stunden", 14400},
    {"8 Stunden", 28800},
    {"12 Stunden", 43200},
    {"1 Tag", 86400},
    {"2 Tage", 172800},
    {"3 Tage", 259200},
    {"4 Tage", 345600},
    {"7 Tage", 604800},
    {"14 Tage", 1209600},
    {"30 Tage", 2592000},
}};
// What the alarm offers first.
inline constexpr std::string_view kDefaultSnooze = "5 Minuten";

// The seconds of the interval labelled exactly text; nothing for any other text.
std::optional<int> SnoozeSeconds(std::string_view text);

// The last node of the list whose reminder is set and not later than now, or null. Of several due
// in the same minute only the last is shown; the others come on the ticks after it is dealt with.
CProjectNode* LastDueReminder(CProjectNode* first, CTime now);

// "Gehe zu": expands node's ancestors when it is hidden and selects it. The shown rows above it (the
// row to scroll to), or nothing when an ancestor is missing; the selection is left alone then.
std::optional<int> ShowAlarmNode(CProjectNode* first, CProjectNode* node);

// Keeps hold of one node of a list that may change at any time (a deletion, undo, paste, sort or a
// restored backup): the node is looked up afresh at every use, so a node that was freed meanwhile is
// never touched. It is known by its creation time and title, as the clock journal knows its node;
// of several such nodes the one at the remembered address wins, else the one nearest to where it was
// last found (after an undo, its twin in the undo copy). A renamed node counts as gone: taking a
// stranger for it would be worse than raising its alarm again on the next tick.
class NodeTracker {
public:
    void Follow(const CProjectNode* first, const CProjectNode& node);
    void Forget() { m_following = false; }
    bool IsFollowing() const { return m_following; }
    // The node in the list from first on, or null when it is gone; remembers where it was found.
    CProjectNode* Find(CProjectNode* first);

private:
    void Remember(const CProjectNode* first, const CProjectNode& node);

    // Only ever compared with the addresses of the list's nodes: it may point to freed memory.
    const CProjectNode* m_address = nullptr;
    NodeIdentity m_identity;
    bool m_following = false;
};

} // namespace velto
