// "Stempeluhr.dat": the running clocks, and finding their nodes again.
#include "files/ClockJournal.h"

#include "core/model/NodeListTestTree.h"
#include "io/Process.h"
#include "support/EndedProcess.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

namespace velto {

namespace {

RunningClock Clock(const std::string& project, const std::string& title, int64_t processId = 4711) {
    return {project, {CTime(1700000000), title, 2}, CTime(1710000000), "rechner", processId};
}

std::vector<std::string> TitlesOf(const ClockJournalContent& content) {
    std::vector<std::string> titles;
    for (const RunningClock& clock : content.clocks)
        titles.push_back(clock.project + ":" + clock.node.title);
    return titles;
}

TEST(ClockJournal, ClocksAreRecordedAndForgottenOneByOneWithTheirTextsIntact) {
    testsupport::TempDir dir;
    const std::string path = dir.PathOf("Stempeluhr.dat");
    const RunningClock odd = Clock("/p/M\xFCller\tA.VT5", "Zeile\\n\r\nzwei");
    for (const RunningClock& clock : {Clock("/p/A.VT5", "Bau"), odd, Clock("/p/A.VT5", "Bau", 4712)})
        ASSERT_TRUE(RecordClock(path, clock));
    const ClockJournalContent read = ReadClockJournal(path);
    ASSERT_EQ(read.clocks.size(), 3u);
    EXPECT_EQ(read.clocks[1].project, odd.project);
    EXPECT_EQ(read.clocks[1].node.title, odd.node.title);
    EXPECT_EQ(read.clocks[1].clockIn, odd.clockIn);
    EXPECT_EQ(read.clocks[1].node.position, 2);
    ASSERT_TRUE(ForgetClock(path, Clock("/p/A.VT5", "umbenannt")));
    EXPECT_EQ(TitlesOf(ReadClockJournal(path)),
              (std::vector<std::string>{odd.project + ":" + odd.node.title, "/p/A.VT5:Bau"}))
        << "the clock of the other process and of the other project stay";
    EXPECT_EQ(ReadClockJournal(dir.PathOf("fehlt.dat")).error, 0);
}

TEST(ClockJournal, DamagedLinesCostNoOtherClockAndSurviveTheNextWrite) {
    testsupport::TempDir dir;
    const std::string path = dir.PathOf("Stempeluhr.dat");
    const std::string good = FormatClockJournal({{Clock("/p/A.VT5", "Bau")}, {}, 0});
    const std::string damaged[] = {"1710000000\trechner\tx\t/p\t1\t0\tT", "1\t2\t3",
                                   "1\th\t1\t/p\t1\t0\tT\\q", "1710000000\trechner\t1\t/p\t1\t0\tT\textra"};
    std::string bytes = good;
    for (const std::string& line : damaged)
        bytes += line + '\n';
    const std::string last = FormatClockJournal({{Clock("/p/B.VT5", "Bau")}, {}, 0});
    testsupport::WriteFile(path, bytes + last.substr(0, last.size() - 1)); // its line break cut off
    ClockJournalContent read = ReadClockJournal(path);
    EXPECT_EQ(read.clocks.size(), 2u);
    EXPECT_EQ(read.damagedLines.size(), std::size(damaged));
    ASSERT_TRUE(ForgetClock(path, Clock("/p/A.VT5", "Bau")));
    read = ReadClockJournal(path);
    EXPECT_EQ(read.clocks.size(), 1u);
    EXPECT_EQ(read.damagedLines.size(), std::size(damaged));
}

TEST(ClockJournal, OnlyClocksOfTheProjectWhoseProcessEndedOnThisHostAreOffered) {
    const std::string here = ThisHostName();
    const int64_t ended = testsupport::EndedProcessId();
    ClockJournalContent content;
    for (const auto& [project, host, pid] : {std::tuple{"/p/A.VT5", here, ended},
                                             {"/p/A.VT5", here, ThisProcessId()},
                                             {"/p/A.VT5", std::string("anderer"), ended},
                                             {"/p/B.VT5", here, ended}})
        content.clocks.push_back(RunningClock{project, NodeIdentity{}, CTime(1), host, pid});
    const std::vector<RunningClock> offered = EndedClocksOf(content, "/p/A.VT5");
    ASSERT_EQ(offered.size(), 1u);
    EXPECT_EQ(offered[0].processId, ended);
}

TEST(ClockJournal, TheNodeIsFoundByCreationAndTitleAfterReorderingAndByPositionAmongTwins) {
    TestTree tree{{0, "R"}, {1, "Bau"}, {1, "Dach"}, {1, "Bau"}, {1, "Keller"}};
    tree["Keller"]->m_timeCreated = CTime(1700000500);
    const RunningClock keller = ClockOfNode("/p/A.VT5", tree.first, *tree["Keller"]);
    EXPECT_EQ(keller.node.position, 4);
    const std::tuple<uint32_t, const char*, int, CProjectNode*> cases[] = {
        {1700000500, "Keller", 0, tree["Keller"]},   // moved to the top since
        {1700000000, "Bau", 0, tree.first->m_pNext}, // two match: the nearer one
        {1700000000, "Bau", 4, tree["Dach"]->m_pNext},
        {1700000000, "Keller", 4, nullptr}, // a title without its creation time
        {1700000500, "Kellerraum", 4, nullptr},
    };
    for (const auto& [created, title, position, expected] : cases)
        EXPECT_EQ(FindClockedNode(tree.first, {CTime(created), title, position}), expected)
            << title << position;
}

} // namespace

} // namespace velto
