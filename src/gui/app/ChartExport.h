#pragma once
// "velto --export OUT FILE": the chart or the mind map of a project written to a PDF, PNG or SVG
// file without a window, for scripts and machines without a display.
#include "app/CommandLine.h"
#include "outline/PrintLayout.h"

#include <QString>

#include <cstdio>
#include <optional>

namespace velto {

enum ExportExit {
    kExportDone = 0,
    kExportUsage = 1,
    kExportUnreadable = 2, // FILE cannot be read; OUT is not touched
    kExportUnwritable = 3, // OUT cannot be written; nothing is left behind
};

struct ExportRequest {
    QString out;
    QString file;
    bool mindMap = false;
    PageGrid pages;              // of a mind map PDF
    std::optional<int> firstDay; // the timeline's days, when given
    std::optional<int> lastDay;
};

// The export of a command line with --export, or nothing with the German reason in error.
std::optional<ExportRequest> ExportRequestOf(const CommandLine& line, QString& error);

// Runs the export inside a running QApplication; messages go to errors.
int RunExport(const ExportRequest& request, std::FILE* errors);

} // namespace velto
