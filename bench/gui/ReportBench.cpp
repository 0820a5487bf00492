// The reports on 100,000 nodes with three hours entries each (300,000 rows): filling the core's
// report, refilling the dialog's list, and formatting every row for the clipboard.
#include "BenchProject.h"
#include "base/ReportPrinter.h"
#include "dialogs/CHoursReportDlg.h"
#include "model/NodeList.h"
#include "outline/HoursReport.h"

#include <QCoreApplication>
#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QPrinter>

#include <benchmark/benchmark.h>

namespace velto {

namespace {

constexpr int kNodes = 100000;

ReportOptions WholeTime() {
    ReportOptions options;
    options.from = {1970, 1, 1};
    options.to = {2037, 12, 31};
    return options;
}

void BM_HoursReportFill(benchmark::State& state) {
    CProjectNode* first = bench::BuildProject(kNodes, true);
    ReportOptions options = WholeTime();
    if (state.range(0))
        options.contains = "nirgends"; // every row searched, none found
    for (auto _ : state) {
        const HoursReport report(first, options, kAllHoursColumns);
        benchmark::DoNotOptimize(report.RowCount());
    }
    FreeNodeList(first);
}
BENCHMARK(BM_HoursReportFill)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// What a click on a check box costs: the report anew and the model reset, with the dialog shown.
void BM_HoursReportDialogRefill(benchmark::State& state) {
    CProjectNode* first = bench::BuildProject(kNodes, true);
    bench::SilentPrompter prompter;
    CHoursReportDlg dialog(first, prompter);
    dialog.findChild<QDateEdit*>("from")->setDate(QDate(1970, 1, 1));
    dialog.findChild<QDateEdit*>("to")->setDate(QDate(2037, 12, 31));
    dialog.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        dialog.Refill();
        QCoreApplication::processEvents();
    }
    state.counters["rows"] = double(dialog.GetReport().RowCount());
    dialog.hide();
    FreeNodeList(first);
}
BENCHMARK(BM_HoursReportDialogRefill)->Unit(benchmark::kMillisecond);

void BM_HoursReportClipboardText(benchmark::State& state) {
    CProjectNode* first = bench::BuildProject(kNodes, true);
    const HoursReport report(first, WholeTime(), kAllHoursColumns);
    for (auto _ : state)
        benchmark::DoNotOptimize(ReportClipboardText(report, {}).size());
    FreeNodeList(first);
}
BENCHMARK(BM_HoursReportClipboardText)->Unit(benchmark::kMillisecond);

// Printing every row to a PDF file: the column widths measured over all rows, then page by page.
void BM_HoursReportPrintPdf(benchmark::State& state) {
    CProjectNode* first = bench::BuildProject(kNodes, true);
    const HoursReport report(first, WholeTime(), kAllHoursColumns);
    const QString path = QDir::temp().filePath("velto-report-bench.pdf");
    int pages = 0;
    for (auto _ : state) {
        ReportPrinter printer("Stunden - Report", 10, QDateTime::currentDateTime());
        printer.AddReport(report);
        QPrinter device(QPrinter::HighResolution);
        device.setOutputFormat(QPrinter::PdfFormat);
        device.setOutputFileName(path);
        // Argument 1 stops after the first page: what the layout over all rows costs.
        pages =
            printer.Print(device, [&state](int printed, int) { return state.range(0) == 0 || printed == 0; });
    }
    state.counters["pages"] = pages;
    QFile::remove(path);
    FreeNodeList(first);
}
BENCHMARK(BM_HoursReportPrintPdf)->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
