#include "chart/CGrafik.h"

#include "chart/ChartText.h"
#include "chart/TimelinePainter.h"
#include "common/Prompter.h"
#include "model/NodeList.h"
#include "outline/ChartEdits.h"
#include "outline/NodeClipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>

namespace velto {

namespace {

QScrollBar* MakeScrollBar(Qt::Orientation orientation, const QString& text, const QString& name,
                          QWidget* parent) {
    auto* bar = new QScrollBar(orientation, parent);
    bar->setObjectName(name);
    bar->setToolTip(text);
    bar->setStatusTip(text);
    bar->setFocusPolicy(Qt::NoFocus);
    bar->hide();
    return bar;
}

const char* DropRefusal(DropVerdict verdict) {
    switch (verdict) {
    case DropVerdict::RootCannotMove:
        return "Der erste Knoten kann nicht verschoben werden!";
    case DropVerdict::BeforeRoot:
        return "Vor den ersten Knoten kann kein Knoten verschoben werden!";
    case DropVerdict::ParentNotProject:
        return "Knoten können nur unter Projektknoten verschoben werden!";
    case DropVerdict::IntoOwnSubtree:
        return "Ein Knoten kann nicht unter sich selbst verschoben werden!";
    case DropVerdict::Allowed:
    case DropVerdict::NoChange:
        break;
    }
    return nullptr;
}

} // namespace

CGrafik::CGrafik(QWidget* parent) : QWidget(parent), m_clock(&CTime::GetCurrentTime) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);

    m_rowScroll = MakeScrollBar(Qt::Vertical, QStringLiteral("Scrollbalken vertikal"),
                                QStringLiteral("scrollBar131"), this);
    m_rowScroll->setSingleStep(1);
    m_rowScroll->setPageStep(10);
    connect(m_rowScroll, &QScrollBar::valueChanged, this,
            [this](int value) { OnVScroll(ScrollCode::ThumbPosition, value); });

    m_calendarScroll = MakeScrollBar(Qt::Horizontal, QStringLiteral("Scrollbalken Kalender"),
                                     QStringLiteral("scrollBar132"), this);
    m_calendarScroll->setRange(0, kCalendarRange);
    m_calendarScroll->setSingleStep(1);
    m_calendarScroll->setPageStep(7);
    m_calendarScroll->setValue(m_calendarPos);
    connect(m_calendarScroll, &QScrollBar::valueChanged, this, [this](int value) {
        m_calendarPos = value;
        ZeichneAllesNeu();
    });

    m_todayButton = new QPushButton(QStringLiteral("Heute"), this);
    m_todayButton->setObjectName(QStringLiteral("todayButton136"));
    m_todayButton->setToolTip(QStringLiteral("Kalender springe zu heute"));
    m_todayButton->setStatusTip(QStringLiteral("Kalender springe zu heute"));
    m_todayButton->setFocusPolicy(Qt::NoFocus);
    m_todayButton->hide();
    connect(m_todayButton, &QPushButton::clicked, this, &CGrafik::OnJumpToToday);

    m_mapVScroll = MakeScrollBar(Qt::Vertical, QStringLiteral("Scrollbalken vertikal Mind Map"),
                                 QStringLiteral("scrollBar151"), this);
    connect(m_mapVScroll, &QScrollBar::valueChanged, this, [this](int value) {
        m_mapView.SetVerticalPos(value);
        ZeichneAllesNeu();
    });
    m_mapHScroll = MakeScrollBar(Qt::Horizontal, QStringLiteral("Scrollbalken horizontal Mind Map"),
                                 QStringLiteral("scrollBar152"), this);
    connect(m_mapHScroll, &QScrollBar::valueChanged, this, [this](int value) {
        m_mapView.SetHorizontalPos(value);
        ZeichneAllesNeu();
    });

    m_dragTimer.setInterval(kTimerMs);
    connect(&m_dragTimer, &QTimer::timeout, this, &CGrafik::OnDragTimer);
}

CGrafik::~CGrafik() {
    DetachDocument();
}

void CGrafik::SetHost(ChartHost* host) {
    DetachDocument();
    m_host = host;
    m_doc = host ? host->Document() : nullptr;
    if (m_doc)
        m_doc->AddObserver(this);
    InvalidateRows();
}

void CGrafik::DetachDocument() {
    if (m_doc)
        m_doc->RemoveObserver(this);
    m_doc = nullptr;
    m_rows.Invalidate();
    m_rows.Refresh(nullptr, CTime());
    m_mindMap.Clear();
    m_mindMapStale = true;
}

void CGrafik::SetClock(std::function<CTime()> clock) {
    m_clock = clock ? std::move(clock) : std::function<CTime()>(&CTime::GetCurrentTime);
    m_rows.Invalidate();
}

void CGrafik::SetNotePane(QWidget* pane) {
    m_notePane = pane;
    if (pane) {
        pane->setParent(this);
        pane->show();
        PlaceChildren(Layout());
    }
}

void CGrafik::SetFontSize(int fontSize) {
    m_fontSize = std::clamp(fontSize, 5, 50);
}

void CGrafik::SetCalendarPos(int position) {
    m_calendarPos = std::clamp(position, 0, kCalendarRange);
    const QSignalBlocker block(m_calendarScroll);
    m_calendarScroll->setValue(m_calendarPos);
}

void CGrafik::OnDocumentUpdated(CVeltoDoc&) {
    m_rows.Invalidate();
    if (!m_selectionOnlyUpdate)
        m_mindMapStale = true;
}

void CGrafik::InvalidateRows() {
    m_rows.Invalidate();
    m_mindMapStale = true;
}

ChartLayout CGrafik::LayoutFor(QSize size) const {
    return ChartLayout(size, m_fontSize, m_chartWidth1, m_chartWidth2);
}

CProjectNode* CGrafik::First() const {
    return m_doc ? m_doc->m_pFirstNode : nullptr;
}

void CGrafik::RefreshRows() {
    m_rows.Refresh(First(), m_clock());
}

int CGrafik::Today() const {
    return chartcal::LocalDayNumber(m_clock());
}

void CGrafik::Tell(const char* text) {
    if (m_host)
        m_host->ChartPrompter().Tell(text);
}

// ---- drawing ----

void CGrafik::PrepareBuffer() {
    // On a high-density screen the buffer holds device pixels, so the copy stays sharp.
    const qreal ratio = devicePixelRatioF();
    const QSize target = size().expandedTo(QSize(1, 1)) * ratio;
    if (m_buffer.size() != target) {
        m_buffer = QPixmap(target);
        m_buffer.setDevicePixelRatio(ratio);
    }
}

void CGrafik::ZeichneAllesNeu() {
    if (m_mindMapMode)
        return ZeichneAllesNeuMindMap();
    ShowChartControls();
    PlaceChildren(Layout());
    PrepareBuffer();
    if (!First()) {
        m_buffer.fill(Qt::white);
        if (m_doc)
            Tell("CGrafik::ZeichneAllesNeu()");
        return;
    }
    {
        QPainter painter(&m_buffer);
        RenderTimeline(painter, size());
    }
    SyncRowScrollBar();
    update();
}

bool CGrafik::RenderTimeline(QPainter& painter, QSize size) {
    RefreshRows();
    m_firstRow = std::clamp(m_firstRow, 0, std::max(0, m_rows.Count() - 1));
    const int startRow = m_printing ? PrintStartRow() : m_firstRow;
    if (startRow < 0)
        return false;
    const ChartLayout layout = LayoutFor(size);
    const int today = Today();
    const TimelineScene scene{
        layout,    m_rows,     startRow,  today, chartcal::FirstCalendarDay(today, m_calendarPos),
        m_options, m_holidays, m_printing};
    TimelinePainter(painter, scene).Paint();
    return true;
}

int CGrafik::PrintStartRow() {
    RefreshRows();
    const CProjectNode* node = CurrentNode(First());
    if (!node) {
        Tell("Fehler Drucken!");
        return -1;
    }
    while (node && !node->m_bVisible)
        node = node->m_pNext;
    return node ? m_rows.RowOf(node) : m_rows.Count();
}

int CGrafik::ShownRowCount() {
    RefreshRows();
    return m_rows.Count();
}

int CGrafik::FirstShownDay() const {
    return chartcal::FirstCalendarDay(Today(), m_calendarPos);
}

ChartLayout CGrafik::PrintLayoutFor(QSize size) const {
    return ChartLayout(size, m_fontSize, m_chartWidth1, 0);
}

void CGrafik::RenderPrintPage(QPainter& painter, QSize size, int firstRow, int rowCount, int firstDay) {
    RefreshRows();
    const ChartLayout layout = PrintLayoutFor(size);
    TimelineScene scene{layout, m_rows, firstRow, Today(), firstDay, m_options, m_holidays, true};
    scene.rowLimit = rowCount;
    TimelinePainter(painter, scene).Paint();
}

int CGrafik::WidthForDays(int days) const {
    const ChartLayout probe(QSize(0, 0), m_fontSize, 0, 0);
    return std::max(0, m_chartWidth1) + 2 + days * probe.DayWidth() + ChartLayout::kScrollBarExtent;
}

int CGrafik::HeightForRows(int rows) const {
    // Below the rows a print layout keeps one row height and the scroll bar's band free.
    const ChartLayout probe(QSize(0, 0), m_fontSize, 0, 0);
    return probe.RowTop(rows) + m_fontSize + ChartLayout::kScrollBarExtent;
}

void CGrafik::ShowChartControls() {
    if (!m_todayButton->isHidden())
        return;
    m_todayButton->show();
    m_calendarScroll->show();
    m_rowScroll->show();
    m_mapVScroll->hide();
    m_mapHScroll->hide();
}

void CGrafik::PlaceChildren(const ChartLayout& layout) {
    m_rowScroll->setGeometry(layout.VerticalScrollBarRect());
    m_calendarScroll->setGeometry(layout.CalendarScrollBarRect());
    m_todayButton->setGeometry(layout.TodayButtonRect());
    if (m_notePane)
        m_notePane->setGeometry(layout.NoteAreaRect());
}

void CGrafik::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_buffer);
    if (m_dragLinePos < 0)
        return;
    // The line of a running drag is drawn over the buffer, so the buffer needs no repair after it.
    const ChartLayout layout = Layout();
    painter.setPen(QPen(Qt::black, 1, Qt::DashDotLine));
    switch (m_dragMode) {
    case Drag::HorizontalDivider:
        painter.drawLine(0, m_dragLinePos, width() - ChartLayout::kScrollBarExtent, m_dragLinePos);
        break;
    case Drag::VerticalDivider:
        painter.drawLine(m_dragLinePos, m_fontSize + 1, m_dragLinePos, layout.RowAreaBottom());
        break;
    case Drag::RowLine:
        painter.drawLine(0, m_dragLinePos, layout.VerticalDividerX(), m_dragLinePos);
        break;
    default:
        break;
    }
}

void CGrafik::resizeEvent(QResizeEvent*) {
    ZeichneAllesNeu();
}

// ---- scrolling ----

void CGrafik::OnVScroll(ScrollCode code, int thumbPosition) {
    switch (code) {
    case ScrollCode::LineUp:
        m_firstRow -= 1;
        break;
    case ScrollCode::LineDown:
        m_firstRow += 1;
        break;
    case ScrollCode::PageUp:
        m_firstRow -= 10;
        break;
    case ScrollCode::PageDown:
        m_firstRow += 10;
        break;
    case ScrollCode::ThumbPosition:
        m_firstRow = thumbPosition;
        break;
    default:
        break;
    }
    // The clamp and the scroll bar's range and position follow in the redraw.
    ZeichneAllesNeu();
}

void CGrafik::SyncRowScrollBar() {
    const QSignalBlocker block(m_rowScroll);
    m_rowScroll->setRange(0, std::max(0, m_rows.Count() - 1));
    m_rowScroll->setValue(m_firstRow);
}

void CGrafik::OnJumpToToday() {
    SetCalendarPos(kCalendarToday);
    ZeichneAllesNeu();
}

void CGrafik::ScrollToSelection() {
    if (m_mindMapMode)
        return ScrollMindMapToSelection();
    m_mapScrollPending = true;
    RefreshRows();
    ScrollRowIntoView(m_rows.SelectedRow());
    OnVScroll(ScrollCode::Refresh);
}

void CGrafik::ScrollRowIntoView(int row) {
    if (row < 0)
        return;
    const int shown = std::max(1, Layout().FullyShownRows());
    if (row < m_firstRow)
        m_firstRow = row;
    else if (row >= m_firstRow + shown)
        m_firstRow = row - shown + 1;
}

int CGrafik::WheelLines(QWheelEvent* event, bool& sideways) {
    const QPoint delta = event->angleDelta();
    sideways = delta.x() != 0 || (event->modifiers() & Qt::ShiftModifier);
    m_wheelRemainder += sideways ? (delta.x() ? delta.x() : delta.y()) : delta.y();
    const int notches = m_wheelRemainder / 120;
    m_wheelRemainder %= 120;
    return notches * QApplication::wheelScrollLines();
}

void CGrafik::wheelEvent(QWheelEvent* event) {
    if (m_mindMapMode)
        return WheelOnMindMap(event);
    bool calendar = false;
    const int lines = WheelLines(event, calendar);
    if (lines == 0)
        return;
    if (calendar) {
        SetCalendarPos(m_calendarPos - lines);
        ZeichneAllesNeu();
    } else {
        m_firstRow -= lines;
        OnVScroll(ScrollCode::Refresh);
    }
    event->accept();
}

// ---- mouse ----

void CGrafik::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    m_leftDown = true;
    if (m_mindMapMode)
        return PressOnMindMap(event->position().toPoint());
    PressAt(event->position().toPoint());
}

void CGrafik::PressAt(QPoint pos) {
    m_lastMouse = pos;
    if (!First())
        return;
    RefreshRows();
    const ChartLayout layout = Layout();
    if (!PressOnDivider(layout, pos))
        PressOnRow(layout, pos);
}

bool CGrafik::PressOnDivider(const ChartLayout& layout, QPoint pos) {
    if (layout.NearVerticalDivider(pos.x())) {
        m_dragMode = Drag::VerticalDivider;
        m_dragLinePos = layout.VerticalDividerX();
        setCursor(Qt::SizeHorCursor);
    } else if (layout.NearHorizontalDivider(pos.y())) {
        m_dragMode = Drag::HorizontalDivider;
        m_dragLinePos = layout.HorizontalDividerY();
        setCursor(Qt::SizeVerCursor);
    } else {
        return false;
    }
    update();
    return true;
}

CGrafik::RowHit CGrafik::HitRow(const ChartLayout& layout, QPoint pos) const {
    const auto shown = layout.ShownRowAt(pos.y());
    if (!shown)
        return {};
    RowHit hit{m_rows.At(m_firstRow + *shown), m_firstRow + *shown, false};
    hit.onMarker = hit.node && HasChildren(hit.node) &&
                   layout.MarkerSlot(hit.node->m_nLevel, layout.RowTop(*shown)).contains(pos);
    return hit;
}

void CGrafik::PressOnRow(const ChartLayout& layout, QPoint pos) {
    const RowHit hit = HitRow(layout, pos);
    if (!hit.node)
        return;
    if (hit.onMarker) {
        ToggleExpanded(hit.node);
        return;
    }
    SelectOnly(First(), hit.node);
    m_clickPending = true;
    m_pressedRow = hit.row;
    m_dragMode = Drag::Pressed;
    m_dragTimer.start();
    setFocus(Qt::MouseFocusReason);
    AfterSelectionChange();
}

void CGrafik::mouseMoveEvent(QMouseEvent* event) {
    const QPoint pos = event->position().toPoint();
    m_lastMouse = pos;
    if (m_mindMapMode)
        return PanMindMap(pos);
    const ChartLayout layout = Layout();
    if (m_dragMode == Drag::None)
        UpdateHoverCursor(layout, pos);
    else
        FollowDrag(layout, pos);
}

void CGrafik::UpdateHoverCursor(const ChartLayout& layout, QPoint pos) {
    if (layout.NearVerticalDivider(pos.x()))
        setCursor(Qt::SizeHorCursor);
    else if (layout.NearHorizontalDivider(pos.y()))
        setCursor(Qt::SizeVerCursor);
    else
        unsetCursor();
}

void CGrafik::FollowDrag(const ChartLayout& layout, QPoint pos) {
    switch (m_dragMode) {
    case Drag::HorizontalDivider:
        if (layout.HorizontalDragAllowed(pos.y()))
            m_dragLinePos = pos.y();
        break;
    case Drag::VerticalDivider:
        if (layout.VerticalDragAllowed(pos.x()))
            m_dragLinePos = pos.x();
        break;
    case Drag::Pressed:
        m_dragMode = Drag::Held;
        setCursor(Qt::UpArrowCursor);
        break;
    case Drag::Held: {
        const auto row = layout.ShownRowAt(pos.y());
        if (row && m_firstRow + *row == m_pressedRow)
            break;
        m_dragMode = Drag::RowLine;
        if (!m_dragTimer.isActive())
            m_dragTimer.start();
        [[fallthrough]];
    }
    case Drag::RowLine:
        if (layout.RowLineAllowed(pos.y()))
            m_dragLinePos = layout.SnapRowLine(pos.y());
        break;
    default:
        break;
    }
    update();
}

void CGrafik::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseReleaseEvent(event);
    m_leftDown = false;
    m_panning = false;
    m_dragTimer.stop();
    unsetCursor();
    if (m_dragMode == Drag::None)
        return;
    ApplyDrag();
    m_dragMode = Drag::None;
    m_dragLinePos = -1;
    if (m_doc)
        m_doc->UpdateAllViews();
    ZeichneAllesNeu();
}

void CGrafik::ApplyDrag() {
    const ChartLayout layout = Layout();
    switch (m_dragMode) {
    case Drag::HorizontalDivider:
        m_chartWidth2 = layout.NoteHeightForDivider(m_dragLinePos);
        break;
    case Drag::VerticalDivider:
        m_chartWidth1 = m_dragLinePos;
        break;
    case Drag::RowLine:
        if (m_dragLinePos >= 0)
            DropNode(m_dragLinePos);
        break;
    default:
        break;
    }
}

void CGrafik::DropNode(int lineY) {
    CProjectNode* moved = CurrentNode(First());
    if (!moved)
        return;
    RefreshRows();
    CProjectNode* rowBelow = m_rows.At(m_firstRow + Layout().ShownRowBelowLine(lineY));
    const DropVerdict verdict = CheckDrop(First(), moved, rowBelow);
    if (verdict != DropVerdict::Allowed) {
        // Dropping a node back onto its own place is no move at all and needs no message.
        if (verdict != DropVerdict::NoChange)
            Tell(DropRefusal(verdict));
        return;
    }
    m_host->TakeUndoCopy();
    m_dragMode = Drag::Moving;
    MoveSubtree(m_doc->m_pFirstNode, moved, rowBelow);
    m_doc->SetModifiedFlag();
}

void CGrafik::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseDoubleClickEvent(event);
    m_leftDown = true;
    const QPoint pos = event->position().toPoint();
    if (m_mindMapMode)
        return DoubleClickOnMindMap(pos);
    const ChartLayout layout = Layout();
    RefreshRows();
    const RowHit hit = HitRow(layout, pos);
    const bool onDivider = layout.NearVerticalDivider(pos.x()) || layout.NearHorizontalDivider(pos.y());
    if (!hit.node || hit.onMarker || onDivider)
        return PressAt(pos);
    // The edit path: the first click of the pair has selected the row already.
    m_dragTimer.stop();
    m_dragMode = Drag::None;
    m_clickPending = false;
    if (m_host)
        m_host->EditSelectedNode();
    setFocus(Qt::MouseFocusReason);
}

void CGrafik::OnDragTimer() {
    const bool dragging = m_leftDown && (m_dragMode == Drag::Held || m_dragMode == Drag::RowLine);
    if (!dragging) {
        m_dragTimer.stop();
        return;
    }
    const ChartLayout layout = Layout();
    const int y = m_lastMouse.y();
    const int fullRows = layout.FullyShownRows();
    if (y < layout.HeaderHeight()) {
        if (m_firstRow > 0)
            OnVScroll(ScrollCode::LineUp);
    } else if (y >= layout.RowTop(fullRows) && m_firstRow + fullRows < m_rows.Count()) {
        OnVScroll(ScrollCode::LineDown);
    }
}

// ---- selection and tree ----

void CGrafik::ToggleExpanded(CProjectNode* node) {
    node->m_bExpanded = !node->m_bExpanded;
    RecomputeVisibility(First());
    // A selection hidden by the collapse moves to the collapsed node, so it stays on a shown row.
    CProjectNode* current = CurrentNode(First());
    if (current && !current->m_bVisible)
        SelectOnly(First(), node);
    AfterSelectionChange();
}

void CGrafik::keyPressEvent(QKeyEvent* event) {
    if (m_mindMapMode) {
        switch (event->key()) {
        case Qt::Key_Up:
            return StepInMindMap(MindMapLayout::Step::Up);
        case Qt::Key_Down:
            return StepInMindMap(MindMapLayout::Step::Down);
        case Qt::Key_Left:
            return StepInMindMap(MindMapLayout::Step::Left);
        case Qt::Key_Right:
            return StepInMindMap(MindMapLayout::Step::Right);
        default:
            return QWidget::keyPressEvent(event);
        }
    }
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        return MoveSelection(event->key() == Qt::Key_Down);
    QWidget::keyPressEvent(event);
}

void CGrafik::MoveSelection(bool down) {
    RefreshRows();
    CProjectNode* current = m_rows.At(m_rows.SelectedRow());
    if (!current)
        current = CurrentNode(First());
    if (!current)
        return;
    CProjectNode* target = down ? current->m_pNext : current->m_pPrev;
    while (target && !target->m_bVisible)
        target = down ? target->m_pNext : target->m_pPrev;
    if (target)
        SelectAndShow(target);
}

CProjectNode* CGrafik::SelectedNode() {
    if (!First())
        return nullptr;
    RefreshRows();
    CProjectNode* shown = m_rows.At(m_rows.SelectedRow());
    return shown ? shown : CurrentNode(First());
}

CProjectNode* CGrafik::SelectNodeAt(QPoint pos) {
    if (!First())
        return nullptr;
    if (m_mindMapMode)
        return SelectMindMapBoxAt(pos);
    RefreshRows();
    CProjectNode* node = HitRow(Layout(), pos).node;
    if (node) {
        SelectOnly(First(), node);
        AfterSelectionChange();
    }
    return node;
}

void CGrafik::SelectAndShow(CProjectNode* node) {
    SelectOnly(First(), node);
    const int row = m_rows.RowOf(node);
    ScrollRowIntoView(row);
    AfterSelectionChange();
}

void CGrafik::AfterSelectionChange() {
    if (m_doc)
        m_doc->UpdateAllViews();
    OnVScroll(ScrollCode::Refresh);
}

void CGrafik::AfterTreeChange() {
    m_rows.Invalidate();
    m_doc->SetModifiedFlag();
    m_doc->UpdateAllViews();
    ZeichneAllesNeu();
}

// ---- node clipboard ----

void CGrafik::OnEditCopy() {
    const CProjectNode* node = CurrentNode(First());
    if (!node)
        return;
    NodeClipboard::Instance().HoldCopy(CopySubtreeChain(node));
    PublishOutline(NodeClipboard::Instance().Peek());
}

void CGrafik::OnEditCut() {
    CProjectNode* node = CurrentNode(First());
    if (!node)
        return;
    if (node == First()) {
        Tell("Erster Knoten kann nicht ausgeschnitten werden!");
        return;
    }
    m_host->TakeUndoCopy();
    NodeClipboard::Instance().HoldCut(CutSubtree(m_doc->m_pFirstNode, node));
    PublishOutline(NodeClipboard::Instance().Peek());
    AfterTreeChange();
}

void CGrafik::OnEditPaste() {
    if (m_host && m_host->NotePaneHasFocus()) {
        m_host->PasteIntoNotePane();
        return;
    }
    CProjectNode* target = CurrentNode(First());
    if (!target)
        return;
    NodeClipboard& clipboard = NodeClipboard::Instance();
    if (clipboard.IsEmpty()) {
        Tell("Zwischenablage ist leer!");
        return;
    }
    m_host->TakeUndoCopy();
    PasteChainBefore(m_doc->m_pFirstNode, target, clipboard.TakeForPaste());
    AfterTreeChange();
}

void CGrafik::PublishOutline(const CProjectNode* chain) {
    if (QClipboard* system = QGuiApplication::clipboard())
        system->setText(ToQString(OutlineText(chain)));
}

} // namespace velto
