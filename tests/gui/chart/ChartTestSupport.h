#pragma once
// Node lists and a host for the chart tests: nodes described as "level kind title", a fixed today
// (Wednesday 11 March 2026, Berlin time) and a host that records the commands the chart sends.
#include "chart/CGrafik.h"
#include "chart/ChartHost.h"
#include "document/CVeltoDoc.h"
#include "model/NodeList.h"
#include "support/ScriptedPrompter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace charttest {

inline CTime Today() {
    return CTime(2026, 3, 11, 12, 0, 0);
}
// A time on the day offset days from today.
inline CTime Day(int offset, int hour = 1, int minute = 0, int second = 0) {
    return CTime(2026, 3, 11 + offset, hour, minute, second);
}

struct Spec {
    int level;
    int kind;
    std::string title;
    int startOffset = 0; // days from today
    int dueOffset = 0;
};

// A list in display order; the first node is selected, visibility is computed. The caller owns it.
inline CProjectNode* BuildList(std::initializer_list<Spec> specs) {
    CProjectNode* first = nullptr;
    CProjectNode* tail = nullptr;
    for (const Spec& spec : specs) {
        auto* node =
            new CProjectNode(NodeDefaults{Today(), Day(spec.startOffset), Day(spec.dueOffset, 23, 59, 59)});
        node->m_nLevel = spec.level;
        node->m_nKind = spec.kind;
        node->m_strTitle = spec.title;
        node->m_bSelected = first == nullptr;
        node->m_pPrev = tail;
        tail = (tail ? tail->m_pNext : first) = node;
    }
    RecomputeVisibility(first);
    return first;
}

// Links count untitled copies of node after it.
inline void AppendCopies(CProjectNode* node, int count) {
    for (int i = 0; i < count; ++i) {
        CProjectNode* copy = node->CloneUnlinked();
        copy->m_bSelected = 0;
        copy->m_pPrev = node;
        copy->m_pNext = node->m_pNext;
        node->m_pNext = copy;
        if (copy->m_pNext)
            copy->m_pNext->m_pPrev = copy;
    }
}

inline CHoliday Holiday(int day, int month, int year, int colour, bool yearly) {
    CHoliday holiday;
    holiday.day = day;
    holiday.month = month;
    holiday.year = year;
    holiday.color = colour;
    holiday.yearly = yearly;
    return holiday;
}

inline CProjectNode* Find(CProjectNode* first, const std::string& title) {
    for (CProjectNode* node = first; node; node = node->m_pNext)
        if (node->m_strTitle == title)
            return node;
    ADD_FAILURE() << "no node titled " << title;
    return nullptr;
}

// "level:title" of every node in list order, e.g. "0:R 1:A 2:a"; a back link that does not match
// the forward link shows as "<broken>".
inline std::string Outline(const CProjectNode* first) {
    std::string out;
    for (const CProjectNode* node = first; node; node = node->m_pNext) {
        if (node != first)
            out += node->m_pPrev && node->m_pPrev->m_pNext == node ? " " : " <broken> ";
        out += std::to_string(node->m_nLevel);
        out += ':';
        out += node->m_strTitle;
    }
    return out;
}

// Input as the window system delivers it, sent straight to the widget.
inline void SendMouse(QWidget& widget, QEvent::Type type, QPoint pos, Qt::MouseButtons held) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, QPointF(pos), widget.mapToGlobal(QPointF(pos)), button, held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}
inline void Press(QWidget& w, QPoint pos) {
    SendMouse(w, QEvent::MouseButtonPress, pos, Qt::LeftButton);
}
inline void Move(QWidget& w, QPoint pos) {
    SendMouse(w, QEvent::MouseMove, pos, Qt::LeftButton);
}
inline void Release(QWidget& w, QPoint pos) {
    SendMouse(w, QEvent::MouseButtonRelease, pos, Qt::NoButton);
}
inline void Click(QWidget& w, QPoint pos) {
    Press(w, pos);
    Release(w, pos);
}
inline void DoubleClick(QWidget& w, QPoint pos) {
    Click(w, pos);
    SendMouse(w, QEvent::MouseButtonDblClick, pos, Qt::LeftButton);
    Release(w, pos);
}
inline void Key(QWidget& w, Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&w, &press);
}

class TestHost : public CChartHost {
public:
    TestHost() : doc(prompter) {}
    CVeltoDoc* Document() override { return &doc; }
    void SendCommand(int id) override {
        commands.push_back(id);
        if (id == CHART_CMD_BACKUP_TREE)
            doc.BackupTree();
    }
    bool NotePaneHasFocus() const override { return notePaneFocused; }
    void PasteIntoNotePane() override { ++notePastes; }
    Prompter& ChartPrompter() override { return prompter; }

    ScriptedPrompter prompter;
    CVeltoDoc doc;
    std::vector<int> commands;
    bool notePaneFocused = false;
    int notePastes = 0;
};

// A chart of 800 x 400 at zoom 20 on a host whose list is built from specs; text column 300 wide,
// note area 100 high, today fixed.
class ChartFixture : public ::testing::Test {
protected:
    void Load(std::initializer_list<Spec> specs) {
        host.doc.m_pFirstNode = BuildList(specs);
        chart.SetHost(&host);
        chart.SetClock(&Today);
        chart.SetFontSize(20);
        chart.SetChartWidth1(300);
        chart.SetChartWidth2(100);
        chart.resize(800, 400);
        chart.ZeichneAllesNeu();
    }
    CProjectNode* First() { return host.doc.m_pFirstNode; }
    CProjectNode* Node(const std::string& title) { return Find(First(), title); }
    // After the test changed nodes behind the chart's back, as a view command would.
    void Redraw() {
        host.doc.UpdateAllViews();
        chart.ZeichneAllesNeu();
    }
    void Select(const std::string& title) {
        SelectOnly(First(), Node(title));
        Redraw();
    }
    // A point in the shown row's text, clear of markers, the indicator box and the divider.
    QPoint RowPoint(int shownRow) const {
        const ChartLayout layout = chart.Layout();
        return QPoint(200, layout.RowTop(shownRow) + 10);
    }
    QImage Image() const { return chart.BackBuffer().toImage(); }

    TestHost host;
    CGrafik chart;
};

} // namespace charttest
