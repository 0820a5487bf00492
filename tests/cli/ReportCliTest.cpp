// velto-cli report and calendar on the sample project: the same text and CSV the report dialogs
// produce from the core, and the refusals.
#include "CliCommands.h"
#include "document/ProjectReading.h"
#include "model/Cp1252.h"
#include "outline/CostReport.h"
#include "outline/HoursReport.h"

#include <gtest/gtest.h>

#include <sstream>

namespace velto {
namespace {

const std::string kSample = std::string(VELTO_SOURCE_DIR) + "/examples/Beispielprojekt.VT5";

struct Output {
    int status;
    std::string out;
    std::string err;
};

Output CallReport(std::vector<std::string> words) {
    std::ostringstream out, err;
    words.insert(words.begin(), "report");
    const int status = RunCommandLine(words, out, err);
    return {status, out.str(), err.str()};
}

class ReportCli : public ::testing::Test {
protected:
    void SetUp() override {
        PosixFileSystem files;
        ReadResult result;
        ASSERT_EQ(ReadProjectFile(files, kSample, sample, result), 0);
        options.from = {2026, 11, 1};
        options.to = {2026, 11, 30};
    }
    ProjectContent sample;
    ReportOptions options;
};

TEST_F(ReportCli, PrintsWhatTheDialogsCopyAndSave) {
    const HoursReport hours(sample.firstNode, options, kAllHoursColumns);
    ASSERT_GT(hours.RowCount(), 2u);
    const Output all = CallReport({"hours", kSample, "--from", "2026-11-01", "--to", "2026-11-30"});
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(all.out, cp1252::ToUtf8(ReportClipboardText(hours, {})));

    options.contains = "M\xD6"
                       "BEL";
    options.done = false;
    const HoursReport some(sample.firstNode, options, kHoursTask | kHoursWeekday);
    ASSERT_GT(some.RowCount(), 0u);
    EXPECT_EQ(CallReport({"hours", kSample, "--from", "2026-11-01", "--to", "2026-11-30", "--columns",
                          "task,weekday", "--contains", "MÖBEL", "--no-done", "--csv"})
                  .out,
              ReportCsv(some));

    options = {{2026, 11, 1}, {2026, 11, 30}, "", true, false};
    const CostReport needed(sample.firstNode, options, CostList::Needed);
    ASSERT_GT(needed.RowCount(), 0u);
    EXPECT_EQ(CallReport({"costs", kSample, "--from", "2026-11-01", "--to", "2026-11-30", "--list", "needed",
                          "--no-undone"})
                  .out,
              cp1252::ToUtf8(ReportClipboardText(needed, {})));
}

TEST_F(ReportCli, EmptyReportsSucceedAndBadCallsFail) {
    const Output empty = CallReport(
        {"hours", kSample, "--from", "2026-11-01", "--to", "2026-11-30", "--no-done", "--no-undone"});
    EXPECT_EQ(empty.status, 0);
    EXPECT_EQ(empty.out, "");
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"hours", kSample, "--from", "2026-11-01"},
             {"hours", kSample, "--from", "2026-02-29", "--to", "2026-11-30"},
             {"hours", kSample, "--from", "2026-11-01", "--to", "2026-11-30", "--columns", "day"},
             {"costs", kSample, "--from", "2026-11-01", "--to", "2026-11-30", "--list", "planned"},
             {"costs", kSample, "--from", "2026-11-01", "--to", "2026-11-30", "--columns", "task"},
             {"minutes", kSample}}) {
        const Output bad = CallReport(words);
        EXPECT_EQ(bad.status, 1) << words[2];
        EXPECT_EQ(bad.out, "");
        EXPECT_NE(bad.err, "");
    }
    EXPECT_EQ(CallReport({"hours", kSample + ".fehlt", "--from", "2026-11-01", "--to", "2026-11-30"}).status,
              2);
}

TEST(CalendarCli, PrintsTheCalendarOfAReadableFile) {
    std::ostringstream out, err;
    EXPECT_EQ(RunCommandLine({"calendar", kSample}, out, err), 0);
    EXPECT_EQ(out.str().rfind("BEGIN:VCALENDAR\r\n", 0), 0u);
    EXPECT_NE(out.str().find("END:VCALENDAR\r\n"), std::string::npos);
    std::ostringstream none;
    EXPECT_EQ(RunCommandLine({"calendar", kSample + ".fehlt"}, none, err), 2);
    EXPECT_EQ(none.str(), "");
}

} // namespace
} // namespace velto
