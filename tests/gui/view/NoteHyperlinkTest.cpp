// Hyperlinks in notes: inserting, typing "]" on any layout, double clicks, and opening the target.
#include "base/CommandIds.h"
#include "base/QtDesktop.h"
#include "dialogs/CHyperlinkDlg.h"
#include "gui/dialogs/DialogTestSupport.h"
#include "gui/view/NoteTestSupport.h"
#include "support/TempDir.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

namespace velto {

using namespace notetest;

namespace {

const rtf::Colour kBlue = rtf::MakeColour(0, 0, 255);

bool IsLink(const rtf::CharFormat& format) {
    return format.underline && format.colour == kBlue;
}

class NoteHyperlinks : public NotePaneFixture {
protected:
    // Shows a node whose note is the text in one paragraph.
    void ShowText(const char* text) {
        a->m_strNote = std::string("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 ") + text + "\\par}";
        pane->ShowNode(a);
    }
    // A double click on the character at position.
    void DoubleClickAt(int position) {
        QTextCursor cursor(Editor().document());
        cursor.setPosition(position);
        const QPoint point = Editor().cursorRect(cursor).center() + QPoint(2, 0);
        QTest::mouseDClick(Editor().viewport(), Qt::LeftButton, {}, point);
    }
    // A key that types "]" as the German layout does it: the key of the 9 with AltGr.
    void TypeClosingBracket() {
        QTest::sendKeyEvent(QTest::Click, &Editor(), Qt::Key_9, QStringLiteral("]"), Qt::GroupSwitchModifier);
    }
    std::vector<std::string> Told() const { return prompter.texts(); }
};

TEST_F(NoteHyperlinks, InsertedOrTypedLinksFormatOnlyTheTarget) {
    ShowText("Alpha Erste Zeile");
    Select(6, 11);
    Click(CNotePane::kHyperlinkButton);
    EXPECT_EQ(linkAskedWith, std::vector<QString>{"Erste"}) << "the selected text is offered as the target";
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Alpha Erste Zeile") << "cancelled: nothing changes";
    EXPECT_FALSE(doc.IsModified());
    linkAnswer = "www.example.com";
    Click(CNotePane::kHyperlinkButton);
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Alpha [www.example.com] Zeile");
    EXPECT_FALSE(IsLink(SavedFormatAt(a, 0, 6)));
    EXPECT_TRUE(IsLink(SavedFormatAt(a, 0, 7)));
    EXPECT_TRUE(IsLink(SavedFormatAt(a, 0, 21)));
    EXPECT_FALSE(IsLink(SavedFormatAt(a, 0, 22)));
    EXPECT_TRUE(pane->EditorHasFocus());
    QTest::keyClicks(&Editor(), "!");
    EXPECT_FALSE(IsLink(SavedFormatAt(a, 0, 23))) << "typing on after the link is plain text";
    Run(cmd::EditUndo);
    Run(cmd::EditUndo);
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Alpha Erste Zeile") << "the insertion is one undo step";
    ShowText("Siehe ");
    Focus();
    QTest::keyClick(&Editor(), Qt::Key_End);
    QTest::keyClicks(&Editor(), "[C:\\Daten\\Plan.doc");
    EXPECT_FALSE(IsLink(SavedFormatAt(a, 0, 8)));
    TypeClosingBracket();
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Siehe [C:\\Daten\\Plan.doc]") << "saved on key-up";
    EXPECT_TRUE(IsLink(SavedFormatAt(a, 0, 7)));
    EXPECT_TRUE(IsLink(SavedFormatAt(a, 0, 23)));
    EXPECT_FALSE(IsLink(SavedFormatAt(a, 0, 24))) << "the bracket itself stays plain";
}

TEST_F(NoteHyperlinks, InsertedThroughTheDialogWhoseOkNeedsATarget) {
    int chosen = 0;
    pane->SetDialogs({}); // the real "Hyperlink einfügen", its file dialog cancelled once
    ShowText("Text www.example.com");
    Select(5, 20);
    OnNextModal<CHyperlinkDlg>([](CHyperlinkDlg& dialog) {
        auto* target = Find<QLineEdit>(dialog, "target1006");
        EXPECT_EQ(target->selectedText(), "www.example.com") << "typing replaces the offer";
        target->setText("  https://www.example.com/a b ");
        ClickOk(dialog);
    });
    Run(cmd::InsertHyperlink);
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Text [https://www.example.com/a b]");
    CHyperlinkDlg dialog(nullptr,
                         [&](QWidget*) { return ++chosen == 1 ? QString() : QString("/tmp/Plan.odt"); });
    auto* ok = ButtonOfRole(dialog, QDialogButtonBox::AcceptRole);
    EXPECT_FALSE(ok->isEnabled());
    Find<QPushButton>(dialog, "file1031")->click();
    EXPECT_EQ(dialog.Target(), "") << "the file dialog was cancelled";
    Find<QPushButton>(dialog, "file1031")->click();
    EXPECT_EQ(dialog.Target(), QDir::toNativeSeparators("/tmp/Plan.odt"));
    EXPECT_TRUE(ok->isEnabled());
}

TEST_F(NoteHyperlinks, DoubleClickOpensAWebAddressOrAFileBesideTheProject) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid() && QDir(dir.path()).mkpath("Anhang"));
    testsupport::WriteFile(dir.filePath("Anhang/Plan.txt").toStdString(), "");
    ASSERT_TRUE(doc.OnSaveDocument(QFile::encodeName(dir.filePath("P.VT5")).toStdString()));
    // Shown with one backslash: RTF escapes it.
    ShowText("Siehe [www.example.com/plan] [Anhang\\\\Plan.txt] [Fehlt.txt] hier");
    DoubleClickAt(12);
    DoubleClickAt(31);
    DoubleClickAt(59);
    EXPECT_EQ(opener.opened, (std::vector<QUrl>{QUrl("http://www.example.com/plan"),
                                                QUrl::fromLocalFile(dir.filePath("Anhang/Plan.txt"))}))
        << "outside brackets a double click only selects";
    EXPECT_TRUE(Told().empty());
    DoubleClickAt(49);
    EXPECT_EQ(opener.opened.size(), 2u) << "a missing file is not handed on";
    EXPECT_EQ(Told(), std::vector<std::string>{"Angewählter Hyperlink konnte nicht geöffnet werden!"});
    doc.OnCloseDocument();
}

// Links resolved against a project folder holding Plan.txt and an executable "werkzeug".
class NoteLinkTargets : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        for (const char* name : {"Plan.txt", "werkzeug"})
            testsupport::WriteFile(dir.filePath(name).toStdString(), "");
        QFile::setPermissions(dir.filePath("werkzeug"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void Open(const QString& target) { notetext::OpenNoteLink(target, dir.path(), opener, prompter); }

    QTemporaryDir dir;
    RecordingOpener opener;
    ScriptedPrompter prompter;
};

TEST_F(NoteLinkTargets, FilesByAnyNameSplitAtTheirFolderAndBlankTargetsAreNone) {
    for (const QString& target : {QString("Plan.txt"), dir.filePath("Plan.txt"),
                                  QUrl::fromLocalFile(dir.filePath("Plan.txt")).toString()}) {
        const auto file = notetext::ResolveNoteLink(target, dir.path());
        ASSERT_TRUE(file) << target.toStdString();
        EXPECT_EQ(file->url, QUrl::fromLocalFile(dir.filePath("Plan.txt")));
        EXPECT_EQ(file->folder, QDir::toNativeSeparators(dir.path()));
        EXPECT_EQ(file->file, "Plan.txt");
    }
    EXPECT_FALSE(notetext::ResolveNoteLink("   ", dir.path()));
}

TEST_F(NoteLinkTargets, AProgramStartsInItsFolderOnlyAfterTheUserAgreedADocumentAtOnce) {
    Open("werkzeug");
    EXPECT_TRUE(opener.started.empty()) << "the script prompter answers No";
    ASSERT_EQ(prompter.asked().size(), 1u);
    EXPECT_EQ(prompter.asked()[0].buttons, PromptButtons::YesNo);
    prompter.Answer(PromptAnswer::Yes).Answer(PromptAnswer::Yes);
    Open("werkzeug");
    const std::pair<QString, QString> inItsFolder{dir.filePath("werkzeug"), dir.path()};
    EXPECT_EQ(opener.started, std::vector{inItsFolder});
    opener.startSucceeds = false;
    Open("werkzeug");
    EXPECT_EQ(opener.opened, std::vector<QUrl>{QUrl::fromLocalFile(dir.filePath("werkzeug"))})
        << "what cannot be started goes to the desktop";
    Open("Plan.txt");
    EXPECT_EQ(opener.opened.size(), 2u);
    EXPECT_EQ(prompter.asked().size(), 3u) << "a document opens without a question";
    opener.succeeds = false;
    Open("Plan.txt");
    EXPECT_EQ(prompter.texts().back(), "Angewählter Hyperlink konnte nicht geöffnet werden!");
}

TEST_F(NoteLinkTargets, TheQuestionBoxDefaultsToNein) {
    MessageBoxPrompter boxes;
    QString defaultButton;
    QTimer::singleShot(0, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal))
            defaultButton = box->defaultButton() ? box->defaultButton()->text() : QString();
        if (modal)
            QTest::keyClick(modal, Qt::Key_Return);
    });
    notetext::OpenNoteLink("ms-msdt:/id PCWDiagnostic", dir.path(), opener, boxes);
    EXPECT_EQ(defaultButton, "&Nein");
    EXPECT_TRUE(opener.opened.empty()) << "Enter declines";
}

} // namespace

} // namespace velto
