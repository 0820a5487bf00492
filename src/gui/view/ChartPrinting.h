#pragma once
// The view's print commands: what to print is settled first (the pages of the mind map, or the
// selected row the timeline starts at), then it goes to the print dialog, the printer or the preview.
class QWidget;

namespace velto {

class CGrafik;
class Prompter;

enum class PrintMode {
    Dialog,  // the print dialog; its file output writes a PDF
    Direct,  // the default printer, no questions
    Preview, // the preview draws the very pages that print
};

void PrintChart(QWidget* parent, CGrafik& chart, Prompter& prompter, bool mindMap, PrintMode mode);

} // namespace velto
