#include "dialogs/CRestoreDlg.h"

#include "common/Prompter.h"
#include "dialogs/DialogText.h"
#include "model/CTime.h"

#include <QColor>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <limits>

namespace velto {

namespace {
struct Column {
    const char* header;
    int width;
    Qt::Alignment alignment;
};
constexpr std::array<Column, 5> kColumns{{
    {"Stand", 170, Qt::AlignLeft},
    {"Datum", 120, Qt::AlignLeft},
    {"Größe", 80, Qt::AlignRight},
    {"Knoten", 60, Qt::AlignRight},
    {"Titel", 220, Qt::AlignLeft},
}};
constexpr int kTitle = 4; // the column that takes the width left over
const QColor kDamagedColour(180, 30, 30);

// Whole kilobytes, rounded up as a file manager shows them, with German digit grouping.
QString SizeText(int64_t bytes) {
    return QLocale(QLocale::German).toString(qlonglong((bytes + 1023) / 1024)) + QStringLiteral(" KB");
}

QStringList ColumnsOf(const ProjectState& state) {
    QStringList columns{QString::fromUtf8(state.label), CRestoreDlg::DateOf(state), SizeText(state.size)};
    if (state.damaged)
        columns << QString() << QString::fromUtf8("beschädigt");
    else
        columns << QString::number(state.nodeCount) << dlgtext::Show(state.rootTitle);
    return columns;
}
} // namespace

CRestoreDlg::CRestoreDlg(std::vector<ProjectState> states, const QString& projectName, bool mayRestore,
                         Prompter& prompter, QWidget* parent)
    : QDialog(parent), m_states(std::move(states)), m_mayRestore(mayRestore), m_prompter(prompter) {
    setWindowTitle(QString::fromUtf8("Sicherung wiederherstellen"));
    auto* intro =
        new QLabel(m_states.empty() ? QString::fromUtf8("Zu %1 gibt es keine Sicherungen.").arg(projectName)
                                    : QString::fromUtf8("Gespeicherte Stände von %1:").arg(projectName),
                   this);
    intro->setObjectName("intro");

    auto* buttons = new QDialogButtonBox(this);
    m_open = buttons->addButton(QString::fromUtf8("Ö&ffnen"), QDialogButtonBox::ActionRole);
    m_open->setObjectName("open");
    m_open->setToolTip(
        QString::fromUtf8("Öffnet den Stand schreibgeschützt in einem eigenen Fenster zum Vergleichen"));
    m_restore = buttons->addButton(QString::fromUtf8("&Wiederherstellen"), QDialogButtonBox::ActionRole);
    m_restore->setObjectName("restore");
    m_restore->setToolTip(
        mayRestore ? QString::fromUtf8("Macht den Stand zum Inhalt des Projekts und speichert ihn; "
                                       "der aktuelle Stand wird zur Sicherung .BK0")
                   : QString::fromUtf8("Das Projekt ist schreibgeschützt geöffnet."));
    QPushButton* close = buttons->addButton(QString::fromUtf8("&Schließen"), QDialogButtonBox::RejectRole);
    close->setObjectName("close");
    connect(m_open, &QPushButton::clicked, this, &CRestoreDlg::Open);
    connect(m_restore, &QPushButton::clicked, this, &CRestoreDlg::Restore);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(BuildList(), 1);
    layout->addWidget(buttons);
    if (!m_states.empty())
        m_list->setCurrentItem(m_list->topLevelItem(0));
    EnableButtons();
}

QString CRestoreDlg::DateOf(const ProjectState& state) {
    const int64_t seconds = std::clamp<int64_t>(state.modified, 0, std::numeric_limits<uint32_t>::max());
    return QString::fromStdString(CTime(uint32_t(seconds)).Format("%d.%m.%Y %H:%M"));
}

QTreeWidget* CRestoreDlg::BuildList() {
    m_list = new QTreeWidget(this);
    m_list->setObjectName("states");
    m_list->setColumnCount(int(kColumns.size()));
    m_list->setRootIsDecorated(false);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->setSectionsClickable(false);
    QStringList headers;
    for (const Column& column : kColumns)
        headers << QString::fromUtf8(column.header);
    m_list->setHeaderLabels(headers);
    for (const ProjectState& state : m_states)
        AddRow(state);
    // "Abgebrochene Speicherung" and long dates must not be cut; the title takes what is left.
    int width = 2 * m_list->frameWidth() + 24;
    for (int i = 0; i < int(kColumns.size()); ++i) {
        m_list->headerItem()->setTextAlignment(i, kColumns[size_t(i)].alignment | Qt::AlignVCenter);
        if (i != kTitle)
            m_list->resizeColumnToContents(i);
        m_list->setColumnWidth(i, std::max(kColumns[size_t(i)].width, m_list->columnWidth(i) + 12));
        width += m_list->columnWidth(i);
    }
    m_list->setMinimumSize(width, 180);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &CRestoreDlg::EnableButtons);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, &CRestoreDlg::Open);
    return m_list;
}

void CRestoreDlg::AddRow(const ProjectState& state) {
    auto* item = new QTreeWidgetItem(m_list, ColumnsOf(state));
    for (int i = 0; i < int(kColumns.size()); ++i)
        item->setTextAlignment(i, kColumns[i].alignment | Qt::AlignVCenter);
    const QString tip = QString::fromUtf8(state.damaged ? state.damage : state.path);
    for (int i = 0; i < int(kColumns.size()); ++i)
        item->setToolTip(i, tip);
    if (state.damaged)
        item->setForeground(kTitle, kDamagedColour);
}

const ProjectState* CRestoreDlg::SelectedUsable() const {
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    if (row < 0 || m_states[size_t(row)].damaged)
        return nullptr;
    return &m_states[size_t(row)];
}

void CRestoreDlg::EnableButtons() {
    const bool usable = SelectedUsable() != nullptr;
    m_open->setEnabled(usable);
    m_restore->setEnabled(usable && m_mayRestore);
}

void CRestoreDlg::Open() {
    if (const ProjectState* state = SelectedUsable())
        Accept(Choice::Open, *state);
}

void CRestoreDlg::Restore() {
    const ProjectState* state = SelectedUsable();
    if (!state || !m_mayRestore)
        return;
    const std::string question = "Soll der Stand vom " + DateOf(*state).toStdString() +
                                 " wiederhergestellt werden? Der aktuelle Stand wird als Sicherung .BK0 "
                                 "aufbewahrt.";
    if (m_prompter.AskYesNo("Sicherung wiederherstellen", question))
        Accept(Choice::Restore, *state);
}

void CRestoreDlg::Accept(Choice choice, const ProjectState& state) {
    m_choice = choice;
    m_chosenPath = state.path;
    accept();
}

} // namespace velto
