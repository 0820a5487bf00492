#include "outline/CostReport.h"
#include "outline/HoursReport.h"

#include "OutlineTestSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace velto {
namespace {

using charttest::BuildList;

CHoursEntry Booked(int day, int fromHour, int toHour, int toMinute, const char* assignee,
                   const char* remark) {
    return {CTime(2026, 3, day, 0, 0, 0), CTime(2026, 3, day, fromHour, 0, 0),
            CTime(2026, 3, day, toHour, toMinute, 0), assignee, remark};
}

// A project whose task "Fenster" (done) and "Türen" (open) booked hours on the 1st, 10th, 31st
// of March and 1st of April 2026, and costs of both signs.
class ReportTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_first.reset(
            BuildList({{0, kKindProject, "Haus"}, {1, kKindTask, "Fenster"}, {1, kKindTask, "T\xFCren"}}));
        CProjectNode* windows = m_first->m_pNext;
        CProjectNode* doors = windows->m_pNext;
        windows->m_bDone = 1;
        windows->m_pHours = {Booked(1, 8, 9, 1, "Anna", "Rahmen"), Booked(10, 8, 10, 30, "Bert", "")};
        doors->m_pHours = {Booked(31, 7, 8, 0, "Anna", "Zarge; \"alt\""),
                           Booked(32, 7, 8, 0, "Anna", "April")};
        doors->m_pCosts = {{CTime(2026, 3, 2, 0, 0, 0), 50.0f, 8.0f, -400.0f, "", "Kalkulierte Stunden"},
                           {CTime(2026, 3, 3, 0, 0, 0), 19.99f, 3.0f, 59.97f, "Kunde", "Zeile 1\nZeile 2"}};
        doors->m_pCosts2 = {{CTime(2026, 3, 4, 0, 0, 0), 2.5f, 1.5f, -3.75f, "", ""}};
    }
    ReportOptions March() const {
        ReportOptions options;
        options.from = {2026, 3, 1};
        options.to = {2026, 3, 31};
        return options;
    }
    HoursReport Hours(const ReportOptions& options, unsigned columns = kAllHoursColumns) const {
        return HoursReport(m_first.get(), options, columns);
    }

    struct Free {
        void operator()(CProjectNode* first) const { FreeNodeList(first); }
    };
    std::unique_ptr<CProjectNode, Free> m_first;
};

TEST_F(ReportTest, HoursRowsIncludeBothEndsOfThePeriodInListOrder) {
    const HoursReport report = Hours(March());
    ASSERT_EQ(report.RowCount(), 3u);
    EXPECT_EQ(ReportClipboardText(report, {}),
              "01.03.2026\tSO\t08:00\t09:01\tFenster\tAnna\tRahmen\t1,02\n"
              "10.03.2026\tDI\t08:00\t10:30\tFenster\tBert\t\t2,50\n"
              "31.03.2026\tDI\t07:00\t08:00\tT\xFCren\tAnna\tZarge; \"alt\"\t1,00\n");
    EXPECT_EQ(report.SortKey(2), "2026/03/31");
    EXPECT_EQ(report.TotalText(), "4,52 h");
}

TEST_F(ReportTest, HoursColumnsFollowTheTickedBoxes) {
    const HoursReport report = Hours(March(), kHoursTask | kHoursRemark);
    EXPECT_EQ(ReportClipboardText(report, {0, 2}), "01.03.2026\tFenster\tRahmen\t1,02\n"
                                                   "31.03.2026\tT\xFCren\tZarge; \"alt\"\t1,00\n");
    unsigned columns = 0;
    EXPECT_TRUE(ParseHoursColumns("remark,weekday", columns));
    EXPECT_EQ(columns, kHoursRemark | kHoursWeekday);
    EXPECT_FALSE(ParseHoursColumns("weekday,,times", columns));
    EXPECT_FALSE(ParseHoursColumns("wochentag", columns));
}

TEST_F(ReportTest, DoneBoxesAndTextFilterRemoveRows) {
    ReportOptions options = March();
    options.done = false;
    EXPECT_EQ(Hours(options).RowCount(), 1u);
    options.undone = false;
    const HoursReport none = Hours(options);
    EXPECT_EQ(none.RowCount(), 0u);
    EXPECT_EQ(none.TotalText(), "0,00 h");
    EXPECT_EQ(ReportClipboardText(none, {}), "");

    options = March();
    options.contains = "T\xDCR"; // the title, ignoring case
    EXPECT_EQ(Hours(options).RowCount(), 1u);
    options.contains = "bert"; // the assignee, also with its column hidden
    EXPECT_EQ(Hours(options, 0).RowCount(), 1u);
    options.contains = "RAHM"; // the remark
    EXPECT_EQ(Hours(options).RowCount(), 1u);
    options.contains = "2026"; // dates are not searched
    EXPECT_EQ(Hours(options).RowCount(), 0u);
}

TEST_F(ReportTest, RemovedRowsLeaveTheTotal) {
    HoursReport report = Hours(March(), 0);
    report.RemoveRows({0, 2});
    EXPECT_EQ(ReportClipboardText(report, {}), "10.03.2026\t2,50\n");
    EXPECT_EQ(report.TotalText(), "2,50 h");
}

TEST_F(ReportTest, CostsKeepTheirSignsAndChooseTheList) {
    const CostReport calculated(m_first.get(), March(), CostList::Calculated);
    EXPECT_EQ(ReportClipboardText(calculated, {}),
              "02.03.2026\t50,00\t8\tT\xFCren\t\tKalkulierte Stunden\t-400,00\n"
              "03.03.2026\t19,99\t3\tT\xFCren\tKunde\tZeile 1\nZeile 2\t59,97\n");
    EXPECT_EQ(calculated.TotalText(), "-340,03 \x80");
    const CostReport needed(m_first.get(), March(), CostList::Needed);
    EXPECT_EQ(ReportClipboardText(needed, {}), "04.03.2026\t2,50\t1,5\tT\xFCren\t\t\t-3,75\n");
}

TEST_F(ReportTest, CsvQuotesSemicolonsQuotesAndLineBreaks) {
    const CostReport costs(m_first.get(), March(), CostList::Calculated);
    EXPECT_EQ(ReportCsv(costs), "\xEF\xBB\xBFTag;Preis;Anzahl;Aufgabe;Bear./Kommi.;Bemerkung;Summe\r\n"
                                "02.03.2026;50,00;8;T\xC3\xBCren;;Kalkulierte Stunden;-400,00\r\n"
                                "03.03.2026;19,99;3;T\xC3\xBCren;Kunde;\"Zeile 1\nZeile 2\";59,97\r\n");
    EXPECT_EQ(CsvField("Zarge; \"alt\""), "\"Zarge; \"\"alt\"\"\"");
    EXPECT_EQ(CsvField("a\rb"), "\"a\rb\"");
}

} // namespace
} // namespace velto
