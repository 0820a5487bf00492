#include "view/ChartPrinting.h"

#include "chart/CGrafik.h"
#include "chart/ChartPrinter.h"
#include "common/Prompter.h"
#include "dialogs/CMindMapPrintDlg.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include <functional>

namespace velto {

namespace {

const char* const kPrinterUnusable = "Der Drucker kann nicht benutzt werden. Bitte prüfen Sie die "
                                     "Einstellungen im Druckdialog.";

// Prints onto the printer it is handed; 0 pages when the printer could not be opened.
using PageSource = std::function<int(QPrinter&)>;

// The pages to print, or nothing when the user cancelled or no node is selected (already told).
PageSource ChoosePages(QWidget* parent, CGrafik& chart, Prompter& prompter, bool mindMap) {
    if (mindMap) {
        CMindMapPrintDlg dialog(prompter, parent);
        if (dialog.exec() != QDialog::Accepted)
            return {};
        return
            [&chart, grid = dialog.Grid()](QPrinter& printer) { return PrintMindMap(chart, printer, grid); };
    }
    const auto what = WindowTimelinePrint(chart);
    if (!what)
        return {};
    return [&chart, what = *what](QPrinter& printer) { return PrintTimeline(chart, printer, what); };
}

} // namespace

void PrintChart(QWidget* parent, CGrafik& chart, Prompter& prompter, bool mindMap, PrintMode mode) {
    const PageSource pages = ChoosePages(parent, chart, prompter, mindMap);
    if (!pages)
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(mindMap ? QPageLayout::Portrait : QPageLayout::Landscape);
    const auto print = [&](QPrinter& target) {
        if (pages(target) == 0)
            prompter.Tell(kPrinterUnusable, Prompter::kCaption, PromptIcon::Warning);
    };
    switch (mode) {
    case PrintMode::Dialog: {
        QPrintDialog dialog(&printer, parent);
        if (dialog.exec() == QDialog::Accepted)
            print(printer);
        break;
    }
    case PrintMode::Direct:
        print(printer);
        break;
    case PrintMode::Preview: {
        QPrintPreviewDialog preview(&printer, parent);
        QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                         [&](QPrinter* target) { print(*target); });
        preview.exec();
        break;
    }
    }
}

} // namespace velto
