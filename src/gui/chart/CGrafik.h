#pragma once
// The chart window of a project: draws the timeline or the mind map of the host's document into a
// back buffer, and handles selection, editing, divider and node drags, scrolling and the node
// clipboard. The mind map's parts are in CGrafikMindMap.cpp.
#include "chart/ChartHost.h"
#include "chart/ChartLayout.h"
#include "chart/TitleMeasurer.h"
#include "document/CVeltoDoc.h"
#include "outline/ChartCalendar.h"
#include "outline/ChartRows.h"
#include "outline/MindMapLayout.h"
#include "outline/MindMapViewport.h"

#include <QPixmap>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <functional>
#include <vector>

class QPushButton;
class QScrollBar;

namespace velto {

class CGrafik : public QWidget, public DocObserver {
    Q_OBJECT

public:
    // Codes of the vertical scroll handler; Refresh only recounts the rows and redraws.
    enum class ScrollCode { LineUp, LineDown, PageUp, PageDown, ThumbPosition, Refresh };
    // What the left button is dragging.
    enum class Drag {
        None,
        HorizontalDivider,
        VerticalDivider,
        Pressed, // a row was pressed; the next move turns this into Held
        RowLine, // the mouse left the pressed row: the line marks where the node would land
        Held,    // the button is held on the pressed row
        Moving,  // the undo copy is taken and the node is being moved
    };
    static constexpr int kCalendarRange = 730;
    static constexpr int kCalendarToday = 365;
    static constexpr int kTimerMs = 250;

    explicit CGrafik(QWidget* parent = nullptr);
    ~CGrafik() override;

    // Attaches the chart to the host's document (the chart observes it to know when to reindex).
    void SetHost(ChartHost* host);
    // Stops observing the document; call it before the document goes away if the chart outlives it.
    void DetachDocument();
    void SetOptions(const ChartOptions& options) { m_options = options; }
    const ChartOptions& Options() const { return m_options; }
    void SetHolidays(const std::vector<CHoliday>& holidays) {
        m_holidays = chartcal::HolidayCalendar(holidays);
    }
    // The clock that decides today and late tasks; tests fix it.
    void SetClock(std::function<CTime()> clock);
    // The host's note pane: placed below the horizontal divider and moved with it.
    void SetNotePane(QWidget* pane);
    // While set, the chart is drawn for paper: from the selected node on, without the selection frame.
    void SetPrinting(bool printing) { m_printing = printing; }

    // The view values stored in the project file. Chart width 1 is the x of the vertical divider
    // (the width of the row text column), chart width 2 the height of the note area below the
    // horizontal divider. Neither is bounded here; drawing clamps them to the window.
    int ChartWidth1() const { return m_chartWidth1; }
    void SetChartWidth1(int width) { m_chartWidth1 = width; }
    int ChartWidth2() const { return m_chartWidth2; }
    void SetChartWidth2(int width) { m_chartWidth2 = width; }
    // Row height and indentation unit (the zoom); kept within the 5..50 a project file may hold.
    int FontSize() const { return m_fontSize; }
    void SetFontSize(int fontSize);
    int FirstRow() const { return m_firstRow; }
    int CalendarPos() const { return m_calendarPos; }
    void SetCalendarPos(int position);
    Drag DragMode() const { return m_dragMode; }
    bool ClickPending() const { return m_clickPending; }
    ChartLayout Layout() const { return LayoutFor(size()); }

    // Rebuilds the back buffer from the document and schedules a paint that copies it.
    void ZeichneAllesNeu();
    // Draws the timeline for a target of this size; false (after "Fehler Drucken!") when printing
    // finds no selected node.
    bool RenderTimeline(QPainter& painter, QSize size);

    // Printing. The row a print starts at: the selected node's, or the next shown one when it is
    // folded away; -1 after "Fehler Drucken!" when no node is selected.
    int PrintStartRow();
    // Shown rows of the document (the row index is brought up to date).
    int ShownRowCount();
    // The day in the window's first calendar column.
    int FirstShownDay() const;
    // One page of paper: the layout of the window's zoom and text column without note area or
    // scroll bars, and the rows firstRow .. firstRow + rowCount - 1 drawn over a calendar from
    // firstDay. The page is of the size PrintLayoutFor gives.
    ChartLayout PrintLayoutFor(QSize size) const;
    void RenderPrintPage(QPainter& painter, QSize size, int firstRow, int rowCount, int firstDay);
    // The width that shows this many calendar days beside the text column, and the height that
    // shows this many rows below the header.
    int WidthForDays(int days) const;
    int HeightForRows(int rows) const;
    CTime Now() const { return m_clock(); }
    // The laid-out mind map of the current document, laid out now if the document changed.
    const MindMapLayout& LaidOutMindMap();
    const QPixmap& BackBuffer() const { return m_buffer; }

    // The mind map instead of the timeline: from now on every ZeichneAllesNeu draws the map.
    void SetMindMapMode(bool on) { m_mindMapMode = on; }
    bool MindMapMode() const { return m_mindMapMode; }
    // The starting character height of the map's titles (the view's mind-map zoom).
    void SetMindMapFontSize(int size) { m_mindMapFontSize = std::clamp(size, 1, 1000); }
    // Lays the map out where the document changed and draws the part in view, with scroll bars 151
    // and 152 in place of the timeline's controls and the note pane.
    void ZeichneAllesNeuMindMap();
    const MindMapLayout& MindMap() const { return m_mindMap; }
    const MindMapViewport& MindMapView() const { return m_mapView; }

    void OnVScroll(ScrollCode code, int thumbPosition = 0);
    // Scrolls so that the selected node is shown after it was selected from elsewhere (search,
    // alarm, my tasks): the timeline's row list, or the mind map's view. A node selected while the
    // timeline is shown is also scrolled to when the map is shown next.
    void ScrollToSelection();
    // Selects the node of the row under pos (a right click before its context menu); the node, or
    // null when pos is on no row.
    CProjectNode* SelectNodeAt(QPoint pos);
    // The selected node, from the row index when it is shown (no walk of a fresh index).
    CProjectNode* SelectedNode();
    // Forgets the row index and the map's layout; the next redraw rebuilds them. Called on every
    // document update, and when the clock may have made tasks late.
    void InvalidateRows();
    // One step of the drag timer: scrolls while a node is held above the first or below the last row.
    void OnDragTimer();

    void OnDocumentUpdated(CVeltoDoc& doc) override;

public slots:
    void OnEditCopy();
    void OnEditCut();
    void OnEditPaste();
    void OnJumpToToday();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    ChartLayout LayoutFor(QSize size) const;
    CProjectNode* First() const;
    void RefreshRows();
    int Today() const;
    void PlaceChildren(const ChartLayout& layout);
    void SyncRowScrollBar();
    void ShowChartControls();
    void Tell(const char* text);

    void PrepareBuffer();
    // Whole wheel notches turned, as lines to scroll (the desktop's lines per notch); sideways for a
    // horizontal wheel or with Shift.
    int WheelLines(QWheelEvent* event, bool& sideways);

    // The mind map (CGrafikMindMap.cpp).
    QRect MindMapArea() const;
    void ShowMindMapControls();
    void SyncMindMapScrollBars();
    void EnsureMindMap();
    void RestoreMapView(bool hadMap, int oldFontSize, MapPoint oldCentre, const CProjectNode* anchor,
                        MapPoint anchorAt);
    int MindMapSelection();
    void ShowMapBox(int box);
    void ScrollMindMapToSelection();
    void PressOnMindMap(QPoint pos);
    void DoubleClickOnMindMap(QPoint pos);
    void PanMindMap(QPoint pos);
    void StepInMindMap(MindMapLayout::Step step);
    void WheelOnMindMap(QWheelEvent* event);
    void SelectInMindMap(int box, bool scroll);
    CProjectNode* SelectMindMapBoxAt(QPoint pos);
    void AfterMindMapSelection();

    void PressAt(QPoint pos);
    bool PressOnDivider(const ChartLayout& layout, QPoint pos);
    void PressOnRow(const ChartLayout& layout, QPoint pos);
    void FollowDrag(const ChartLayout& layout, QPoint pos);
    void ApplyDrag();
    void DropNode(int lineY);
    void UpdateHoverCursor(const ChartLayout& layout, QPoint pos);
    struct RowHit {
        CProjectNode* node = nullptr;
        int row = -1;          // index in the row index
        bool onMarker = false; // on the expand/collapse marker of a node with children
    };
    RowHit HitRow(const ChartLayout& layout, QPoint pos) const;

    void ToggleExpanded(CProjectNode* node);
    void MoveSelection(bool down);
    void SelectAndShow(CProjectNode* node);
    void ScrollRowIntoView(int row);
    void AfterSelectionChange();
    void AfterTreeChange();
    void PublishOutline(const CProjectNode* chain);

    ChartHost* m_host = nullptr;
    CVeltoDoc* m_doc = nullptr;
    ChartOptions m_options;
    chartcal::HolidayCalendar m_holidays;
    std::function<CTime()> m_clock;
    ChartRows m_rows;
    QPixmap m_buffer;

    QScrollBar* m_rowScroll = nullptr;      // 131
    QScrollBar* m_calendarScroll = nullptr; // 132
    QPushButton* m_todayButton = nullptr;   // 136
    QScrollBar* m_mapVScroll = nullptr;     // 151
    QScrollBar* m_mapHScroll = nullptr;     // 152
    QPointer<QWidget> m_notePane;
    QTimer m_dragTimer;

    int m_fontSize = 20;
    int m_chartWidth1 = 200;
    int m_chartWidth2 = 200;
    int m_firstRow = 0;
    int m_calendarPos = kCalendarToday;
    bool m_printing = false;

    Drag m_dragMode = Drag::None;
    int m_dragLinePos = -1;
    int m_pressedRow = -1;
    bool m_clickPending = false;
    bool m_leftDown = false;
    QPoint m_lastMouse;
    int m_wheelRemainder = 0;

    bool m_mindMapMode = false;
    int m_mindMapFontSize = 20;
    TitleMeasurer m_titleMeasurer;
    MindMapLayout m_mindMap;
    MindMapViewport m_mapView;
    // The layout no longer matches the document; nothing of it may be read before it is rebuilt.
    bool m_mindMapStale = true;
    const CProjectNode* m_mapFirst = nullptr;
    // Set while the map tells the document of a new selection, which changes nothing it laid out.
    bool m_selectionOnlyUpdate = false;
    // The box of the selected node, as far as the map knows it.
    int m_mapSelected = -1;
    // The node that should stay where it is in the window when the map is laid out next (a toggled
    // branch), instead of the selected one.
    const CProjectNode* m_mapAnchor = nullptr;
    bool m_mapScrollPending = false;
    bool m_panning = false;
    QPoint m_panStart;
    MapPoint m_panOrigin;
};

} // namespace velto
