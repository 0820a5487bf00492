#pragma once
// A note pane on a document of its own: the root and two nodes with known notes, a fixed clock, dialogs
// and a link opener that answer from the test, and helpers to select text and read the saved notes.
#include "document/CVeltoDoc.h"
#include "model/NodeList.h"
#include "support/ScriptedPrompter.h"
#include "text/RtfReader.h"
#include "view/CNotePane.h"
#include "view/NoteHyperlinks.h"
#include "view/NoteSelection.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace velto::notetest {

using namespace std::string_literals;

// Two paragraphs in 10 pt Arial, "Erste" bold; the second centred.
inline const std::string kNoteA = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\r\n"
                                  "\\viewkind4\\uc1\\pard\\f0\\fs20 Alpha \\b Erste\\b0  Zeile\\par\r\n"
                                  "\\pard\\qc Zweite\\par\r\n}\r\n\0\0"s;
inline const std::string kNoteB = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs2 Beta\\par}";

// Records the links opened and the programs started.
class RecordingOpener : public notetext::NoteLinkOpener {
public:
    bool Open(const QUrl& url) override {
        opened.push_back(url);
        return succeeds;
    }
    bool Start(const QString& program, const QString& folder) override {
        started.emplace_back(program, folder);
        return startSucceeds;
    }
    std::vector<QUrl> opened;
    std::vector<std::pair<QString, QString>> started;
    bool succeeds = true;
    bool startSucceeds = true;
};

class NotePaneFixture : public ::testing::Test {
protected:
    static constexpr uint32_t kNow = 1800000000;
    static constexpr uint32_t kEarlier = 1700000000;

    NotePaneFixture() : doc(prompter) {
        doc.OnNewDocument();
        b = AddNode("B", kNoteB);
        a = AddNode("A", kNoteA);
        pane = std::make_unique<CNotePane>(doc, prompter);
        pane->SetLinkOpener(&opener);
        pane->SetClock([] { return CTime(kNow); });
        pane->SetDialogs({[this](QWidget*, int colorRef) {
                              colourAskedWith.push_back(colorRef);
                              return colourAnswer;
                          },
                          [this](QWidget*, const QFont& font) {
                              fontAskedWith.push_back(font);
                              return fontAnswer;
                          },
                          [this](QWidget*, const QString& selected) {
                              linkAskedWith.push_back(selected);
                              return linkAnswer;
                          }});
        pane->resize(500, 300);
        pane->show();
        pane->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(pane.get()));
    }

    // A node right after the root, with the given note, last changed at kEarlier.
    CProjectNode* AddNode(const char* title, const std::string& note) {
        auto* node = new CProjectNode();
        node->m_strTitle = title;
        node->m_strNote = note;
        node->m_nLevel = 1;
        node->m_bSelected = 0;
        node->m_timeChanged = CTime(kEarlier);
        CProjectNode* root = doc.m_pFirstNode;
        node->m_pPrev = root;
        node->m_pNext = root->m_pNext;
        if (root->m_pNext)
            root->m_pNext->m_pPrev = node;
        root->m_pNext = node;
        return node;
    }

    QTextEdit& Editor() { return *pane->Editor(); }
    void Focus() {
        Editor().setFocus();
        ASSERT_TRUE(pane->EditorHasFocus());
    }
    void Select(int from, int to) {
        QTextCursor cursor(Editor().document());
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        Editor().setTextCursor(cursor);
    }
    void Caret(int at) { Select(at, at); }
    bool Run(int id) { return pane->OnCommand(id); }
    void Click(int buttonId) {
        auto* button = pane->findChild<QAbstractButton*>(QStringLiteral("button%1").arg(buttonId));
        ASSERT_TRUE(button) << buttonId;
        button->click();
    }
    CommandState Query(int id) {
        CommandState state;
        EXPECT_TRUE(pane->OnUpdateCommand(id, state)) << id;
        return state;
    }
    // The saved note of a node, read back.
    static rtf::Document Saved(const CProjectNode* node) { return rtf::ReadRtf(node->m_strNote); }
    // The format of the saved note's character at offset in paragraph.
    static rtf::CharFormat SavedFormatAt(const CProjectNode* node, size_t paragraph, size_t offset) {
        const rtf::Document saved = Saved(node);
        for (const rtf::Run& run : saved.paragraphs.at(paragraph).runs) {
            if (offset < run.text.size())
                return run.format;
            offset -= run.text.size();
        }
        ADD_FAILURE() << "no character " << offset;
        return {};
    }

    ScriptedPrompter prompter;
    CVeltoDoc doc;
    CProjectNode* a;
    CProjectNode* b;
    RecordingOpener opener;
    std::unique_ptr<CNotePane> pane;

    std::vector<int> colourAskedWith;
    std::optional<int> colourAnswer;
    std::vector<QFont> fontAskedWith;
    std::optional<QFont> fontAnswer;
    std::vector<QString> linkAskedWith;
    std::optional<QString> linkAnswer;
};

} // namespace velto::notetest
