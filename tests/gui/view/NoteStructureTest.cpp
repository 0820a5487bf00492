// Lists, pictures, tables and paragraph layout in the note pane: shown as Qt's own structures, kept
// through edits of other parts, changed by the pane's list and indent commands, and brought in and
// out through the clipboard.
#include "base/CommandIds.h"
#include "gui/view/NoteTestSupport.h"
#include "text/RtfWriter.h"
#include "view/NoteBlocks.h"
#include "view/NoteEditor.h"
#include "view/NoteRichText.h"

#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <set>

namespace velto {

using namespace notetest;

namespace {

QByteArray PngOf(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray SmallPng() {
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    return PngOf(image);
}

// A bulleted list with a second level, a numbered list, a picture, a table with a short second row,
// and a metafile no screen can draw.
std::string StructuredNote() {
    return "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}"
           "{\\*\\listtable{\\list\\listid7{\\listlevel\\levelnfc23{\\leveltext\\'01\\u8226 ?;}}"
           "{\\listlevel\\levelnfc23{\\leveltext\\'01o;}}}"
           "{\\list\\listid9{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'02\\'00.;}}}}"
           "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}{\\listoverride\\listid9\\ls2}}"
           "\\pard\\f0 Titel\\par"
           "\\pard\\ls1\\ilvl0\\li720\\fi-360 Punkt eins\\par\\ls1\\ilvl1\\li1440 Unterpunkt\\par"
           "\\ls1\\ilvl0\\li720 Punkt zwei\\par\\ls1\\ilvl1\\li1440 Noch ein Unterpunkt\\par"
           "\\pard\\ls2 Schritt eins\\par Schritt zwei\\par"
           "\\pard Bild {\\pict\\pngblip\\picw4\\pich3\\picwgoal600\\pichgoal450 " +
           SmallPng().toHex().toStdString() +
           "} und {\\pict\\wmetafile8\\picw2540\\pich1270 0102030405}\\par"
           "\\trowd\\cellx2000\\cellx4000\\pard\\intbl A1\\cell B1\\cell\\row"
           "\\trowd\\cellx2000\\pard\\intbl A2\\cell\\row"
           "\\pard Ende\\par}";
}

QTextBlock BlockWithText(const QTextDocument& document, const QString& text) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        if (block.text() == text)
            return block;
    ADD_FAILURE() << "no block " << text.toStdString();
    return {};
}

std::vector<QTextImageFormat> Images(const QTextDocument& document) {
    std::vector<QTextImageFormat> images;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            if (it.fragment().charFormat().isImageFormat())
                images.push_back(it.fragment().charFormat().toImageFormat());
    return images;
}

std::vector<const rtf::Paragraph*> ListItems(const rtf::Document& note) {
    std::vector<const rtf::Paragraph*> items;
    for (const rtf::Paragraph& paragraph : note.paragraphs)
        if (paragraph.list)
            items.push_back(&paragraph);
    return items;
}

std::vector<rtf::Picture> Pictures(const rtf::Document& note) {
    std::vector<rtf::Picture> pictures;
    for (const rtf::Paragraph& paragraph : note.paragraphs)
        for (const rtf::Run& run : paragraph.runs)
            if (run.picture)
                pictures.push_back(*run.picture);
    return pictures;
}

TEST(NoteStructure, ListsPicturesAndTablesShowAsQtStructuresAndSurviveAnEditElsewhere) {
    const rtf::Document note = rtf::ReadRtf(StructuredNote());
    QTextDocument document;
    notetext::ShowNote(document, note);

    const QTextList* bullets = BlockWithText(document, "Punkt eins").textList();
    ASSERT_TRUE(bullets);
    EXPECT_EQ(bullets->format().style(), QTextListFormat::ListDisc);
    EXPECT_EQ(BlockWithText(document, "Punkt zwei").textList(), bullets) << "one list across its sub-item";
    const QTextList* sub = BlockWithText(document, "Unterpunkt").textList();
    ASSERT_TRUE(sub);
    EXPECT_EQ(sub->format().indent(), 2);
    EXPECT_NE(BlockWithText(document, "Noch ein Unterpunkt").textList(), sub)
        << "a deeper level starts afresh after an item above it";
    const QTextBlock second = BlockWithText(document, "Schritt zwei");
    ASSERT_TRUE(second.textList());
    EXPECT_EQ(second.textList()->format().style(), QTextListFormat::ListDecimal);
    EXPECT_EQ(second.textList()->itemText(second), "2.");
    EXPECT_EQ(BlockWithText(document, "Punkt eins").blockFormat().leftMargin(), 720 / 15.0 - 40)
        << "the list's own indent is not counted twice";

    const std::vector<QTextImageFormat> images = Images(document);
    ASSERT_EQ(images.size(), 2u);
    EXPECT_EQ(images[0].width(), 40.0) << "the wanted size, in pixels";
    const QImage shown =
        document.resource(QTextDocument::ImageResource, QUrl(images[0].name())).value<QImage>();
    EXPECT_EQ(shown.size(), QSize(4, 3));
    EXPECT_EQ(shown.pixelColor(1, 1), QColor(Qt::darkGreen));
    EXPECT_EQ(images[1].width(), 96.0) << "a metafile is measured in hundredths of a millimetre";
    EXPECT_FALSE(document.resource(QTextDocument::ImageResource, QUrl(images[1].name())).isNull())
        << "and shows a placeholder";

    const QTextTable* table = QTextCursor(BlockWithText(document, "A1")).currentTable();
    ASSERT_TRUE(table);
    EXPECT_EQ(table->rows(), 2);
    EXPECT_EQ(table->columns(), 2);
    EXPECT_EQ(table->cellAt(0, 1).firstCursorPosition().block().text(), "B1");
    EXPECT_EQ(table->format().columnWidthConstraints().value(1),
              QTextLength(QTextLength::FixedLength, 2000 / 15.0));

    QTextCursor cursor(&document);
    cursor.insertText("X");
    rtf::Document expected = note;
    expected.paragraphs.front().runs.front().text = "XTitel";
    EXPECT_EQ(notetext::TakeNote(document), expected);
}

TEST(NoteStructure, ALayoutKeepsItsTwipsUntilThePaneChangesIt) {
    const rtf::Document note =
        rtf::ReadRtf("{\\rtf1\\li1001\\ri17\\fi-203\\sb7\\sa9\\sl-301\\tx1003\\tqr\\tx2009 Text\\par}");
    QTextDocument document;
    notetext::ShowNote(document, note);
    EXPECT_EQ(notetext::TakeNote(document), note) << "values no pixel can hold come back exactly";

    QTextCursor cursor(&document);
    notetext::StepIndent(cursor, 1);
    rtf::Document indented = note;
    indented.paragraphs.front().layout.leftIndent += 720;
    EXPECT_EQ(notetext::TakeNote(document), indented) << "only the changed indent is measured anew";
    const QTextBlockFormat shown = document.firstBlock().blockFormat();
    EXPECT_EQ(shown.lineHeightType(), QTextBlockFormat::FixedHeight);
    ASSERT_EQ(shown.tabPositions().size(), 2);
    EXPECT_EQ(shown.tabPositions()[1].type, QTextOption::RightTab);
}

using NoteStructurePane = NotePaneFixture;

TEST_F(NoteStructurePane, ListAndIndentCommandsMakeChangeAndEndLists) {
    pane->ShowNode(a);
    Focus();
    Select(0, Editor().document()->characterCount() - 1);
    Click(cmd::NoteBullets);
    std::vector<const rtf::Paragraph*> items;
    rtf::Document saved = Saved(a);
    items = ListItems(saved);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0]->list->kind, rtf::ListKind::Bullet);
    EXPECT_EQ(items[0]->list->id, items[1]->list->id);
    EXPECT_TRUE(Query(cmd::NoteBullets).checked);
    EXPECT_FALSE(Query(cmd::NoteNumbering).checked);

    Run(cmd::NoteNumbering);
    saved = Saved(a);
    EXPECT_EQ(ListItems(saved).at(1)->list->kind, rtf::ListKind::Decimal) << "the whole list changes kind";
    Caret(Editor().document()->lastBlock().position());
    Run(cmd::NoteIndentMore);
    saved = Saved(a);
    EXPECT_EQ(ListItems(saved).at(1)->list->level, 1);
    Run(cmd::NoteIndentLess);
    saved = Saved(a);
    EXPECT_EQ(ListItems(saved).at(1)->list->level, 0);

    Select(0, Editor().document()->characterCount() - 1);
    Run(cmd::NoteNumbering);
    saved = Saved(a);
    EXPECT_TRUE(ListItems(saved).empty());
    EXPECT_EQ(saved.paragraphs.at(1).layout, rtf::ParagraphLayout()) << "back at the margin";
    EXPECT_EQ(rtf::PlainText(a->m_strNote), "Alpha Erste Zeile\nZweite");

    std::unique_ptr<QMenu> menu(pane->CreateContextMenu(nullptr));
    for (int id : {cmd::NoteBullets, cmd::NoteNumbering, cmd::NoteIndentMore, cmd::NoteIndentLess})
        EXPECT_TRUE(menu->findChild<QAction*>(QStringLiteral("command%1").arg(id))) << id;
}

TEST_F(NoteStructurePane, TheClipboardCarriesListsAndPicturesAndLargeImagesAreScaledDown) {
    a->m_strNote = StructuredNote();
    pane->ShowNode(a);
    Focus();
    Select(0, Editor().document()->characterCount() - 1);
    Editor().copy();
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(copied->hasFormat("text/rtf"));
    const rtf::Document fromClipboard = rtf::ReadRtf(copied->data("text/rtf").toStdString());
    EXPECT_EQ(Pictures(fromClipboard).size(), 2u);
    EXPECT_EQ(ListItems(fromClipboard).size(), 6u);

    // Pasted after the note's own lists, the copied ones stay lists of their own.
    QTextCursor end = Editor().textCursor();
    end.movePosition(QTextCursor::End);
    Editor().setTextCursor(end);
    Run(cmd::EditPaste);
    rtf::Document saved = Saved(a);
    EXPECT_EQ(Pictures(saved).size(), 4u);
    std::set<int> lists;
    for (const rtf::Paragraph* item : ListItems(saved))
        lists.insert(item->list->id);
    EXPECT_EQ(lists.size(), 4u);

    auto* image = new QMimeData;
    image->setImageData(QImage(2500, 100, QImage::Format_RGB32));
    QGuiApplication::clipboard()->setMimeData(image);
    QSignalSpy scaled(static_cast<NoteEditor*>(&Editor()), &NoteEditor::picturesScaledDown);
    Run(cmd::EditPaste);
    ASSERT_EQ(scaled.count(), 1);
    const rtf::Picture pasted = Pictures(Saved(a)).back();
    EXPECT_EQ(pasted.kind, rtf::PictureKind::Png);
    EXPECT_EQ(QSize(pasted.width, pasted.height), QSize(2000, 80));

    // From a browser: the list and the picture the HTML carries come along; a picture on a server
    // that cannot be had is not pretended to be kept.
    auto* html = new QMimeData;
    html->setHtml("<ul><li>eins</li><li>zwei <img src=\"data:image/png;base64," + SmallPng().toBase64() +
                  "\"></li></ul><p><img src=\"http://host.invalid/bild.png\">Text</p>");
    QGuiApplication::clipboard()->setMimeData(html);
    pane->ShowNode(b);
    Focus();
    Run(cmd::EditPaste);
    saved = Saved(b);
    EXPECT_EQ(ListItems(saved).size(), 2u);
    ASSERT_EQ(Pictures(saved).size(), 1u);
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(Pictures(saved)[0].data)).size(), QSize(4, 3));
    EXPECT_EQ(Editor().toPlainText(), QString::fromUtf8("eins\nzwei \uFFFC\nTextBeta"));
}

} // namespace

} // namespace velto
