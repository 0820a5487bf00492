// A note of 5 MB of pictures, with a list, a table and text around them, in the note pane: shown
// (read, laid out and drawn) when its node is selected, and saved after an edit.
#include "BenchProject.h"
#include "document/CVeltoDoc.h"
#include "model/ProjectNode.h"
#include "text/RtfWriter.h"
#include "view/CNotePane.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>
#include <QTextCursor>
#include <QTextEdit>

#include <benchmark/benchmark.h>

namespace velto {

namespace {

// A photo-like picture: noise does not compress, so each is as large as its pixels.
rtf::Picture NoisePicture(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator random(42);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, random.generate() | 0xFF000000u);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    rtf::Picture picture;
    picture.kind = rtf::PictureKind::Png;
    picture.width = width;
    picture.height = height;
    picture.goalWidth = width * 15 / 2;
    picture.goalHeight = height * 15 / 2;
    picture.data.assign(png.constData(), size_t(png.size()));
    return picture;
}

std::string LargeNote() {
    rtf::DocumentBuilder builder;
    const rtf::CharFormat format;
    const auto paragraph = [&](const std::string& text) {
        builder.AppendText(text, format);
        builder.EndParagraph(rtf::Alignment::Left, format, rtf::ParagraphBreak::Paragraph);
    };
    for (int i = 0; i < 20; ++i)
        paragraph("Absatz " + std::to_string(i) + " mit etwas Text über das Projekt und seine Planung.");
    for (int i = 0; i < 10; ++i) {
        builder.SetList(rtf::ListMembership{1, i % 2, rtf::ListKind::Bullet, 1});
        paragraph("Punkt " + std::to_string(i));
    }
    for (int picture = 0; picture < 2; ++picture) {
        builder.AppendPicture(NoisePicture(1000, 850), format);
        builder.EndParagraph(rtf::Alignment::Left, format, rtf::ParagraphBreak::Paragraph);
    }
    for (int row = 0; row < 10; ++row) {
        for (int cell = 0; cell < 3; ++cell) {
            builder.SetCell(rtf::TableCell{(cell + 1) * 2000, true, cell == 2});
            paragraph("Zelle " + std::to_string(row) + "/" + std::to_string(cell));
        }
    }
    paragraph("Ende");
    return rtf::WriteRtf(builder.Finish(rtf::Alignment::Left, format));
}

struct NoteWindow {
    NoteWindow() : doc(prompter), pane(doc, prompter) {
        doc.OnNewDocument();
        large = new CProjectNode();
        large->m_strNote = LargeNote();
        large->m_nLevel = 1;
        large->m_pPrev = doc.m_pFirstNode;
        doc.m_pFirstNode->m_pNext = large;
        pane.resize(1200, 500);
        pane.show();
    }
    bench::SilentPrompter prompter;
    CVeltoDoc doc;
    CNotePane pane;
    CProjectNode* large;
};

void BM_NotePaneShowsNoteWithPictures(benchmark::State& state) {
    NoteWindow window;
    for (auto _ : state) {
        state.PauseTiming();
        window.pane.ShowNode(window.doc.m_pFirstNode);
        state.ResumeTiming();
        window.pane.ShowNode(window.large);
        benchmark::DoNotOptimize(window.pane.Editor()->viewport()->grab());
    }
    state.counters["note_MB"] = double(window.large->m_strNote.str().size()) / 1e6;
}
BENCHMARK(BM_NotePaneShowsNoteWithPictures)->Unit(benchmark::kMillisecond);

void BM_NotePaneSavesEditedNoteWithPictures(benchmark::State& state) {
    NoteWindow window;
    window.pane.ShowNode(window.large);
    QTextEdit& editor = *window.pane.Editor();
    for (auto _ : state) {
        state.PauseTiming();
        QTextCursor cursor(editor.document());
        cursor.insertText("x");
        state.ResumeTiming();
        window.pane.SaveNote();
    }
}
BENCHMARK(BM_NotePaneSavesEditedNoteWithPictures)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velto
