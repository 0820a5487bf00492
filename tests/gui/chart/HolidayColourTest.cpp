// The days of "Feiertage.dat" in the rendered chart: a yearly entry colours its day in every year
// shown, a dated one only in its own year, each in the colour the file holds (red in the low byte).
// Today is Wednesday 11 March 2026.
#include "ChartTestSupport.h"
#include "files/HolidayFile.h"
#include "outline/ChartCalendar.h"
#include "support/TempDir.h"

using namespace charttest;

namespace {

constexpr int kOrange = 255 | (200 << 8) | (120 << 16); // COLORREF of QColor(255, 200, 120)
constexpr int kSky = 120 | (160 << 8) | (255 << 16);    // COLORREF of QColor(120, 160, 255)
const QColor kWhite(255, 255, 255);
const QColor kWeekend(230, 230, 230);

class HolidayColour : public ChartFixture {
protected:
    void SetUp() override {
        Load({{0, kKindProject, "Projekt", 0, 0}});
        const std::string file = dir.PathOf("Feiertage.dat");
        ASSERT_TRUE(SaveHolidays(
            file, {{24, 12, 2019, kOrange, "Heilig Abend", true}, {26, 12, 2025, kSky, "Urlaub", false}}));
        chart.SetHolidays(LoadHolidays(file));
    }

    // Scrolls the calendar so that its first column is 20 December of year.
    void ShowDecemberOf(int year) {
        const int firstDay = chartcal::FirstCalendarDay(chartcal::LocalDayNumber(Today()), 0);
        chart.SetCalendarPos(chartcal::DaysFromCivil(year, 12, 20) - firstDay);
        chart.ZeichneAllesNeu();
    }
    // A pixel of the day column dayOffset days after the first one, below the rows.
    QColor InColumn(int dayOffset) const {
        const ChartLayout l = chart.Layout();
        return Image().pixelColor(QPoint(l.DayX(dayOffset) + l.DayWidth() / 2 - 4, l.RowTop(3) + 10));
    }

    testsupport::TempDir dir;
};

TEST_F(HolidayColour, AYearlyEntryColoursItsDayInEveryYearADatedOneOnlyInItsOwn) {
    ShowDecemberOf(2025);
    EXPECT_EQ(InColumn(4), QColor(255, 200, 120)) << "24 December 2025, a Wednesday";
    EXPECT_EQ(InColumn(5), kWhite);
    EXPECT_EQ(InColumn(6), QColor(120, 160, 255)) << "26 December 2025";

    ShowDecemberOf(2026);
    EXPECT_EQ(InColumn(4), QColor(255, 200, 120)) << "24 December 2026, a Thursday";
    EXPECT_EQ(InColumn(6), kWeekend) << "26 December 2026 is a plain Saturday";
}

} // namespace
