#include "dialogs/EntryPanel.h"

#include "common/Prompter.h"
#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"
#include "dialogs/EntryCombos.h"
#include "dialogs/StepEdit.h"
#include "model/CostLogic.h"
#include "model/NodeEditLogic.h"
#include "model/NumberFormat.h"

#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimeEdit>
#include <QTreeWidget>

#include <algorithm>
#include <array>

namespace velto {

namespace {

constexpr int kColumns = 8;

struct Column {
    const char* header;
    int width;
    Qt::Alignment alignment;
};
using ColumnSet = std::array<Column, kColumns>;

constexpr Qt::Alignment kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment kCentre = Qt::AlignCenter;
constexpr Qt::Alignment kRight = Qt::AlignRight | Qt::AlignVCenter;

// Column 0 is the hidden sort key in both sets.
constexpr ColumnSet kHoursColumns = {{{"Tag", 0, kLeft},
                                      {"Tag", 80, kLeft},
                                      {"WT", 30, kCentre},
                                      {"Start", 50, kCentre},
                                      {"Ende", 50, kCentre},
                                      {"Bear./Kommi.", 120, kLeft},
                                      {"Bemerkung", 210, kLeft},
                                      {"h", 40, kRight}}};
constexpr ColumnSet kCostColumns = {{{"Tag", 0, kLeft},
                                     {"Tag", 80, kLeft},
                                     {"WT", 30, kCentre},
                                     {"Einzelpreis in €", 85, kRight},
                                     {"Anzahl", 45, kRight},
                                     {"Bear./Kommi.", 120, kLeft},
                                     {"Bemerkung", 145, kLeft},
                                     {"Summe in €", 85, kRight}}};

// The fields of a list row in column order.
template <typename Row> struct RowFields;
template <> struct RowFields<HoursRow> {
    static constexpr std::array<std::string HoursRow::*, kColumns> kMembers = {
        &HoursRow::sortKey, &HoursRow::day,      &HoursRow::weekday, &HoursRow::begin,
        &HoursRow::end,     &HoursRow::assignee, &HoursRow::remark,  &HoursRow::hours};
};
template <> struct RowFields<CostRow> {
    static constexpr std::array<std::string CostRow::*, kColumns> kMembers = {
        &CostRow::sortKey,  &CostRow::day,      &CostRow::weekday, &CostRow::unitPrice,
        &CostRow::quantity, &CostRow::assignee, &CostRow::remark,  &CostRow::amount};
};

template <typename Row> QStringList ColumnsOf(const Row& row) {
    QStringList columns;
    for (auto member : RowFields<Row>::kMembers)
        columns << dlgtext::Show(row.*member);
    return columns;
}

template <typename Row> Row RowOf(const QTreeWidgetItem& item) {
    Row row;
    int column = 0;
    for (auto member : RowFields<Row>::kMembers)
        row.*member = dlgtext::Keep(item.text(column++));
    return row;
}

// The widths are the design's; a header the platform's font draws wider gets the room it needs.
int ColumnWidth(const Column& column, const QFontMetrics& metrics) {
    return std::max(column.width, metrics.horizontalAdvance(QString::fromUtf8(column.header)) + 12);
}

int TotalWidth(const ColumnSet& columns, const QFontMetrics& metrics) {
    int total = 0;
    for (int i = 1; i < kColumns; ++i)
        total += ColumnWidth(columns[i], metrics);
    return total;
}

const char* const kModeCaptions[] = {"Stundenerfassung", "Kalkulierte Kosten", "Benötigte Kosten"};

QPushButton* NewButton(const char* text, const char* name, QWidget* parent) {
    auto* button = new QPushButton(QString::fromUtf8(text), parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

EntryPanel::EntryPanel(CProjectNode& copy, EntryHistories& histories, std::string presetFile,
                       Prompter& prompter, QWidget* parent)
    : QWidget(parent), m_copy(copy), m_histories(histories), m_presetFile(std::move(presetFile)),
      m_prompter(prompter) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(BuildModeRadios());
    layout->addWidget(BuildListGroup(), 1);
    m_unitPrice->SetValue(0.0);
    m_quantity->SetValue(1.0);
    m_expense->setChecked(true);
    FillCombos();
    ShowMode();
    KeepWidthAcrossModes();
}

QWidget* EntryPanel::BuildModeRadios() {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    auto* group = new QButtonGroup(box);
    const char* names[] = {"modeHours", "modeCalculated", "modeNeeded"};
    for (int mode = 0; mode < 3; ++mode) {
        m_modeRadios[mode] = new QRadioButton(QString::fromUtf8(kModeCaptions[mode]), box);
        m_modeRadios[mode]->setObjectName(names[mode]);
        group->addButton(m_modeRadios[mode], mode);
        row->addWidget(m_modeRadios[mode]);
    }
    row->addStretch(1);
    m_modeRadios[0]->setChecked(true);
    connect(group, &QButtonGroup::idClicked, this, [this](int mode) { SetMode(ListMode(mode)); });
    return box;
}

QGroupBox* EntryPanel::BuildListGroup() {
    m_group = new QGroupBox(this);
    m_group->setObjectName("listGroup");
    m_beginLabel = new QLabel(m_group);
    m_endLabel = new QLabel(m_group);
    m_day = NewDayPicker(m_group);
    m_begin = NewTimePicker(m_group);
    m_end = NewTimePicker(m_group);
    m_unitPrice = new StepEdit(kHalfStep, m_group);
    m_quantity = new StepEdit(kHalfStep, m_group);
    m_expense = new QRadioButton("Ausgabe", m_group);
    m_income = new QRadioButton("Einnahme", m_group);
    m_assignee = NewEntryCombo(m_group);
    m_remark = NewEntryCombo(m_group);
    m_list = new QTreeWidget(m_group);
    m_day->setObjectName("entryDay");
    m_begin->setObjectName("entryBegin");
    m_end->setObjectName("entryEnd");
    m_unitPrice->setObjectName("unitPrice");
    m_quantity->setObjectName("quantity");
    m_expense->setObjectName("expense");
    m_income->setObjectName("income");
    m_assignee->setObjectName("entryAssignee");
    m_remark->setObjectName("entryRemark");
    m_list->setObjectName("entries");

    m_list->setColumnCount(kColumns);
    m_list->setRootIsDecorated(false);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->setSectionsClickable(false);
    m_list->header()->setStretchLastSection(false);
    m_list->setMinimumHeight(160);

    auto* grid = new QGridLayout(m_group);
    grid->addWidget(new QLabel("Tag", m_group), 0, 0);
    grid->addWidget(m_beginLabel, 0, 1);
    grid->addWidget(m_endLabel, 0, 2);
    grid->addWidget(new QLabel("Bearbeiter / Kommission", m_group), 0, 3);
    grid->addWidget(new QLabel("Bemerkung", m_group), 0, 4);
    // The time pickers and the cost edits share their cells; the mode shows one of them.
    grid->addWidget(m_day, 1, 0);
    grid->addWidget(m_begin, 1, 1);
    grid->addWidget(m_unitPrice, 1, 1);
    grid->addWidget(m_end, 1, 2);
    grid->addWidget(m_quantity, 1, 2);
    grid->addWidget(m_assignee, 1, 3);
    grid->addWidget(m_remark, 1, 4);
    grid->setColumnStretch(3, 1);
    grid->setColumnStretch(4, 1);

    auto* actions = new QHBoxLayout;
    actions->addWidget(m_expense);
    actions->addWidget(m_income);
    actions->addStretch(1);
    m_add = NewButton("Zu Liste hinzufügen", "addEntry", m_group);
    m_add->setToolTip(
        QString::fromUtf8("Den Eintrag der Eingabezeile in die Liste übernehmen (Eingabetaste)"));
    m_takeBack = NewButton("Eintrag editieren / löschen", "takeBackEntry", m_group);
    m_takeBack->setToolTip(QString::fromUtf8(
        "Den gewählten Eintrag aus der Liste nehmen und in die Eingabezeile stellen (Doppelklick, Entf)"));
    actions->addWidget(m_add);
    actions->addWidget(m_takeBack);
    grid->addLayout(actions, 2, 0, 1, 5);
    grid->addWidget(m_list, 3, 0, 1, 5);
    grid->setRowStretch(3, 1);

    connect(m_add, &QPushButton::clicked, this, &EntryPanel::AddEntry);
    connect(m_takeBack, &QPushButton::clicked, this, &EntryPanel::TakeBackEntry);
    TakeBackOnDoubleClickOrDelete(m_list, [this] { TakeBackEntry(); });
    return m_group;
}

QList<QWidget*> EntryPanel::TabChain() const {
    return {m_modeRadios[0], m_modeRadios[1], m_modeRadios[2], m_day,      m_begin,
            m_unitPrice,     m_end,           m_quantity,      m_assignee, m_remark,
            m_expense,       m_income,        m_add,           m_takeBack, m_list};
}

QList<QWidget*> EntryPanel::InputRow() const {
    return {m_day, m_begin, m_end, m_unitPrice, m_quantity, m_assignee, m_remark, m_expense, m_income};
}

// Enter in the input row adds the entry: typing a remark and pressing Enter must not close the
// whole dialog with OK.
void EntryPanel::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QWidget* focus = QApplication::focusWidget();
    const QList<QWidget*> row = InputRow();
    if (enter && focus && std::any_of(row.begin(), row.end(), [focus](QWidget* w) {
            return w == focus || w->isAncestorOf(focus);
        })) {
        event->accept();
        AddEntry();
        return;
    }
    QWidget::keyPressEvent(event);
}

void EntryPanel::SetMode(ListMode mode) {
    m_mode = mode;
    m_modeRadios[int(mode)]->setChecked(true);
    ShowMode();
}

void EntryPanel::ShowInputRow(bool hours) {
    m_beginLabel->setText(hours ? "Beginn" : "Einzelpreis in €");
    m_endLabel->setText(hours ? "Ende" : "Anzahl");
    m_begin->setVisible(hours);
    m_end->setVisible(hours);
    for (QWidget* costOnly : {static_cast<QWidget*>(m_unitPrice), static_cast<QWidget*>(m_quantity),
                              static_cast<QWidget*>(m_expense), static_cast<QWidget*>(m_income)})
        costOnly->setVisible(!hours);
}

// As wide as the wider input row, so that the dialog keeps its width when the mode changes.
void EntryPanel::KeepWidthAcrossModes() {
    int widest = 0;
    for (bool hours : {false, true}) {
        ShowInputRow(hours);
        widest = std::max(widest, minimumSizeHint().width());
    }
    setMinimumWidth(widest);
    ShowInputRow(m_mode == ListMode::Hours);
}

void EntryPanel::ShowMode() {
    const bool hours = m_mode == ListMode::Hours;
    m_group->setTitle(QString::fromUtf8(kModeCaptions[int(m_mode)]));
    ShowInputRow(hours);

    const ColumnSet& columns = hours ? kHoursColumns : kCostColumns;
    QStringList headers;
    for (const Column& column : columns)
        headers << QString::fromUtf8(column.header);
    m_list->setHeaderLabels(headers);
    m_list->setColumnHidden(0, true);
    const QFontMetrics metrics = m_list->header()->fontMetrics();
    for (int i = 1; i < kColumns; ++i) {
        m_list->setColumnWidth(i, ColumnWidth(columns[i], metrics));
        m_list->headerItem()->setTextAlignment(i, columns[i].alignment);
    }
    // Wide enough for either set of columns, so that the dialog keeps its width between the modes.
    const int widest = std::max(TotalWidth(kHoursColumns, metrics), TotalWidth(kCostColumns, metrics));
    m_list->setMinimumWidth(widest + 2 * m_list->frameWidth() +
                            m_list->verticalScrollBar()->sizeHint().width());
    Refill();
}

void EntryPanel::Refill() {
    m_list->clear();
    if (m_mode == ListMode::Hours) {
        for (const HoursRow& row : MakeHoursRows(m_copy.m_pHours))
            InsertRowSorted(ColumnsOf(row));
    } else {
        for (const CostRow& row : MakeCostRows(CostList()))
            InsertRowSorted(ColumnsOf(row));
    }
}

void EntryPanel::RefreshCosts() {
    if (m_mode != ListMode::Hours)
        Refill();
}

void EntryPanel::FillCombos() {
    FillEntryCombos(m_assignee, m_remark, m_histories, m_presetFile);
}

// Rows stay sorted by day, newest first; a new row goes to the top of its day.
void EntryPanel::InsertRowSorted(const QStringList& columns) {
    int position = 0;
    while (position < m_list->topLevelItemCount() && m_list->topLevelItem(position)->text(0) > columns[0])
        ++position;
    auto* item = new QTreeWidgetItem(columns);
    const ColumnSet& set = m_mode == ListMode::Hours ? kHoursColumns : kCostColumns;
    for (int i = 0; i < kColumns; ++i)
        item->setTextAlignment(i, set[i].alignment);
    m_list->insertTopLevelItem(position, item);
}

QTreeWidgetItem* EntryPanel::SelectedRow() const {
    const QList<QTreeWidgetItem*> selected = m_list->selectedItems();
    return selected.isEmpty() ? nullptr : selected.front();
}

CCostList& EntryPanel::CostList() const {
    return CostListOf(m_copy, m_mode == ListMode::CalculatedCosts ? CostList::Calculated : CostList::Needed);
}

void EntryPanel::AddEntry() {
    if (m_mode == ListMode::Hours)
        AddHours();
    else
        AddCost();
}

void EntryPanel::TakeBackEntry() {
    const QTreeWidgetItem* row = SelectedRow();
    if (!row) {
        m_prompter.Tell(kNoEntrySelected, Prompter::kCaption, PromptIcon::None);
        return;
    }
    if (m_mode == ListMode::Hours)
        TakeBackHours(*row);
    else
        TakeBackCost(*row);
}

void EntryPanel::AddHours() {
    const HoursInput input = ReadHoursInput(*m_day, *m_begin, *m_end, *m_assignee, *m_remark);
    if (!AddHoursEntry(m_copy.m_pHours, input)) {
        m_prompter.Tell(kBadInterval, Prompter::kCaption, PromptIcon::None);
        return;
    }
    Refill();
    emit NeededHoursChanged(QString::fromStdString(NeededHoursText(m_copy.m_pHours)));
    PushHistories(m_histories, input.assignee, input.remark);
    FillCombos();
}

void EntryPanel::AddCost() {
    const CostInput input{ToCalendarDay(m_day->date()),
                          dlgtext::Keep(m_unitPrice->Text()),
                          dlgtext::Keep(m_quantity->Text()),
                          m_expense->isChecked(),
                          dlgtext::Keep(m_assignee->currentText()),
                          dlgtext::Keep(m_remark->currentText())};
    InsertRowSorted(ColumnsOf(AddCostEntry(CostList(), input)));
    PushHistories(m_histories, input.assignee, input.remark);
    FillCombos();
}

void EntryPanel::TakeBackHours(const QTreeWidgetItem& row) {
    const HoursInput key = HoursInputOfRow(RowOf<HoursRow>(row));
    RemoveFirstMatchingHours(m_copy.m_pHours, key);
    Refill();
    m_day->setDate(QDate(key.day.year, key.day.month, key.day.day));
    m_begin->setTime(QTime(key.beginHour, key.beginMinute));
    m_end->setTime(QTime(key.endHour, key.endMinute));
    m_assignee->setCurrentText(dlgtext::Show(key.assignee));
    m_remark->setCurrentText(dlgtext::Show(key.remark));
    emit NeededHoursChanged(QString::fromStdString(NeededHoursText(m_copy.m_pHours)));
}

void EntryPanel::TakeBackCost(const QTreeWidgetItem& row) {
    const CostInput key = CostInputOfRow(RowOf<CostRow>(row));
    m_day->setDate(QDate(key.day.year, key.day.month, key.day.day));
    m_unitPrice->SetValue(float(numfmt::ParseNumber(key.unitPriceText)));
    m_quantity->SetValue(float(numfmt::ParseNumber(key.quantityText)));
    (key.expense ? m_expense : m_income)->setChecked(true);
    m_assignee->setCurrentText(dlgtext::Show(key.assignee));
    m_remark->setCurrentText(dlgtext::Show(key.remark));
    if (RemoveFirstMatchingCost(CostList(), key) == CostRemoval::Automatic) {
        m_prompter.Tell(kAutomaticEntry, Prompter::kCaption, PromptIcon::None);
        ResetCostInput();
        return;
    }
    Refill();
}

void EntryPanel::ResetCostInput() {
    m_day->setDate(QDate::currentDate());
    m_unitPrice->SetValue(0.0);
    m_quantity->SetValue(1.0);
    m_expense->setChecked(true);
    m_assignee->clearEditText();
    m_remark->clearEditText();
}

} // namespace velto
