#include "dialogs/CHolidayDlg.h"

#include "base/ColorRef.h"
#include "common/Prompter.h"
#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"
#include "files/DataDir.h"
#include "model/HoursLogic.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <array>

namespace velto {

namespace {

struct Column {
    const char* header;
    int width; // 0: hidden
};
// The sort key and the colour ride along in hidden columns, as they always have.
constexpr std::array<Column, 5> kColumns = {
    {{"Tag", 0}, {"Farbe", 0}, {"Tag", 110}, {"Benennung", 200}, {"Jährlich", 110}}};

QStringList ColumnsOf(const CHoliday& entry) {
    const HolidayRow row = MakeHolidayRow(entry);
    return {dlgtext::Show(row.sortKey), dlgtext::Show(row.color), dlgtext::Show(row.date),
            dlgtext::Show(row.name), dlgtext::Show(row.yearly)};
}

QPushButton* NewButton(const char* text, const char* name, const char* tip, QWidget* parent) {
    auto* button = new QPushButton(QString::fromUtf8(text), parent);
    button->setObjectName(name);
    button->setToolTip(QString::fromUtf8(tip));
    button->setAutoDefault(false);
    return button;
}

} // namespace

CHolidayDlg::CHolidayDlg(std::string holidayFile, Prompter& prompter, QWidget* parent)
    : QDialog(parent), m_file(std::move(holidayFile)), m_prompter(prompter) {
    const HolidayFileContent file = ReadHolidayFile(m_file);
    m_entries = HolidayList(file.entries);
    m_readError = file.error;
    setWindowTitle("Feiertage, Urlaub, ...");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 12, 20, 12);
    layout->addWidget(BuildInputRow());
    layout->addWidget(BuildList(), 1);
    layout->addWidget(
        new QLabel(QString::fromUtf8("Änderungen werden erst nach einem Neustart sichtbar!"), this));
    QDialogButtonBox* buttons = NewButtonRow(this);
    if (m_readError != 0) {
        auto* notice =
            new QLabel(QString::fromStdString(CannotReadDataFileMessage(m_file, m_readError)), this);
        notice->setObjectName("unreadable");
        notice->setWordWrap(true);
        layout->addWidget(notice);
        AcceptButtonOf(buttons)->setEnabled(false);
    }
    layout->addWidget(buttons);
    for (std::size_t i = 0; i < Entries().size(); ++i)
        ShowRow(i);
    ShowColour();
}

QWidget* CHolidayDlg::BuildInputRow() {
    auto* row = new QWidget(this);
    m_date = NewDayPicker(row);
    m_name = new QLineEdit(row);
    m_yearly = new QCheckBox(QString::fromUtf8("Jährlich"), row);
    m_colourButton =
        NewButton("Farbe Hintergrund", "colour", "Farbe, in der der Zeitplan diesen Tag hinterlegt", row);
    QPushButton* add =
        NewButton("Zu Liste hinzufügen", "add",
                  "Übernimmt Datum, Benennung, Farbe und „Jährlich“ als neuen Eintrag (Eingabetaste).", row);
    QPushButton* takeBack = NewButton("Eintrag editieren / löschen", "takeBack",
                                      "Holt den ausgewählten Eintrag zum Ändern in die Eingabefelder und "
                                      "nimmt ihn aus der Liste (Doppelklick, Entf).",
                                      row);
    m_date->setObjectName("date");
    m_name->setObjectName("name");
    m_yearly->setObjectName("yearly");
    m_yearly->setToolTip(QString::fromUtf8("Der Tag wiederholt sich in jedem Jahr."));
    dlgtext::Restrict(m_name);
    m_name->installEventFilter(this);
    connect(m_colourButton, &QPushButton::clicked, this, &CHolidayDlg::ChooseColour);
    connect(add, &QPushButton::clicked, this, &CHolidayDlg::AddEntry);
    connect(takeBack, &QPushButton::clicked, this, &CHolidayDlg::TakeBackEntry);

    auto* grid = new QGridLayout(row);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel("Datum", row), 0, 0);
    grid->addWidget(new QLabel("Benennung", row), 0, 1);
    grid->addWidget(m_date, 1, 0);
    grid->addWidget(m_name, 1, 1);
    grid->addWidget(m_yearly, 1, 2);
    grid->addWidget(m_colourButton, 1, 3);
    grid->addWidget(add, 2, 0);
    grid->addWidget(takeBack, 2, 1);
    grid->setColumnStretch(1, 1);
    return row;
}

QTreeWidget* CHolidayDlg::BuildList() {
    m_list = new QTreeWidget(this);
    m_list->setObjectName("entries");
    m_list->setColumnCount(int(kColumns.size()));
    m_list->setRootIsDecorated(false);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setAllColumnsShowFocus(true);
    m_list->header()->setSectionsClickable(false);
    m_list->header()->setStretchLastSection(false);
    QStringList headers;
    for (const Column& column : kColumns)
        headers << QString::fromUtf8(column.header);
    m_list->setHeaderLabels(headers);
    int width = 2 * m_list->frameWidth() + 24;
    for (int i = 0; i < int(kColumns.size()); ++i) {
        m_list->headerItem()->setTextAlignment(i, Qt::AlignCenter);
        m_list->setColumnWidth(i, kColumns[i].width);
        m_list->setColumnHidden(i, kColumns[i].width == 0);
        width += kColumns[i].width;
    }
    m_list->setMinimumSize(width, 200);
    TakeBackOnDoubleClickOrDelete(m_list, [this] { TakeBackEntry(); });
    return m_list;
}

void CHolidayDlg::ShowRow(std::size_t index) {
    auto* item = new QTreeWidgetItem(ColumnsOf(Entries().at(index)));
    for (int i = 0; i < int(kColumns.size()); ++i)
        item->setTextAlignment(i, Qt::AlignCenter);
    m_list->insertTopLevelItem(int(index), item);
}

void CHolidayDlg::AddEntry() {
    // No check for duplicates: one day may carry several entries.
    const QDate date = m_date->date();
    CHoliday entry{date.day(),           date.month(), date.year(), m_colour, dlgtext::Keep(m_name->text()),
                   m_yearly->isChecked()};
    const std::size_t index = m_entries.Add(std::move(entry));
    ShowRow(index);
    m_list->setCurrentItem(m_list->topLevelItem(int(index)));
    m_name->clear();
}

void CHolidayDlg::TakeBackEntry() {
    const QList<QTreeWidgetItem*> selected = m_list->selectedItems();
    if (selected.isEmpty()) {
        m_prompter.Tell(kNoEntrySelected, Prompter::kCaption, PromptIcon::None);
        return;
    }
    const int index = m_list->indexOfTopLevelItem(selected.front());
    const CHoliday entry = m_entries.Take(std::size_t(index));
    delete selected.front();
    m_date->setDate(QDate(entry.year, entry.month, entry.day));
    m_name->setText(dlgtext::Show(entry.name));
    m_yearly->setChecked(entry.yearly);
    m_colour = entry.color;
    ShowColour();
}

void CHolidayDlg::ChooseColour() {
    const QColor chosen = QColorDialog::getColor(ColorFromColorRef(m_colour), this, "Farbe Hintergrund");
    if (!chosen.isValid())
        return;
    m_colour = ColorRefOf(chosen);
    ShowColour();
}

void CHolidayDlg::ShowColour() {
    const QColor colour = ColorFromColorRef(m_colour);
    const QColor text = colour.lightness() < 128 ? QColor(Qt::white) : QColor(Qt::black);
    // The whole face shows the colour the day column will get; the text stays readable on it.
    m_colourButton->setStyleSheet(
        QStringLiteral(
            "QPushButton { background-color: %1; color: %2; border: 1px solid gray; padding: 4px 10px; }")
            .arg(colour.name(), text.name()));
}

bool CHolidayDlg::eventFilter(QObject* watched, QEvent* event) {
    // Enter after typing a name adds the entry, rather than closing the dialog without it.
    if (watched == m_name && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            AddEntry();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void CHolidayDlg::accept() {
    if (m_readError != 0) // OK is disabled; the notice above the buttons says why
        return;
    // A failed write would lose the edited list without a word; the dialog stays open instead, so
    // the user can try again or cancel.
    if (const SaveOutcome saved = SaveHolidays(m_file, Entries()); !saved) {
        m_prompter.Tell(CannotSaveDataFileMessage(m_file, saved.error), Prompter::kCaption,
                        PromptIcon::Warning);
        return;
    }
    QDialog::accept();
}

bool EditHolidays(QWidget* parent, Prompter& prompter) {
    EnsureDataDirectory();
    CHolidayDlg dialog(HolidayFilePath(), prompter, parent);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace velto
