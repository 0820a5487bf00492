#pragma once
// What a project view takes from the user's settings when its window opens: the chart's display
// options, the date the sort uses, the holidays, and how the user picks a colour.
#include "chart/ChartHost.h"
#include "files/HolidayFile.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace velto {

class SettingsSession;

struct ViewContext {
    ChartOptions chart;     // "Datum", "Verant", "Balken"
    bool sortByDue = false; // "Sortieren"
    std::vector<CHoliday> holidays;
    // Asks for a colour starting from colorRef; nothing when the user cancels. Tests replace it.
    std::function<std::optional<int>(QWidget* parent, int colorRef)> chooseColour;
};

// Reads the settings as the chart and the sort read them: "Datum" 1..3 (anything else shows no
// date), "Verant" shown unless missing or starting with "F", "Balken" only when exactly 1,
// "Sortieren" 0 or missing for the start date and any other value for the due date.
ViewContext ReadViewContext(const SettingsSession& settings, const std::string& holidayFile);

// The colour dialog; a COLORREF (red in the low byte) or nothing when cancelled.
std::optional<int> ChooseColourWithDialog(QWidget* parent, int colorRef);

} // namespace velto
