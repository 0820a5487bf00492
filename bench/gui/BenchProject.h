#pragma once
// What the GUI benchmarks share: a prompter that says yes to everything, a project of every node
// kind and a host for the chart.
#include "chart/ChartHost.h"
#include "common/Prompter.h"
#include "document/CVeltoDoc.h"

#include <string>

namespace velto::bench {

class SilentPrompter : public Prompter {
public:
    PromptAnswer Ask(std::string_view, std::string_view, PromptButtons buttons, PromptIcon) override {
        return buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::Yes;
    }
};

// A chart host of a document that asks nothing.
class BenchHost : public ChartHost {
public:
    BenchHost() : doc(prompter) {}
    CVeltoDoc* Document() override { return &doc; }
    void TakeUndoCopy() override {}
    void EditSelectedNode() override {}
    bool NotePaneHasFocus() const override { return false; }
    void PasteIntoNotePane() override {}
    Prompter& ChartPrompter() override { return prompter; }

    SilentPrompter prompter;
    CVeltoDoc doc;
};

// A note of about 1 KB, as people write them.
inline std::string BenchNote(int i) {
    std::string note = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\\pard\\plain\\f0\\fs24 ";
    while (note.size() < 1024)
        note += "Abstimmung mit dem Kunden, Angebot " + std::to_string(i) + " pr\\'fcfen.\\par ";
    return note + "}";
}

// Three hours entries and an entry in each cost list.
inline void AddEntries(CProjectNode& node) {
    const CTime day = node.m_timeStart;
    const CHoursEntry hours{day, day + 3600, day + 7200, "Bearbeiter", "Bemerkung"};
    node.m_pHours = {hours, hours, hours};
    node.m_pCosts = {{day, 12.5f, 3.0f, 37.5f, "Lieferant", "Material"}};
    node.m_pCosts2 = {{day, 80.0f, 1.0f, 80.0f, "Bearbeiter", "Stunden"}};
}

// A project of every node kind: project nodes of ten tasks, a note and a milestone each, dates
// spread over four months around today, some tasks done, bold or with a responsible person; with
// content, every node also has a note, hours and costs, which the undo copy must carry.
inline CProjectNode* BuildProject(int count, bool withContent = false) {
    const NodeDefaults defaults = NodeDefaults::Current();
    auto* root = new CProjectNode(defaults);
    root->m_strTitle = "Projekt";
    CProjectNode* tail = root;
    for (int i = 1; i < count; ++i) {
        auto* node = new CProjectNode(defaults);
        const int inGroup = i % 13;
        node->m_nLevel = inGroup == 1 ? 1 : 2;
        node->m_nKind = inGroup == 1    ? kKindProject
                        : inGroup == 12 ? kKindMilestone
                        : inGroup == 11 ? kKindNote
                                        : kKindTask;
        node->m_strTitle = "Knoten " + std::to_string(i);
        node->m_timeStart = defaults.start + int64_t(i % 120 - 60) * 86400;
        node->m_timeDue = node->m_timeStart + int64_t(i % 9) * 86400 + 82799;
        node->m_bDone = i % 3 == 0;
        node->m_bBold = i % 7 == 0;
        node->m_bSelected = 0;
        if (i % 5 == 0)
            node->m_strResponsible = "Anna \xAB\xBB AN";
        if (withContent) {
            node->m_strNote = BenchNote(i);
            AddEntries(*node);
        }
        node->m_pPrev = tail;
        tail = tail->m_pNext = node;
    }
    return root;
}

} // namespace velto::bench
