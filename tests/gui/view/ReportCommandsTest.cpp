// The view opens the reports on its project and exports its calendar.
#include "base/CommandIds.h"
#include "base/ShellState.h"
#include "dialogs/ReportDialog.h"
#include "document/CVeltoDoc.h"
#include "support/ScriptedPrompter.h"
#include "support/TempDir.h"
#include "view/CVeltoView.h"
#include "view/CalendarExport.h"
#include "view/ViewContext.h"

#include <QApplication>
#include <QTimer>

#include <gtest/gtest.h>

namespace velto {
namespace {

TEST(ReportCommands, HoursAndCostReportOpenFromTheView) {
    ScriptedPrompter prompter;
    CVeltoDoc doc(prompter);
    doc.OnNewDocument();
    ShellState shell;
    CVeltoView view(doc, shell, ViewContext{});
    for (const auto& [id, title] :
         {std::pair{cmd::HoursReport, "Stunden - Report"}, {cmd::CostReport, "Kosten - Report"}}) {
        CommandState state;
        ASSERT_TRUE(view.OnUpdateCommand(id, state));
        EXPECT_TRUE(state.enabled);
        QString shown;
        QTimer::singleShot(0, [&shown] {
            if (auto* dialog = qobject_cast<ReportDialog*>(QApplication::activeModalWidget())) {
                shown = dialog->windowTitle();
                dialog->accept();
            }
        });
        EXPECT_TRUE(view.OnCommand(id));
        EXPECT_EQ(shown, title);
    }
}

TEST(ReportCommands, TheCalendarIsSavedThroughTheSafeWrite) {
    ScriptedPrompter prompter;
    CVeltoDoc doc(prompter);
    doc.OnNewDocument();
    testsupport::TempDir folder;
    ASSERT_TRUE(SaveCalendar(doc, QString::fromStdString(folder.PathOf("plan.ics"))));
    EXPECT_EQ(testsupport::ReadFile(folder.PathOf("plan.ics")).rfind("BEGIN:VCALENDAR\r\n", 0), 0u);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"plan.ics"}) << "no temporary file left";
}

} // namespace
} // namespace velto
