#include "GeneratedProjects.h"

#include "model/NodeList.h"

#include <string>

namespace velto::benchdata {

namespace {

constexpr int kNodeCount = 100000;

std::string NoteFor(int index) {
    std::string note =
        "{\\rtf1\\ansi\\deff0\\deftab720{\\fonttbl{\\f0\\fswiss MS Sans Serif;}{\\f1\\froman\\fcharset2 "
        "Symbol;}{\\f2\\fswiss Arial;}}\n{\\colortbl\\red0\\green0\\blue0;}\n\\deflang1031\\pard\\plain"
        "\\f2\\fs24 Arbeitspaket " +
        std::to_string(index) + "\\par ";
    for (int line = 0; line < 6; ++line)
        note += "Abstimmung mit dem Auftraggeber, Entwurf pr\\'fcfen und Ergebnisse festhalten.\\par ";
    return note + "}";
}

CCostEntry Cost(CTime day, float price, float quantity, const char* remark) {
    return {day, price, quantity, -price * quantity, "", remark};
}

// Every tenth node a project node, the others tasks with a note, two hours entries and the
// automatic entry of each cost list.
void FillNoteHeavy(CProjectNode& node, int i) {
    node.m_nKind = i % 10 == 0 ? kKindProject : kKindTask;
    node.m_nLevel = i == 0 ? 0 : (i % 10 == 0 ? 1 : 2);
    node.m_strTitle = "Aufgabe " + std::to_string(i);
    node.m_strNote = NoteFor(i);
    node.m_strResponsible = "Max Mustermann \xAB\xBB MM";
    node.m_fHourlyRate = 85.0f;
    node.m_fHoursPlanned = float(i % 40);
    const CTime day(1795000000 + uint32_t(i % 60) * 86400);
    node.m_pHours = {{day, day + 8 * 3600, day + 12 * 3600, "MM", "Entwurf"},
                     {day, day + 13 * 3600, day + 17 * 3600, "MM", "Abnahme"}};
    node.m_pCosts = {Cost(day, 85.0f, node.m_fHoursPlanned, "Kalkulierte Stunden")};
    node.m_pCosts2 = {Cost(day, 85.0f, 8.0f, "Ben\xF6tigte Stunden")};
}

// Entries of 14 bytes (hours) or 18 bytes (costs) in the file, the smallest there are.
template <class Entry> EntryList<Entry> EmptyTextEntries(int count, const Entry& entry) {
    typename EntryList<Entry>::Builder builder{size_t(count)};
    for (int i = 0; i < count; ++i)
        builder.Add(entry);
    return builder.Finish();
}

// Nodes with empty texts: 133 bytes each in the file, the smallest node there is.
void MakeMinimal(CProjectNode& node, int i) {
    node.m_nLevel = i == 0 ? 0 : 1;
    node.m_strTitle = "";
    node.m_strFontName = "";
}

void Fill(CProjectNode& node, int i, Shape shape) {
    if (shape == Shape::Notes)
        return FillNoteHeavy(node, i);
    MakeMinimal(node, i);
    const CTime day(1795000000);
    const int entries = SizeOf(shape).entriesPerNode;
    if (shape == Shape::Hours) {
        node.m_pHours = EmptyTextEntries(entries, CHoursEntry{day, day + 3600, day + 7200, "", ""});
    } else if (shape == Shape::Costs) {
        node.m_pCosts = EmptyTextEntries(entries, CCostEntry{day, 85.0f, 8.0f, -680.0f, "", ""});
        node.m_pCosts2 = node.m_pCosts;
    }
}

} // namespace

ShapeSize SizeOf(Shape shape) {
    switch (shape) {
    case Shape::Notes:
        return {kNodeCount, 0};
    case Shape::Hours:
        return {1000, 4000}; // 56 MB
    case Shape::Costs:
        return {1000, 1500}; // in each cost list, 54 MB
    case Shape::MinimalNodes:
        break;
    }
    return {400000, 0}; // 53 MB
}

ProjectContent GenerateProject(Shape shape) {
    ProjectContent content;
    const NodeDefaults defaults{CTime(1795000000), CTime(1795000000), CTime(1795080000)};
    CProjectNode* last = nullptr;
    for (int i = 0; i < SizeOf(shape).nodes; ++i) {
        auto* node = new CProjectNode(defaults);
        Fill(*node, i, shape);
        node->m_bSelected = i == 0;
        node->m_pPrev = last;
        (last ? last->m_pNext : content.firstNode) = node;
        last = node;
    }
    return content;
}

} // namespace velto::benchdata
