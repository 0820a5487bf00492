#include "view/ViewContext.h"

#include "app/Settings.h"

#include <QColorDialog>

namespace {
int DatePrefixOf(std::optional<int> value) {
    return value && *value >= 1 && *value <= 3 ? *value : 0;
}

bool ResponsibleShown(const std::optional<QString>& value) {
    return value && !value->startsWith(QLatin1Char('F'));
}

int ToColorRef(const QColor& colour) {
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}

QColor FromColorRef(int colorRef) {
    const auto value = static_cast<unsigned>(colorRef);
    return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
}
} // namespace

ViewContext ReadViewContext(const SettingsSession& settings, const std::string& holidayFile) {
    ViewContext context;
    context.chart.datePrefix = DatePrefixOf(settings.Find(setting::DatePrefix));
    context.chart.showResponsible = ResponsibleShown(settings.Find(setting::ShowResponsible));
    context.chart.barInNodeColour = settings.Find(setting::BarInNodeColor) == 1;
    context.sortByDue = settings.Find(setting::SortByDue).value_or(0) != 0;
    context.holidays = LoadHolidays(holidayFile);
    context.chooseColour = &ChooseColourWithDialog;
    return context;
}

std::optional<int> ChooseColourWithDialog(QWidget* parent, int colorRef) {
    const QColor chosen = QColorDialog::getColor(FromColorRef(colorRef), parent, QStringLiteral("Farbe"));
    if (!chosen.isValid())
        return std::nullopt;
    return ToColorRef(chosen);
}
