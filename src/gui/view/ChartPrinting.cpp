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

struct PageSource {
    // Prints onto the printer it is handed; 0 pages when the printer could not be opened.
    std::function<int(QPrinter&)> print;
    QPageLayout::Orientation orientation = QPageLayout::Landscape;
};

// The pages to print, or nothing when the user cancelled or no node is selected (already told).
std::optional<PageSource> ChoosePages(QWidget* parent, CGrafik& chart, Prompter& prompter, bool mindMap) {
    if (mindMap) {
        CMindMapPrintDlg dialog(prompter, parent);
        if (dialog.exec() != QDialog::Accepted)
            return std::nullopt;
        const PageGrid grid = dialog.Grid();
        const MapRect extent = chart.LaidOutMindMap().Extent();
        return PageSource{[&chart, grid](QPrinter& printer) { return PrintMindMap(chart, printer, grid); },
                          PrefersLandscape(extent.w, extent.h, grid) ? QPageLayout::Landscape
                                                                     : QPageLayout::Portrait};
    }
    const auto what = WindowTimelinePrint(chart);
    if (!what)
        return std::nullopt;
    return PageSource{
        [&chart, what = *what](QPrinter& printer) { return PrintTimeline(chart, printer, what); }};
}

} // namespace

void PrintChart(QWidget* parent, CGrafik& chart, Prompter& prompter, bool mindMap, PrintMode mode) {
    const auto pages = ChoosePages(parent, chart, prompter, mindMap);
    if (!pages)
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(pages->orientation);
    const auto print = [&](QPrinter& target) {
        if (pages->print(target) == 0)
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
