#pragma once
// One node of a project outline and the two entry records hung off it. All nodes of a document form
// one doubly linked list in display order; the hierarchy is each node's depth (m_nLevel), and a
// node's subtree is the run of following nodes that are deeper than it.
#include "model/CTime.h"
#include "model/NoteText.h"

#include <cstdint>
#include <string>

// Node kinds (m_nKind).
enum : int { KIND_PROJECT = 0, KIND_TASK = 1, KIND_NOTE = 2, KIND_MILESTONE = 3 };

// One line of a node's hours list ("Stundenerfassung").
class CHoursEntry {
public:
    CTime m_time1;      // the day worked
    CTime m_time2;      // begin
    CTime m_time3;      // end
    std::string m_str1; // assignee
    std::string m_str2; // remark
    CHoursEntry* m_pNext = nullptr;
};

// One line of a cost list; the amount is negative for an expense.
class CCostEntry {
public:
    CTime m_timeDate;
    float m_fUnitPrice = 0.0f;
    float m_fQuantity = 0.0f;
    float m_fAmount = 0.0f;
    std::string m_str1; // assignee
    std::string m_str2; // remark
    CCostEntry* m_pNext = nullptr;
};

// The time stamps a new node starts with: created, changed and done "now", start today 01:00:00
// (one o'clock on purpose) and due today 23:59:59. Taken once for a batch of nodes, because asking
// the C library for local time per node would dominate the loading of a large project.
struct NodeDefaults {
    CTime now;
    CTime start;
    CTime due;
    static NodeDefaults Current();
};

class CProjectNode {
public:
    // A node with the creation defaults: "Neuer Knoten", Arial, a project node at level 0, expanded,
    // visible and selected. The note stays empty; its default comes from the document's settings.
    CProjectNode();
    explicit CProjectNode(const NodeDefaults& defaults);
    // Frees the node's own entry lists; the list links are the owner's business.
    ~CProjectNode();

    // A deep copy of every field and the three entry lists, unlinked (m_pNext/m_pPrev null).
    CProjectNode* CloneUnlinked() const;
    // Takes every field and the entry lists of other but keeps this node's links. The strings and
    // entries this node owns are reused, which makes refreshing a copy of a large list cheap.
    void AssignContentOf(const CProjectNode& other);

    // The fields every walk of the list reads come first, so that a walk over a large project
    // touches one cache line per node.
    CProjectNode* m_pNext = nullptr;
    CProjectNode* m_pPrev = nullptr;
    int m_nLevel = 0;
    int m_nKind = KIND_PROJECT;
    int m_bDone = 0;
    int m_bExpanded = 1;
    int m_bVisible = 1;
    int m_bSelected = 1;
    CTime m_timeDue;
    // Run-time values of the view, not saved.
    int m_nRowPos = 0;
    int m_nRowAux = 0;
    std::string m_strRowText;
    std::string m_strAux;

    CHoursEntry* m_pHours = nullptr;
    CCostEntry* m_pCosts = nullptr;  // calculated costs
    CCostEntry* m_pCosts2 = nullptr; // needed costs

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
    std::string m_strText2;

    CTime m_timeStart;
    NoteText m_strNote; // RTF
    std::string m_strTitle = "Neuer Knoten";
    std::string m_strFontName = "Arial";
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
    CTime m_timeReminder;
    std::string m_strResponsible;
    int m_bClockedIn = 0; // not saved
    CTime m_timeClockIn;  // not saved

private:
    // Member-wise copies, used by CloneUnlinked and AssignContentOf only: they share links and
    // entry lists, which those then replace.
    CProjectNode(const CProjectNode&) = default;
    CProjectNode& operator=(const CProjectNode&) = default;
};

// Frees a singly linked entry list.
void FreeHours(CHoursEntry* head);
void FreeCosts(CCostEntry* head);
CHoursEntry* CopyHours(const CHoursEntry* head);
CCostEntry* CopyCosts(const CCostEntry* head);
