// The note pane as the user drives it: switching and saving notes, and its format operations.
#include "base/CommandIds.h"
#include "gui/view/NoteTestSupport.h"
#include "text/RtfWriter.h"

#include <QMenu>
#include <QToolButton>

namespace velto {

using namespace notetest;

namespace {

using NotePane = NotePaneFixture;

TEST_F(NotePane, ShowsEachNodesNoteAndKeepsEditsWhenSwitching) {
    pane->ShowNode(a);
    EXPECT_EQ(Editor().toPlainText(), "Alpha Erste Zeile\nZweite");
    Focus();
    Caret(5);
    QTest::keyClicks(&Editor(), "!");
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Alpha! Erste Zeile\nZweite") << "saved on key-up";
    EXPECT_EQ(a->m_timeChanged, CTime(kNow));
    EXPECT_TRUE(doc.IsModified());
    EXPECT_TRUE(SavedFormatAt(a, 0, 7).bold) << "the formats of the edited note are kept too";
    EXPECT_FALSE(SavedFormatAt(a, 0, 0).bold);
    Caret(0);
    Editor().insertPlainText("Neu ");
    pane->ShowNode(b);
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Neu Alpha! Erste Zeile\nZweite") << "saved before switching";
    EXPECT_EQ(Editor().toPlainText(), "Beta");
    // A note changed behind the pane's back shows anew; an unchanged one is not read again.
    b->m_strNote = "{\\rtf1 Anders\\par}";
    pane->ShowNode(b);
    EXPECT_EQ(Editor().toPlainText(), "Anders");
    Caret(3);
    pane->ShowNode(b);
    EXPECT_EQ(Editor().textCursor().position(), 3);
}

TEST_F(NotePane, LookingAtANoteChangesNothing) {
    pane->ShowNode(a);
    Focus();
    Select(2, 8);
    for (Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Down, Qt::Key_Shift})
        QTest::keyClick(&Editor(), key);
    Editor().copy();
    Editor().clearFocus();
    pane->ShowNode(b);
    pane->SaveNote();
    EXPECT_EQ(a->m_strNote, kNoteA);
    EXPECT_EQ(b->m_strNote, kNoteB);
    EXPECT_EQ(a->m_timeChanged, CTime(kEarlier));
    EXPECT_FALSE(doc.IsModified()) << "keys that change nothing leave the project as it was";
}

TEST_F(NotePane, EffectsFlipOnAUniformSelectionAreSetOnAMixedOneAndWaitForTypingWithoutOne) {
    pane->ShowNode(a);
    for (int id : {cmd::NoteBold, cmd::NoteItalic, cmd::NoteUnderline}) {
        SCOPED_TRACE(id);
        Select(0, 5); // "Alpha" has none of the effects
        Run(id);
        EXPECT_TRUE(Query(id).checked) << "a uniform selection flips";
        Select(0, 17); // "Alpha" now has it, "Zeile" has not
        EXPECT_FALSE(Query(id).checked) << "mixed";
        Run(id);
        EXPECT_TRUE(Query(id).checked) << "a mixed selection gets the effect";
    }
    const rtf::CharFormat zeile = SavedFormatAt(a, 0, 12);
    EXPECT_TRUE(zeile.bold && zeile.italic && zeile.underline);
    EXPECT_EQ(zeile.halfPoints, 20) << "a toggle touches its own effect only";
    EXPECT_EQ(Saved(a).paragraphs[1], rtf::ReadRtf(kNoteA).paragraphs[1]) << "outside the selection";
    EXPECT_EQ(a->m_timeChanged, CTime(kNow));
    pane->ShowNode(b);
    Focus();
    QTest::keyClick(&Editor(), Qt::Key_End);
    Run(cmd::NoteBold);
    QTest::keyClicks(&Editor(), "X");
    EXPECT_TRUE(SavedFormatAt(b, 0, 4).bold) << "without a selection, for what is typed next";
    EXPECT_FALSE(SavedFormatAt(b, 0, 3).bold);
}

TEST_F(NotePane, ButtonsKeysAndTheContextMenuShowAndToggleTheSelection) {
    pane->ShowNode(a);
    auto* bold = pane->findChild<QToolButton*>("button141");
    Select(6, 11);
    EXPECT_TRUE(bold->isChecked());
    std::unique_ptr<QMenu> menu(pane->CreateContextMenu(nullptr));
    EXPECT_TRUE(menu->actions()[0]->isChecked()) << menu->actions()[0]->text().toStdString();
    EXPECT_FALSE(menu->actions()[1]->isChecked());
    menu->actions()[0]->trigger();
    EXPECT_FALSE(SavedFormatAt(a, 0, 6).bold);
    Select(0, 5);
    EXPECT_FALSE(bold->isChecked());
    Click(CNotePane::kBoldButton);
    EXPECT_TRUE(bold->isChecked());
    EXPECT_TRUE(SavedFormatAt(a, 0, 0).bold);
    EXPECT_TRUE(pane->EditorHasFocus()) << "the focus goes back to the text";
    QTest::keyClick(&Editor(), Qt::Key_I, Qt::ControlModifier);
    EXPECT_TRUE(SavedFormatAt(a, 0, 0).italic);
}

TEST_F(NotePane, SizeStepsBelowOnePointAreKeptWhileTheScreenClamps) {
    pane->ShowNode(b); // 1 pt
    Editor().selectAll();
    Click(CNotePane::kSmallerButton);
    EXPECT_EQ(SavedFormatAt(b, 0, 0).halfPoints, -2) << "1 pt gives -1 pt";
    EXPECT_EQ(notetext::FormatOfSelection(Editor().textCursor()).fontPointSize(), 1.0);
    for (int i = 0; i < 3; ++i)
        Click(CNotePane::kLargerButton);
    EXPECT_EQ(SavedFormatAt(b, 0, 0).halfPoints, 10) << "and back up from below zero";
}

TEST_F(NotePane, ColourFontAndAlignmentApplyToTheSelectionAndCancelChangesNothing) {
    pane->ShowNode(a);
    Select(0, 5);
    Click(CNotePane::kColourButton);
    EXPECT_EQ(colourAskedWith, std::vector<int>{0}) << "automatic colour starts the dialog at black";
    Select(6, 11);
    EXPECT_TRUE(Run(cmd::NoteFont));
    ASSERT_EQ(fontAskedWith.size(), 1u);
    EXPECT_EQ(fontAskedWith[0].pointSizeF(), 10.0);
    EXPECT_TRUE(fontAskedWith[0].bold());
    EXPECT_EQ(a->m_strNote, kNoteA);
    EXPECT_FALSE(doc.IsModified());
    colourAnswer = 0x0080FF; // COLORREF: red 255, green 128
    Select(0, 5);
    Click(CNotePane::kColourButton);
    EXPECT_EQ(SavedFormatAt(a, 0, 0).colour, rtf::MakeColour(255, 128, 0));
    EXPECT_EQ(SavedFormatAt(a, 0, 6).colour, std::nullopt);
    QFont chosen("Liberation Serif", 15);
    chosen.setItalic(true);
    fontAnswer = chosen;
    Select(6, 11);
    Run(cmd::NoteFont);
    const rtf::CharFormat erste = SavedFormatAt(a, 0, 6);
    EXPECT_EQ(erste.face, "Liberation Serif");
    EXPECT_EQ(erste.halfPoints, 30);
    EXPECT_TRUE(erste.italic && !erste.bold);
    EXPECT_EQ(SavedFormatAt(a, 0, 0).face, "Arial");
    Caret(2);
    Click(CNotePane::kAlignRightButton);
    EXPECT_EQ(Saved(a).paragraphs[0].alignment, rtf::Alignment::Right);
    EXPECT_EQ(Saved(a).paragraphs[1].alignment, rtf::Alignment::Centre);
    Select(3, 20);
    Click(CNotePane::kAlignLeftButton);
    EXPECT_EQ(Saved(a).paragraphs[1].alignment, rtf::Alignment::Left);
}

TEST_F(NotePane, ToolbarRowReadOnlyAndNoNode) {
    for (int id = CNotePane::kBoldButton; id <= CNotePane::kHyperlinkButton; ++id) {
        auto* button = pane->findChild<QToolButton*>(QStringLiteral("button%1").arg(id));
        ASSERT_TRUE(button) << id;
        EXPECT_FALSE(button->toolTip().isEmpty() || button->icon().isNull()) << id;
        EXPECT_FALSE(button->isEnabled()) << "no node shown yet";
    }
    EXPECT_TRUE(Editor().isReadOnly());
    pane->ShowNode(a);
    pane->SetToolbarVisible(false);
    EXPECT_FALSE(pane->findChild<QWidget*>("noteButtons")->isVisible());
    pane->SetReadOnly(true);
    Focus();
    QTest::keyClicks(&Editor(), "x");
    Select(0, 5);
    Run(cmd::NoteBold);
    EXPECT_EQ(a->m_strNote, kNoteA);
    EXPECT_FALSE(Query(cmd::NoteBold).enabled);
    EXPECT_TRUE(Query(cmd::EditCopy).enabled) << "a read-only note can still be copied";
}

TEST_F(NotePane, EditCommandsBelongToThePaneOnlyWhileItHasTheFocus) {
    pane->ShowNode(a);
    Editor().clearFocus();
    CommandState state;
    for (int id : {cmd::EditUndo, cmd::EditCopy, cmd::EditCut, cmd::EditPaste})
        EXPECT_FALSE(pane->OnUpdateCommand(id, state) || pane->OnCommand(id)) << id;
    EXPECT_FALSE(pane->OnCommand(CNotePane::kBoldButton)) << "the buttons are no commands of the router";
    Focus();
    EXPECT_FALSE(Query(cmd::EditCopy).enabled);
    Select(0, 6);
    EXPECT_TRUE(Run(cmd::EditCut));
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Erste Zeile\nZweite");
    Run(cmd::EditPaste);
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Alpha Erste Zeile\nZweite") << "a paste saves at once";
    Run(cmd::EditUndo);
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Erste Zeile\nZweite") << "undo inside the note";
    pane->ShowNode(b);
    Focus();
    EXPECT_FALSE(Query(cmd::EditUndo).enabled) << "another note starts a new history";
}

} // namespace

} // namespace velto
