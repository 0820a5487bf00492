// The mind map of the chart window: layout when the document changed, drawing of the part in view,
// its scroll bars, and selecting, toggling, panning and stepping through it with mouse and keys.
#include "chart/CGrafik.h"

#include "chart/MindMapPainter.h"
#include "model/NodeList.h"

#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace velto {

namespace {

// Room kept around a box scrolled into view, so that its mark and selection frame show too.
int ScrollMargin(const MindMapLayout& layout) {
    return layout.MarkDiameter() + MindMapPainter::kSelectionGap + 2;
}

// The map's coordinates grow with its font size from the root at (0, 0).
MapPoint Scaled(MapPoint p, int to, int from) {
    return {int(int64_t(p.x) * to / from), int(int64_t(p.y) * to / from)};
}

} // namespace

QRect CGrafik::MindMapArea() const {
    return QRect(0, 0, std::max(0, width() - ChartLayout::kScrollBarExtent),
                 std::max(0, height() - ChartLayout::kScrollBarExtent));
}

void CGrafik::ZeichneAllesNeuMindMap() {
    ShowMindMapControls();
    PrepareBuffer();
    m_buffer.fill(Qt::white);
    if (!First()) {
        if (m_doc)
            Tell("CGrafik::ZeichneAllesNeuMindMap()");
        update();
        return;
    }
    EnsureMindMap();
    {
        QPainter painter(&m_buffer);
        const MindMapScene scene{m_mindMap, m_mapView.View(), false};
        MindMapPainter(painter, scene).Paint();
    }
    SyncMindMapScrollBars();
    update();
}

const MindMapLayout& CGrafik::LaidOutMindMap() {
    if (First())
        EnsureMindMap();
    else
        m_mindMap.Clear();
    return m_mindMap;
}

void CGrafik::ShowMindMapControls() {
    m_todayButton->hide();
    m_calendarScroll->hide();
    m_rowScroll->hide();
    if (m_notePane)
        m_notePane->hide();
    m_mapVScroll->show();
    m_mapHScroll->show();
}

void CGrafik::SyncMindMapScrollBars() {
    const QRect area = MindMapArea();
    m_mapVScroll->setGeometry(area.width(), 0, ChartLayout::kScrollBarExtent, area.height());
    m_mapHScroll->setGeometry(0, area.height(), area.width(), ChartLayout::kScrollBarExtent);
    const QSignalBlocker blockVertical(m_mapVScroll);
    const QSignalBlocker blockHorizontal(m_mapHScroll);
    // Positions are pixels of the map, so a line step is a character height.
    m_mapVScroll->setRange(0, m_mapView.VerticalRange());
    m_mapVScroll->setPageStep(std::max(1, area.height()));
    m_mapVScroll->setSingleStep(m_mindMapFontSize);
    m_mapVScroll->setValue(m_mapView.VerticalPos());
    m_mapHScroll->setRange(0, m_mapView.HorizontalRange());
    m_mapHScroll->setPageStep(std::max(1, area.width()));
    m_mapHScroll->setSingleStep(m_mindMapFontSize);
    m_mapHScroll->setValue(m_mapView.HorizontalPos());
}

void CGrafik::EnsureMindMap() {
    const QRect area = MindMapArea();
    m_mapView.SetViewSize(area.width(), area.height());
    if (!m_mindMapStale && m_mapFirst == First() && m_mindMap.FontSize() == m_mindMapFontSize)
        return;
    RefreshRows(); // the done and late marks of the boxes are worked out with the row index
    const bool hadMap = !m_mindMap.Empty();
    const int oldFontSize = m_mindMap.FontSize();
    const MapRect oldView = m_mapView.View();
    // What stays where it is in the window: a toggled branch, else the selection when it was in
    // view. The old layout's nodes may be gone, so its pointers are only compared, never followed.
    const CProjectNode* anchor = m_mapAnchor;
    int anchorBox = anchor ? m_mindMap.Find(anchor) : -1;
    if (!anchor && m_mapSelected >= 0 && m_mapSelected < m_mindMap.Count() &&
        m_mindMap.Box(m_mapSelected).rect.Intersects(oldView)) {
        anchorBox = m_mapSelected;
        anchor = m_mindMap.Box(anchorBox).node;
    }
    const MapPoint anchorAt =
        anchorBox >= 0
            ? m_mapView.ToWindow({m_mindMap.Box(anchorBox).rect.x, m_mindMap.Box(anchorBox).rect.y})
            : MapPoint{};

    m_mindMap.Build(First(), m_mindMapFontSize, m_titleMeasurer);
    m_mapView.SetExtent(m_mindMap.Extent());
    m_mapSelected = m_mindMap.SelectedAtBuild();
    m_mapFirst = First();
    m_mindMapStale = false;
    m_mapAnchor = nullptr;
    RestoreMapView(hadMap, oldFontSize, oldView.Centre(), anchorBox >= 0 ? anchor : nullptr, anchorAt);
    if (m_mapScrollPending) {
        m_mapScrollPending = false;
        ShowMapBox(m_mapSelected);
    }
}

void CGrafik::RestoreMapView(bool hadMap, int oldFontSize, MapPoint oldCentre, const CProjectNode* anchor,
                             MapPoint anchorAt) {
    if (!hadMap)
        return m_mapView.CentreOn({0, 0});
    if (oldFontSize != m_mindMapFontSize)
        return m_mapView.CentreOn(Scaled(oldCentre, m_mindMapFontSize, oldFontSize));
    const int box = anchor ? m_mindMap.Find(anchor) : -1;
    if (box >= 0) {
        const MapRect& r = m_mindMap.Box(box).rect;
        m_mapView.SetOrigin({r.x - anchorAt.x, r.y - anchorAt.y});
    }
}

int CGrafik::MindMapSelection() {
    EnsureMindMap();
    if (m_mapSelected >= 0 && m_mapSelected < m_mindMap.Count() &&
        m_mindMap.Box(m_mapSelected).node->m_bSelected)
        return m_mapSelected;
    m_mapSelected = m_mindMap.Find(CurrentNode(First()));
    return m_mapSelected;
}

void CGrafik::ShowMapBox(int box) {
    if (box >= 0)
        m_mapView.ScrollIntoView(m_mindMap.Box(box).rect, ScrollMargin(m_mindMap));
}

void CGrafik::ScrollMindMapToSelection() {
    if (!First())
        return;
    ShowMapBox(MindMapSelection());
    ZeichneAllesNeu();
}

// ---- mouse and keys ----

void CGrafik::PressOnMindMap(QPoint pos) {
    if (!First())
        return;
    EnsureMindMap();
    setFocus(Qt::MouseFocusReason);
    const MapPoint at = m_mapView.ToMap(pos.x(), pos.y());
    if (const int mark = m_mindMap.MarkAt(at); mark >= 0) {
        m_mapAnchor = m_mindMap.Box(mark).node;
        return ToggleExpanded(m_mindMap.Box(mark).node);
    }
    if (const int box = m_mindMap.BoxAt(at); box >= 0)
        return SelectInMindMap(box, false);
    m_panning = true;
    m_panStart = pos;
    m_panOrigin = m_mapView.Origin();
    setCursor(Qt::ClosedHandCursor);
}

void CGrafik::DoubleClickOnMindMap(QPoint pos) {
    if (!First())
        return;
    EnsureMindMap();
    const MapPoint at = m_mapView.ToMap(pos.x(), pos.y());
    const int box = m_mindMap.BoxAt(at);
    if (box < 0 || m_mindMap.MarkAt(at) >= 0)
        return PressOnMindMap(pos);
    // The first click of the pair has selected the box already.
    if (m_host)
        m_host->EditSelectedNode();
    setFocus(Qt::MouseFocusReason);
}

void CGrafik::PanMindMap(QPoint pos) {
    if (!m_panning)
        return;
    const QPoint moved = pos - m_panStart;
    m_mapView.SetOrigin({m_panOrigin.x - moved.x(), m_panOrigin.y - moved.y()});
    ZeichneAllesNeu();
}

void CGrafik::WheelOnMindMap(QWheelEvent* event) {
    bool sideways = false;
    const int pixels = WheelLines(event, sideways) * m_mindMapFontSize;
    if (pixels == 0)
        return;
    const MapPoint origin = m_mapView.Origin();
    m_mapView.SetOrigin(sideways ? MapPoint{origin.x - pixels, origin.y}
                                 : MapPoint{origin.x, origin.y - pixels});
    ZeichneAllesNeu();
    event->accept();
}

void CGrafik::StepInMindMap(MindMapLayout::Step step) {
    if (!First())
        return;
    const int current = MindMapSelection();
    // A selection hidden under a collapsed branch starts again from the root.
    const int target = current < 0 ? 0 : m_mindMap.Neighbour(current, step);
    if (target >= 0)
        SelectInMindMap(target, true);
}

CProjectNode* CGrafik::SelectMindMapBoxAt(QPoint pos) {
    EnsureMindMap();
    const int box = m_mindMap.BoxAt(m_mapView.ToMap(pos.x(), pos.y()));
    if (box < 0)
        return nullptr;
    SelectInMindMap(box, false);
    return m_mindMap.Box(box).node;
}

void CGrafik::SelectInMindMap(int box, bool scroll) {
    SelectOnly(First(), m_mindMap.Box(box).node);
    m_mapSelected = box;
    if (scroll)
        ShowMapBox(box);
    AfterMindMapSelection();
}

void CGrafik::AfterMindMapSelection() {
    // A new selection changes nothing the map laid out: the views hear of it, the layout is kept.
    m_selectionOnlyUpdate = true;
    if (m_doc)
        m_doc->UpdateAllViews();
    m_selectionOnlyUpdate = false;
    ZeichneAllesNeu();
}

} // namespace velto
