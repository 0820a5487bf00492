#include "model/PickListLogic.h"

#include "model/Cp1252.h"

#include <algorithm>

namespace velto {

void PushHistory(TextHistory& history, const std::string& text) {
    if (std::find(history.begin(), history.end(), text) != history.end())
        return;
    std::move_backward(history.begin(), history.end() - 1, history.end());
    history[0] = text;
}

void PushHistories(EntryHistories& histories, const std::string& assignee, const std::string& remark) {
    PushHistory(histories.assignee, assignee);
    PushHistory(histories.remark, remark);
}

std::vector<std::string> HistoryChoices(const TextHistory& history) {
    std::vector<std::string> choices;
    for (const std::string& text : history)
        if (!text.empty() && text != " ")
            choices.push_back(text);
    SortLikeListBox(choices);
    return choices;
}

EntryChoices ChooseEntryChoices(bool presetFileHasContent, const std::vector<std::string>& presets,
                                const EntryHistories& histories) {
    if (presetFileHasContent) {
        std::vector<std::string> sorted = presets;
        SortLikeListBox(sorted);
        return {sorted, sorted};
    }
    return {HistoryChoices(histories.assignee), HistoryChoices(histories.remark)};
}

namespace {

int CompareFolded(std::string_view a, std::string_view b) {
    const size_t n = std::min(a.size(), b.size());
    for (size_t i = 0; i < n; ++i) {
        const unsigned char x = cp1252::FoldCase(static_cast<unsigned char>(a[i]));
        const unsigned char y = cp1252::FoldCase(static_cast<unsigned char>(b[i]));
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

} // namespace

bool ListBoxLess(std::string_view a, std::string_view b) {
    const int folded = CompareFolded(a, b);
    return folded != 0 ? folded < 0 : a < b;
}

void SortLikeListBox(std::vector<std::string>& items) {
    std::stable_sort(items.begin(), items.end(),
                     [](const std::string& a, const std::string& b) { return ListBoxLess(a, b); });
}

size_t ListBoxInsertPosition(const std::vector<std::string>& items, std::string_view item) {
    size_t pos = 0;
    while (pos < items.size() && !ListBoxLess(item, items[pos]))
        ++pos;
    return pos;
}

std::vector<std::string> ResponsiblePersons(const CProjectNode* first) {
    std::vector<std::string> persons;
    for (const CProjectNode* node = first; node; node = node->m_pNext) {
        const std::string_view person = node->m_strResponsible;
        if (!person.empty() && std::find(persons.begin(), persons.end(), person) == persons.end())
            persons.emplace_back(person);
    }
    SortLikeListBox(persons);
    return persons;
}

std::vector<std::string> ResponsibleChoices(const CProjectNode* first) {
    std::vector<std::string> choices = ResponsiblePersons(first);
    if (std::find(choices.begin(), choices.end(), kNobody) == choices.end()) {
        choices.emplace_back(kNobody);
        SortLikeListBox(choices);
    }
    return choices;
}

std::vector<CProjectNode*> NodesOfPerson(CProjectNode* first, std::string_view person) {
    std::vector<CProjectNode*> nodes;
    for (CProjectNode* node = first; node; node = node->m_pNext)
        if (node->m_strResponsible == person)
            nodes.push_back(node);
    return nodes;
}

std::string ComposeResponsible(const std::string& name, const std::string& shortCode) {
    return name + " \xAB\xBB " + shortCode;
}

std::string ResponsibleFromChoice(const std::string& choice) {
    return choice == kNobody ? std::string() : choice;
}

} // namespace velto
