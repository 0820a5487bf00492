#include "dialogs/SettingsValues.h"

#include "base/Settings.h"

#include <algorithm>

namespace velto {

namespace {
constexpr int kStartBit = 1;
constexpr int kDueBit = 2;

constexpr std::array<TextSetting, 3> kStartFiles = {setting::StartFile1, setting::StartFile2,
                                                    setting::StartFile3};
} // namespace

int DatePrefixFrom(bool showStartDate, bool showDueDate) {
    return (showStartDate ? kStartBit : 0) | (showDueDate ? kDueBit : 0);
}

SettingsValues ReadSettingsValues(const SettingsSession& settings) {
    SettingsValues values;
    for (std::size_t i = 0; i < kStartFiles.size(); ++i)
        values.startFiles[i] = settings.Get(kStartFiles[i]);
    values.noteFontName = settings.Get(setting::NoteFontName);
    values.noteFontSize =
        std::clamp(settings.Get(setting::NoteFontSize), setting::kMinNoteFontSize, setting::kMaxNoteFontSize);
    const int datePrefix = setting::DatePrefixOf(settings.Find(setting::DatePrefix));
    values.showStartDate = (datePrefix & kStartBit) != 0;
    values.showDueDate = (datePrefix & kDueBit) != 0;
    values.showResponsible = setting::IsResponsibleShown(settings.Find(setting::ShowResponsible));
    values.sortByDue = settings.Get(setting::SortByDue) != 0;
    values.barInNodeColour = settings.Find(setting::BarInNodeColor) == 1;
    return values;
}

void WriteSettingsValues(SettingsSession& settings, const SettingsValues& values) {
    for (std::size_t i = 0; i < kStartFiles.size(); ++i)
        settings.Set(kStartFiles[i], values.startFiles[i]);
    settings.Set(setting::NoteFontName, values.noteFontName);
    settings.Set(setting::NoteFontSize, values.noteFontSize);
    settings.Set(setting::DatePrefix, DatePrefixFrom(values.showStartDate, values.showDueDate));
    settings.Set(setting::ShowResponsible, setting::ResponsibleText(values.showResponsible));
    settings.Set(setting::SortByDue, values.sortByDue ? 1 : 0);
    settings.Set(setting::BarInNodeColor, values.barInNodeColour ? 1 : 0);
}

} // namespace velto
