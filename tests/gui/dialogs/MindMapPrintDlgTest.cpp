#include "dialogs/CMindMapPrintDlg.h"

#include "support/ScriptedPrompter.h"

#include <QLineEdit>

#include <gtest/gtest.h>

namespace velto {

TEST(MindMapPrintDlg, TakesOneToTwentyPagesEachWayAndRefusesTheRestWithoutClosing) {
    ScriptedPrompter prompter;
    CMindMapPrintDlg dialog(prompter);
    auto* across = dialog.findChild<QLineEdit*>("edit1058");
    auto* down = dialog.findChild<QLineEdit*>("edit1059");
    ASSERT_TRUE(across && down);
    dialog.show();
    for (const auto& [a, d] : {std::pair{"0", "1"}, {"1", "21"}, {"zwei", "2"}, {"", "3"}}) {
        across->setText(a);
        down->setText(d);
        dialog.accept();
        EXPECT_EQ(dialog.result(), QDialog::Rejected) << a << " x " << d;
        EXPECT_TRUE(dialog.isVisible());
    }
    EXPECT_EQ(prompter.texts(), std::vector<std::string>(
                                    4, "Bitte geben Sie für die Seiten eine ganze Zahl von 1 bis 20 ein."));
    across->setText("20");
    down->setText(" 3 ");
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.Grid().across, 20);
    EXPECT_EQ(dialog.Grid().down, 3);
}

} // namespace velto
