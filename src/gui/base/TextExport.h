#pragma once
// Saving a text the user exports (CSV, calendar) through the safe-write layer, with a German
// message naming the file and the reason when that fails; nothing half-written is left behind.
#include <QString>

#include <string>

namespace velto {

class Prompter;

bool SaveExportedText(const std::string& content, const QString& path, Prompter& prompter);

} // namespace velto
