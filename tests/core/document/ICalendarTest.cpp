// The iCalendar export read back with libical, as a calendar program reads it.
#include "document/ICalendar.h"
#include "core/outline/OutlineTestSupport.h"
#include "model/Cp1252.h"

#include <gtest/gtest.h>

#include <libical/ical.h>

#include <memory>
#include <set>

namespace velto {
namespace {

using charttest::BuildList;

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Calendar = std::unique_ptr<icalcomponent, FreeComponent>;

std::vector<icalcomponent*> Components(icalcomponent* calendar, icalcomponent_kind kind) {
    std::vector<icalcomponent*> found;
    for (icalcomponent* c = icalcomponent_get_first_component(calendar, kind); c;
         c = icalcomponent_get_next_component(calendar, kind))
        found.push_back(c);
    return found;
}

// A time as the calendar program takes it: in the zone libical attached from the VTIMEZONE, or UTC.
time_t Utc(icaltimetype time) {
    return icaltime_as_timet_with_zone(time, time.zone ? time.zone : icaltimezone_get_utc_timezone());
}

// A project with a reminder, a done task with a long title and a note full of special characters,
// an open task with a reminder, a milestone and a note without a reminder.
class ICalendarTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_first.reset(BuildList({{0, kKindProject, "Haus"},
                                 {1, kKindTask, "T\xFCr"},
                                 {1, kKindTask, "Offen"},
                                 {1, kKindMilestone, "Richtfest", 3, 3},
                                 {1, kKindNote, "Notiz"}}));
        m_first->m_timeReminder = CTime(2026, 7, 1, 9, 30, 0);
        CProjectNode* done = m_first->m_pNext;
        // Two-octet characters from the first fold on, so that a fold meets one in its middle.
        done->m_strTitle = std::string(40, '\xFC') + " \xC4rger; mit, Komma \\ und " + std::string(60, 'T');
        done->m_strNote = "{\\rtf1\\ansi Zeile eins; a,b\\par Zeile zwei\\par}";
        done->m_bDone = 1;
        done->m_timeDone = CTime(2026, 3, 12, 17, 45, 0);
        done->m_timeStart = CTime(2026, 3, 9, 1, 0, 0);  // before the change to summer time
        done->m_timeDue = CTime(2026, 4, 2, 23, 59, 59); // after it
        done->m_pNext->m_timeReminder = CTime(2026, 12, 24, 8, 0, 0);
    }
    std::string Export() const { return ProjectCalendar(m_first.get(), "Europe/Berlin", 2026); }
    Calendar Parsed() const { return Calendar(icalparser_parse_string(Export().c_str())); }

    struct Free {
        void operator()(CProjectNode* first) const { FreeNodeList(first); }
    };
    std::unique_ptr<CProjectNode, Free> m_first;
};

TEST_F(ICalendarTest, TasksMilestonesAndRemindersBecomeComponents) {
    Calendar calendar = Parsed();
    ASSERT_TRUE(calendar);
    const std::vector<icalcomponent*> todos = Components(calendar.get(), ICAL_VTODO_COMPONENT);
    const std::vector<icalcomponent*> events = Components(calendar.get(), ICAL_VEVENT_COMPONENT);
    ASSERT_EQ(todos.size(), 3u) << "the project with its reminder and both tasks";
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(Components(todos[0], ICAL_VTODO_COMPONENT).size(), 0u);

    const CProjectNode* done = m_first->m_pNext;
    icalcomponent* task = todos[1];
    EXPECT_EQ(std::string(icalcomponent_get_summary(task)), cp1252::ToUtf8(done->m_strTitle.str()));
    EXPECT_EQ(std::string(icalcomponent_get_description(task)), "Zeile eins; a,b\nZeile zwei");
    EXPECT_EQ(Utc(icalcomponent_get_dtstart(task)), time_t(done->m_timeStart.GetTime()));
    EXPECT_EQ(Utc(icalcomponent_get_due(task)), time_t(done->m_timeDue.GetTime()));
    EXPECT_EQ(icalcomponent_get_status(task), ICAL_STATUS_COMPLETED);
    icalproperty* completed = icalcomponent_get_first_property(task, ICAL_COMPLETED_PROPERTY);
    ASSERT_TRUE(completed);
    EXPECT_EQ(Utc(icalproperty_get_completed(completed)), time_t(done->m_timeDone.GetTime()));
    EXPECT_EQ(icalcomponent_get_status(todos[2]), ICAL_STATUS_NEEDSACTION);

    const icaltimetype day = icalcomponent_get_dtstart(events[0]);
    EXPECT_TRUE(day.is_date);
    EXPECT_EQ(day.year * 10000 + day.month * 100 + day.day, 20260314);

    for (auto [item, node] : {std::pair{todos[0], m_first.get()}, {todos[2], done->m_pNext}}) {
        icalcomponent* alarm = icalcomponent_get_first_component(item, ICAL_VALARM_COMPONENT);
        ASSERT_TRUE(alarm);
        const icaltriggertype trigger =
            icalproperty_get_trigger(icalcomponent_get_first_property(alarm, ICAL_TRIGGER_PROPERTY));
        EXPECT_EQ(Utc(trigger.time), time_t(node->m_timeReminder.GetTime()));
    }
}

TEST_F(ICalendarTest, LinesAreFoldedAndUidsStayTheSame) {
    const std::string text = Export();
    size_t start = 0;
    for (size_t end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n", start = end + 2))
        EXPECT_LE(end - start, 75u) << text.substr(start, end - start);
    ASSERT_NE(text.find("\r\n "), std::string::npos) << "the long title is folded";
    for (size_t fold = text.find("\r\n "); fold != std::string::npos; fold = text.find("\r\n ", fold + 1))
        EXPECT_NE(static_cast<unsigned char>(text[fold + 3]) & 0xC0, 0x80) << "a fold splits a character";

    std::set<std::string> uids;
    Calendar once = Parsed();
    Calendar again = Parsed();
    const auto todos = Components(once.get(), ICAL_VTODO_COMPONENT);
    const auto todosAgain = Components(again.get(), ICAL_VTODO_COMPONENT);
    for (size_t i = 0; i < todos.size(); ++i) {
        EXPECT_STREQ(icalcomponent_get_uid(todos[i]), icalcomponent_get_uid(todosAgain[i]));
        uids.insert(icalcomponent_get_uid(todos[i]));
    }
    EXPECT_EQ(uids.size(), todos.size());
    EXPECT_EQ(EscapeCalendarText("a;b,c\\d\r\ne"), "a\\;b\\,c\\\\d\\ne");
}

} // namespace
} // namespace velto
