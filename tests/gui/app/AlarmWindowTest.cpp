// The alarm in the main window: a minimised Velto comes back, and "Gehe zu" brings the project's
// window to the front before it shows the node.
#include "ShellTestSupport.h"

#include "dialogs/CAlarmDlg.h"
#include "model/NodeList.h"
#include "view/CVeltoView.h"

#include <QMdiArea>
#include <QPushButton>
#include <QTimer>

namespace velto {

using AlarmWindow = ShellTest;

TEST_F(AlarmWindow, AMinimisedVeltoComesBackAndGoToActivatesTheProjectOfTheAlarm) {
    CMainFrame& frame = MakeFrame();
    CChildFrame* project = frame.Documents().OpenDocumentFile(WriteProject("Termine.VT5"));
    ASSERT_TRUE(project && frame.Documents().NewDocument());
    ASSERT_NE(frame.ActiveChild(), project);
    CVeltoView& view = project->GetView();
    CProjectNode* root = project->GetDocument().m_pFirstNode;
    root->m_timeReminder = CTime::GetCurrentTime() - 1;
    frame.showMinimized();

    QMetaObject::invokeMethod(view.findChild<QTimer*>("minuteTimer"), "timeout");
    auto* alarm = view.findChild<CAlarmDlg*>();
    ASSERT_TRUE(alarm);
    EXPECT_FALSE(frame.isMinimized());
    EXPECT_EQ(alarm->windowTitle(), "Erinnerung im Projekt: Termine.VT5");
    for (QPushButton* button : alarm->findChildren<QPushButton*>())
        if (button->text() == "Gehe zu")
            button->click();
    EXPECT_EQ(frame.ActiveChild(), project);
    EXPECT_TRUE(project->GetDocument().IsModified()) << "the view went to the node";
    EXPECT_TRUE(desktop.prompter.asked().empty()) << "no sound file beside the tests, and nothing said";
}

} // namespace velto
