#include "view/ViewContext.h"

#include "base/ColorRef.h"
#include "base/Settings.h"

#include <QColorDialog>

namespace velto {

ViewContext ReadViewContext(const SettingsSession& settings, const std::string& holidayFile) {
    ViewContext context;
    context.chart.datePrefix = setting::DatePrefixOf(settings.Find(setting::DatePrefix));
    context.chart.showResponsible = setting::IsResponsibleShown(settings.Find(setting::ShowResponsible));
    context.chart.barInNodeColour = settings.Find(setting::BarInNodeColor) == 1;
    context.sortByDue = settings.Find(setting::SortByDue).value_or(0) != 0;
    context.holidays = LoadHolidays(holidayFile);
    context.chooseColour = &ChooseColourWithDialog;
    return context;
}

std::optional<int> ChooseColourWithDialog(QWidget* parent, int colorRef) {
    const QColor chosen =
        QColorDialog::getColor(ColorFromColorRef(colorRef), parent, QStringLiteral("Farbe"));
    if (!chosen.isValid())
        return std::nullopt;
    return ColorRefOf(chosen);
}

} // namespace velto
