#pragma once
// Input helpers and a host for the chart tests that records what the chart asks of it; the node
// lists come from the outline tests.
#include "chart/CGrafik.h"
#include "chart/ChartHost.h"
#include "core/outline/OutlineTestSupport.h"
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

namespace velto::charttest {

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

class TestHost : public ChartHost {
public:
    TestHost() : doc(prompter) {}
    CVeltoDoc* Document() override { return &doc; }
    void TakeUndoCopy() override {
        requests.push_back("undo copy");
        doc.BackupTree();
    }
    void EditSelectedNode() override { requests.push_back("edit"); }
    bool NotePaneHasFocus() const override { return notePaneFocused; }
    void PasteIntoNotePane() override { ++notePastes; }
    Prompter& ChartPrompter() override { return prompter; }

    ScriptedPrompter prompter;
    CVeltoDoc doc;
    std::vector<std::string> requests; // what the chart asked the host for, in order
    bool notePaneFocused = false;
    int notePastes = 0;
};

// A chart of 800 x 400 at zoom 20 on a host whose list is built from specs; text column 300 wide,
// note area 100 high, today fixed.
class ChartFixture : public ::testing::Test {
protected:
    void Load(std::initializer_list<Spec> specs) { Load(BuildList(specs)); }
    void Load(CProjectNode* first) {
        host.doc.m_pFirstNode = first;
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
    std::string Selected() { return std::string(CurrentNode(First())->m_strTitle); }
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

} // namespace velto::charttest
