#include "dialogs/ReportDialog.h"

#include "base/Cp1252Text.h"
#include "base/ReportPrinter.h"
#include "base/ReportTableModel.h"
#include "base/TextExport.h"
#include "common/Prompter.h"
#include "dialogs/CReportPrintDlg.h"
#include "dialogs/DialogParts.h"
#include "dialogs/DialogText.h"

#include <QCheckBox>
#include <QClipboard>
#include <QCoreApplication>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace velto {

namespace {

QPushButton* NewButton(const QString& text, const char* name, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QCheckBox* NewBox(const QString& text, const char* name, QWidget* parent) {
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(name);
    box->setChecked(true);
    return box;
}

} // namespace

ReportDialog::ReportDialog(const QString& title, Prompter& prompter, QWidget* parent)
    : QDialog(parent), m_prompter(prompter) {
    setWindowTitle(title);
    m_model = new ReportTableModel(this);
    m_list = new QTableView(this);
    m_list->setObjectName("list");
    m_list->setModel(m_model);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->verticalHeader()->hide();
    m_list->verticalHeader()->setDefaultSectionSize(m_list->fontMetrics().height() + 6);
    m_list->horizontalHeader()->setStretchLastSection(false);
    m_list->setWordWrap(false);
    m_total = new QLabel(this);
    m_total->setObjectName("total");
    m_total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    m_choices = new QVBoxLayout;
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(m_choices);
    layout->addWidget(BuildPeriodRow());
    layout->addWidget(m_list, 1);
    layout->addWidget(BuildButtonRow());
    resize(860, 560);
}

QWidget* ReportDialog::BuildPeriodRow() {
    auto* row = new QWidget(this);
    const QDate today = QDate::currentDate();
    m_from = NewDayPicker(row);
    m_from->setObjectName("from");
    m_from->setDate(QDate(today.year(), today.month(), 1));
    m_to = NewDayPicker(row);
    m_to->setObjectName("to");
    m_to->setDate(QDate(today.year(), today.month(), today.daysInMonth()));
    m_contains = new QLineEdit(row);
    m_contains->setObjectName("contains");
    dlgtext::Restrict(m_contains);
    m_done = NewBox("Erledigte Aufgaben", "done", row);
    m_undone = NewBox("Unerledigte Aufgaben", "undone", row);

    auto* period = new QHBoxLayout;
    period->addWidget(new QLabel("Report Anfang:", row));
    period->addWidget(m_from);
    period->addSpacing(12);
    period->addWidget(new QLabel("Ende:", row));
    period->addWidget(m_to);
    period->addStretch();
    auto* filter = new QHBoxLayout;
    filter->addWidget(new QLabel("Enthaltender Text:", row));
    filter->addWidget(m_contains, 1);
    filter->addSpacing(12);
    filter->addWidget(m_done);
    filter->addWidget(m_undone);
    auto* layout = new QVBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(period);
    layout->addLayout(filter);

    connect(m_from, &QDateEdit::dateChanged, this, &ReportDialog::Refill);
    connect(m_to, &QDateEdit::dateChanged, this, &ReportDialog::Refill);
    connect(m_contains, &QLineEdit::textChanged, this, &ReportDialog::Refill);
    connect(m_done, &QCheckBox::toggled, this, &ReportDialog::Refill);
    connect(m_undone, &QCheckBox::toggled, this, &ReportDialog::Refill);
    return row;
}

QWidget* ReportDialog::BuildButtonRow() {
    auto* row = new QWidget(this);
    auto* remove = NewButton("ENTF", "remove", row);
    auto* copy = NewButton("In Zwischenablage kopieren", "copy", row);
    auto* print = NewButton("Drucken", "print", row);
    auto* csv = NewButton("Als CSV speichern...", "csv", row);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, row);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* button : {remove, copy, print, csv})
        layout->addWidget(button);
    layout->addWidget(m_total, 1);
    layout->addWidget(buttons);

    connect(remove, &QPushButton::clicked, this, &ReportDialog::RemoveSelected);
    // The Delete key in the list does what "ENTF" says.
    auto* deleteKey = new QShortcut(QKeySequence::Delete, m_list);
    deleteKey->setContext(Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, &ReportDialog::RemoveSelected);
    connect(copy, &QPushButton::clicked, this, &ReportDialog::CopyToClipboard);
    connect(print, &QPushButton::clicked, this, &ReportDialog::Print);
    connect(csv, &QPushButton::clicked, this, &ReportDialog::ChooseCsvFile);
    return row;
}

const Report& ReportDialog::GetReport() const {
    return m_model->GetReport();
}

ReportOptions ReportDialog::Options() const {
    ReportOptions options;
    options.from = ToCalendarDay(m_from->date());
    options.to = ToCalendarDay(m_to->date());
    options.contains = dlgtext::Keep(m_contains->text());
    options.done = m_done->isChecked();
    options.undone = m_undone->isChecked();
    return options;
}

void ReportDialog::Refill() {
    m_model->SetReport(BuildReport(Options()));
    m_list->hideColumn(0);
    SizeColumns();
    m_total->setText(ToQString(GetReport().TotalText()));
}

void ReportDialog::SizeColumns() {
    // The first rows stand for the rest: measuring all of a large report would hold up every refill.
    constexpr int kMeasuredRows = 200;
    constexpr int kWidest = 320;
    const QFontMetrics metrics = m_list->fontMetrics();
    const int rows = std::min(m_model->rowCount(), kMeasuredRows);
    for (int column = 1; column < m_model->columnCount(); ++column) {
        int width = metrics.horizontalAdvance(
            m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        for (int row = 0; row < rows; ++row)
            width = std::max(width, metrics.horizontalAdvance(m_model->index(row, column).data().toString()));
        m_list->setColumnWidth(column, std::min(width + 2 * metrics.averageCharWidth() + 8, kWidest));
    }
}

std::vector<size_t> ReportDialog::SelectedRows() const {
    std::vector<size_t> rows;
    for (const QModelIndex& index : m_list->selectionModel()->selectedRows())
        rows.push_back(size_t(index.row()));
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ReportDialog::RemoveSelected() {
    const std::vector<size_t> rows = SelectedRows();
    if (rows.empty()) {
        m_prompter.Tell(kNoEntrySelected);
        return;
    }
    m_model->RemoveReportRows(rows);
    m_total->setText(ToQString(GetReport().TotalText()));
}

void ReportDialog::CopyToClipboard() {
    QGuiApplication::clipboard()->setText(ToQString(ReportClipboardText(GetReport(), SelectedRows())));
}

bool ReportDialog::SaveCsv(const QString& path) {
    return SaveExportedText(ReportCsv(GetReport()), path, m_prompter);
}

void ReportDialog::ChooseCsvFile() {
    QString path = QFileDialog::getSaveFileName(this, "Als CSV speichern", {}, "CSV-Dateien (*.csv)");
    if (path.isEmpty())
        return;
    if (!path.endsWith(".csv", Qt::CaseInsensitive))
        path += ".csv";
    SaveCsv(path);
}

void ReportDialog::Print() {
    const QString headerLine = windowTitle() + "  " + m_from->date().toString("dd.MM.yyyy") + " - " +
                               m_to->date().toString("dd.MM.yyyy");
    CReportPrintDlg settings(headerLine, this);
    if (settings.exec() != QDialog::Accepted)
        return;
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog choose(&printer, this);
    if (choose.exec() != QDialog::Accepted)
        return;
    ReportPrinter report(settings.HeaderLine(), settings.FontSize(), QDateTime::currentDateTime());
    report.AddReport(GetReport());
    // A report of thousands of pages takes a while: the window stays responsive and can stop it.
    QProgressDialog progress("Der Report wird gedruckt ...", "Abbrechen", 0, 1, this);
    progress.setWindowModality(Qt::WindowModal);
    // While the columns are measured the pages are not known yet: the bar only shows activity.
    const auto showPage = [&progress](int printed, int pages) {
        progress.setMaximum(pages);
        progress.setValue(printed);
        QCoreApplication::processEvents();
        return !progress.wasCanceled();
    };
    if (report.Print(printer, showPage) < std::max(1, progress.maximum()))
        printer.abort();
}

} // namespace velto
