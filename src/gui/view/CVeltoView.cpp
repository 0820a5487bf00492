#include "view/CVeltoView.h"

#include "app/CommandIds.h"
#include "app/Cp1252Text.h"
#include "app/ShellState.h"
#include "model/NodeList.h"
#include "model/NumberFormat.h"

#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <vector>

namespace {
// The commands that belong to the view; those not listed in Handled() come with the chart and the
// note pane and stay disabled until then.
constexpr std::array kViewCommands = {
    cmd::ZoomOut,    cmd::ZoomIn,        cmd::WidthDown,       cmd::WidthUp,
    cmd::NewNode,    cmd::EditNode,      cmd::DeleteNode,      cmd::CollapseAll,
    cmd::ExpandAll,  cmd::BackupTree,    cmd::EditUndo,        cmd::FindText,
    cmd::MyTasks,    cmd::ToggleCosts,   cmd::SortByDate,      cmd::NodeDone,
    cmd::NodeBold,   cmd::NodeItalic,    cmd::NodeUnderline,   cmd::NodeStrikeOut,
    cmd::NodeColor,  cmd::ClockIn,       cmd::ClockOut,        cmd::NoteBold,
    cmd::NoteItalic, cmd::NoteUnderline, cmd::NoteFont,        cmd::InsertHyperlink,
    cmd::EditCopy,   cmd::EditCut,       cmd::EditPaste,       cmd::HoursReport,
    cmd::CostReport, cmd::FilePrint,     cmd::FilePrintDirect, cmd::FilePrintPreview,
    cmd::NextPane,   cmd::PrevPane,      cmd::StatusNodeInfo,  cmd::GoToAlarmNode,
    cmd::SearchStep, cmd::MyTasksChosen,
};

bool IsViewCommand(int id) {
    return std::find(kViewCommands.begin(), kViewCommands.end(), id) != kViewCommands.end();
}

constexpr int kIndentPerLevel = 4; // blanks per outline level

QString RowText(const CProjectNode& node) {
    return QString(std::max(0, node.m_nLevel) * kIndentPerLevel, QLatin1Char(' ')) +
           ToQString(node.m_strTitle);
}

QString Stamp(const CTime& time) {
    return QString::fromStdString(time.Format("%d.%m.%y / %H:%M "));
}
} // namespace

CVeltoView::CVeltoView(CVeltoDoc& doc, const ShellState& shell, QWidget* parent)
    : QWidget(parent), m_doc(doc), m_shell(shell), m_rows(new QListWidget(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_rows);
    m_rows->setSelectionMode(QAbstractItemView::SingleSelection);
    m_rows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(m_rows, &QListWidget::currentRowChanged, this, &CVeltoView::SelectRow);
    m_doc.AddObserver(this);
    Redraw();
}

CVeltoView::~CVeltoView() {
    m_doc.RemoveObserver(this);
}

bool CVeltoView::OnUpdateCommand(int id, CommandState& state) {
    if (!IsViewCommand(id))
        return false;
    if (id == cmd::StatusNodeInfo) {
        const CProjectNode* current = CurrentNode(m_doc.m_pFirstNode);
        state.text = current ? NodeInfoLine(*current, m_showCosts) : QString();
        return true;
    }
    state.enabled = false;
    return true;
}

bool CVeltoView::OnCommand(int) {
    return false;
}

void CVeltoView::OnDocumentUpdated(CVeltoDoc&) {
    FillRows();
}

void CVeltoView::SetLayout(const ViewLayout& layout) {
    m_layout = layout;
    m_mindMapZoom = layout.zoom;
}

void CVeltoView::Redraw() {
    m_showsMindMap = m_shell.mindMapMode;
    FillRows();
}

void CVeltoView::FillRows() {
    std::vector<CProjectNode*> visible;
    for (CProjectNode* node = m_doc.m_pFirstNode; node; node = node->m_pNext)
        if (node->m_bVisible)
            visible.push_back(node);
    const QSignalBlocker quiet(m_rows);
    // The rows are kept when the same nodes are shown, so a click that selects is never answered by
    // deleting the row under the mouse.
    if (m_rows->count() != int(visible.size())) {
        m_rows->clear();
        for (size_t i = 0; i < visible.size(); ++i)
            new QListWidgetItem(m_rows);
    }
    for (int row = 0; row < int(visible.size()); ++row) {
        QListWidgetItem* item = m_rows->item(row);
        item->setText(RowText(*visible[row]));
        item->setData(Qt::UserRole, QVariant::fromValue(static_cast<void*>(visible[row])));
        if (visible[row]->m_bSelected)
            m_rows->setCurrentItem(item);
    }
}

void CVeltoView::SelectRow(int row) {
    QListWidgetItem* item = m_rows->item(row);
    if (!item)
        return;
    auto* node = static_cast<CProjectNode*>(item->data(Qt::UserRole).value<void*>());
    SelectOnly(m_doc.m_pFirstNode, node);
    m_doc.UpdateAllViews();
}

QString CVeltoView::NodeInfoLine(const CProjectNode& node, bool costs) {
    const QString separator = QStringLiteral("  |  ");
    QString line = QStringLiteral("Erstellt: ") + Stamp(node.m_timeCreated) + separator +
                   QString::fromUtf8("Letzte Änderung: ") + Stamp(node.m_timeChanged);
    if (node.m_nKind == KIND_TASK && node.m_bDone)
        line += separator + QStringLiteral("Erledigt am: ") + Stamp(node.m_timeDone);
    // The operands are taken in opposite order for hours and costs on purpose.
    const double balance = costs ? double(node.m_fCostNeeded) - double(node.m_fCostPlanned)
                                 : double(node.m_fHoursPlanned) - double(node.m_fHoursNeeded);
    line += separator + QString::fromStdString(numfmt::FormatFixed2(balance)) +
            (costs ? QString::fromUtf8("€") : QStringLiteral("h"));
    return line;
}
