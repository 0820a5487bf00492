#pragma once
// The small pick lists around hours and cost entries: the two recent-text histories of a document,
// what the entry combo boxes offer, the order of the sorted list boxes, and the responsible persons
// already used in a project.
#include "model/ProjectNode.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace velto {

// The last ten assignee and remark texts typed into entries, newest first.
using TextHistory = std::array<std::string, 10>;

struct EntryHistories {
    TextHistory assignee;
    TextHistory remark;
};

// Puts text in front and pushes the oldest out, unless the text is already one of the ten: a text
// typed again keeps its place, on purpose.
void PushHistory(TextHistory& history, const std::string& text);
void PushHistories(EntryHistories& histories, const std::string& assignee, const std::string& remark);

// The texts a combo box offers from a history: empty texts and a single blank are left out.
std::vector<std::string> HistoryChoices(const TextHistory& history);

// What the assignee and remark combo boxes list, already in list-box order.
struct EntryChoices {
    std::vector<std::string> assignee;
    std::vector<std::string> remark;
};
// The presets when the preset file has content (both combos get them all), else the histories.
EntryChoices ChooseEntryChoices(bool presetFileHasContent, const std::vector<std::string>& presets,
                                const EntryHistories& histories);

// The order of a sorted list box: case-insensitive over Windows-1252 letters, ties broken by the
// raw bytes so that the order is total.
bool ListBoxLess(std::string_view a, std::string_view b);
void SortLikeListBox(std::vector<std::string>& items);
// Where a sorted list box puts a new item: after the items that sort before it or equal to it.
size_t ListBoxInsertPosition(const std::vector<std::string>& items, std::string_view item);

// The first entry of the responsible list; choosing it clears the responsible person.
inline constexpr std::string_view kNobody = "--- Keiner ---";
// Every distinct non-empty responsible text of the project (compared exactly), in list-box order.
std::vector<std::string> ResponsiblePersons(const CProjectNode* first);
// The nodes whose responsible text is exactly person, in list order.
std::vector<CProjectNode*> NodesOfPerson(CProjectNode* first, std::string_view person);
// "--- Keiner ---" and every distinct non-empty responsible text of the project, in list-box order.
std::vector<std::string> ResponsibleChoices(const CProjectNode* first);
// A new responsible person as stored: name, blank, the two guillemets (0xAB 0xBB), blank, short code.
std::string ComposeResponsible(const std::string& name, const std::string& shortCode);
// The text a choice leaves on the node: none, or "--- Keiner ---", gives the empty text.
std::string ResponsibleFromChoice(const std::string& choice);

} // namespace velto
