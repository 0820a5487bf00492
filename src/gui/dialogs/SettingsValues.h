#pragma once
// What the settings dialog edits, apart from its widgets: read from the settings with every default
// in place, and written back with each value's own type.
#include "base/Settings.h"

#include <QString>

#include <array>

namespace velto {

struct SettingsValues {
    std::array<QString, 3> startFiles; // "Datei1" .. "Datei3"; empty opens nothing
    QString noteFontName = QString::fromUtf8(setting::NoteFontName.fallback);
    int noteFontSize = setting::NoteFontSize.fallback; // 6 .. 100
    bool showStartDate = false;
    bool showDueDate = false;
    bool showResponsible = false;
    bool sortByDue = false;
    bool barInNodeColour = false;
};

// A store that could not be opened gives the defaults. A "Sortieren" other than 0 counts as the due
// date and only a "Balken" of exactly 1 is on, as the chart and the sort read them.
SettingsValues ReadSettingsValues(const SettingsSession& settings);
// Sets every value in the session; the caller commits it.
void WriteSettingsValues(SettingsSession& settings, const SettingsValues& values);

// "Datum": 0 none, 1 start, 2 due, 3 both.
int DatePrefixFrom(bool showStartDate, bool showDueDate);

} // namespace velto
