#pragma once
// One node of a project outline with its hours and cost lists. All nodes of a document form
// one doubly linked list in display order; the hierarchy is each node's depth (m_nLevel), and a
// node's subtree is the run of following nodes that are deeper than it.
#include "model/CTime.h"
#include "model/EntryList.h"
#include "model/NoteText.h"
#include "model/SharedText.h"

#include <cstdint>

namespace velto {

// Node kinds (m_nKind).
inline constexpr int kKindProject = 0;
inline constexpr int kKindTask = 1;
inline constexpr int kKindNote = 2;
inline constexpr int kKindMilestone = 3;

// The time stamps a new node starts with: created, changed and done "now", start today 01:00:00
// (one o'clock on purpose) and due today 23:59:59. Taken once for a batch of nodes, because asking
// the C library for local time per node would dominate the loading of a large project.
struct NodeDefaults {
    CTime now;
    CTime start;
    CTime due;
    static NodeDefaults Current();
};

// A node is kept small (216 bytes, 224 with its heap header): a project of many nodes with empty texts
// must still load within two and a half times its file size. Texts and entry lists are shared
// with copies, so a copy of a node costs its own size and reference counts.
class CProjectNode {
public:
    // A node with the creation defaults: "Neuer Knoten", Arial, a project node at level 0, expanded,
    // visible and selected. The note stays empty; its default comes from the document's settings.
    CProjectNode();
    explicit CProjectNode(const NodeDefaults& defaults);

    // A copy of every field, the texts and entry lists shared, unlinked (m_pNext/m_pPrev null).
    CProjectNode* CloneUnlinked() const;
    // Takes every field of other but keeps this node's links.
    void AssignContentOf(const CProjectNode& other);

    // The fields every walk of the list reads come first, so that a walk over a large project
    // touches one cache line per node.
    CProjectNode* m_pNext = nullptr;
    CProjectNode* m_pPrev = nullptr;
    int m_nLevel = 0;
    int m_nKind = kKindProject;
    int m_bDone = 0;
    int m_bExpanded = 1;
    int m_bVisible = 1;
    int m_bSelected = 1;
    CTime m_timeDue;
    CTime m_timeStart;
    // Run-time values of the view, not saved.
    int m_nRowPos = 0;
    int m_nRowAux = 0;
    // Read by the reminder check of every minute, which walks the whole list.
    CTime m_timeReminder;

    CHoursList m_pHours;
    CCostList m_pCosts;  // calculated costs
    CCostList m_pCosts2; // needed costs

    CTime m_timeCreated;
    CTime m_timeChanged;
    CTime m_timeDone;

    int m_nRemind1 = 0;
    int m_nRemind2 = 0;
    int m_nRemind3 = 0;
    CTime m_timeRemind1;
    CTime m_timeRemind2;
    int m_nRemind4 = 0;
    int m_nRemind5 = 0;
    SharedText m_strText2;
    NoteText m_strNote; // RTF
    SharedText m_strTitle{std::string_view("Neuer Knoten")};
    SharedText m_strFontName{std::string_view("Arial")};
    int m_crColor = 0; // COLORREF, red in the low byte
    int m_bItalic = 0;
    int m_bUnderline = 0;
    int m_bBold = 0;
    int m_bStrikeOut = 0;
    float m_fHoursPlanned = 0.0f;
    float m_fHoursNeeded = 0.0f;
    float m_fHourlyRate = 0.0f;
    float m_fCostPlanned = 0.0f;
    float m_fCostNeeded = 0.0f;
    SharedText m_strResponsible;
    int m_bClockedIn = 0; // not saved
    CTime m_timeClockIn;  // not saved

private:
    // Member-wise copies, used by CloneUnlinked and AssignContentOf only: they copy the links too,
    // which those then replace.
    CProjectNode(const CProjectNode&) = default;
    CProjectNode& operator=(const CProjectNode&) = default;
};

} // namespace velto
