// Throughput of the RTF engine: plain text and full parse (MB/s of RTF) on the shared corpus and on a
// generated 1 MB note, writing, a 5 MB note that is mostly pictures against its text alone, and a search pass
// over 100,000 typical notes. The corpus lives in
// $VELTO_SHARED_DIR/rtf-corpus (default compiled in); without it the corpus benchmarks report an error and
// the others still run.
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace velto {

namespace {

namespace fs = std::filesystem;

std::string SharedDir() {
    const char* fromEnvironment = std::getenv("VELTO_SHARED_DIR");
    return fromEnvironment && *fromEnvironment ? fromEnvironment : VELTO_SHARED_DIR;
}

const std::vector<std::string>& Corpus() {
    static const std::vector<std::string> files = [] {
        std::vector<std::string> result;
        const fs::path folder = fs::path(SharedDir()) / "rtf-corpus" / "files";
        if (!fs::is_directory(folder))
            return result;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.path().extension() != ".rtf")
                continue;
            std::ifstream in(entry.path(), std::ios::binary);
            std::ostringstream content;
            content << in.rdbuf();
            result.push_back(content.str());
        }
        return result;
    }();
    return files;
}

// A note as the rich-edit control writes it: a few format changes per line, umlauts, the odd Unicode
// character and a bracketed link, repeated up to the given size; lines numbered from firstLine.
std::string GeneratedNote(size_t size, int firstLine = 0) {
    std::string note =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}"
        "{\\f1\\fnil\\fcharset0 Courier New;}}\r\n{\\colortbl ;\\red0\\green0\\blue255;}\r\n"
        "\\viewkind4\\uc1\\pard\\f0\\fs24 ";
    for (int line = firstLine; note.size() < size; ++line) {
        note += "Punkt " + std::to_string(line) +
                ": Abstimmung mit dem Auftraggeber, \\b Entwurf\\b0  pr\\'fcfen und Ergebnisse festhalten. "
                "Kosten ca. 250 \\u8364?, siehe \\cf1\\ul [C:\\\\Projekte\\\\Plan.doc]\\cf0\\ulnone , "
                "\\i Termin\\i0  am Montag; \\f1 Code\\f0  und Stra\\'dfe.\\par\r\n";
    }
    return note + "}\r\n";
}

const std::string& OneMegabyteNote() {
    static const std::string note = GeneratedNote(1 << 20);
    return note;
}

// The text of a 20 KB generated note with two pictures of 1.25 MB each (5 MB of RTF as hex digits).
std::string NoteWithPictures(bool withPictures) {
    std::string note = GeneratedNote(20 << 10);
    note.resize(note.rfind('}'));
    if (withPictures) {
        for (int picture = 0; picture < 2; ++picture) {
            note += "{\\pict\\pngblip\\picw1600\\pich1200\\picwgoal24000\\pichgoal18000";
            for (int line = 0; line < (5 << 20) / 2 / 130; ++line)
                note += "\r\n89504e470d0a1a0a0000000d4948445200000640000004b00802000000a1b2c3d4e5f60718293a4b"
                        "5c6d7e8f90"
                        "0123456789abcdef0123456789abcdef";
            note += "}\\par\r\n";
        }
    }
    return note + "}\r\n";
}

template <typename Work> void OverText(benchmark::State& state, const std::string& rtf, Work work) {
    for (auto _ : state)
        benchmark::DoNotOptimize(work(rtf));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * rtf.size()));
}

void BM_RtfPlainText_PictureNote5MB(benchmark::State& state) {
    OverText(state, NoteWithPictures(true), rtf::PlainText);
}
void BM_RtfPlainText_PictureNoteTextOnly(benchmark::State& state) {
    OverText(state, NoteWithPictures(false), rtf::PlainText);
}
void BM_RtfParse_PictureNote5MB(benchmark::State& state) {
    OverText(state, NoteWithPictures(true), rtf::ReadRtf);
}
void BM_RtfReadAndWrite_PictureNote5MB(benchmark::State& state) {
    OverText(state, NoteWithPictures(true),
             [](const std::string& rtf) { return rtf::WriteRtf(rtf::ReadRtf(rtf)); });
}

template <typename Work> void OverCorpus(benchmark::State& state, Work work) {
    const auto& corpus = Corpus();
    if (corpus.empty()) {
        state.SkipWithError("no RTF corpus (set VELTO_SHARED_DIR)");
        return;
    }
    size_t bytes = 0;
    for (const auto& file : corpus)
        bytes += file.size();
    for (auto _ : state)
        for (const auto& file : corpus)
            benchmark::DoNotOptimize(work(file));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
}

template <typename Work> void OverNote(benchmark::State& state, Work work) {
    const std::string& note = OneMegabyteNote();
    for (auto _ : state)
        benchmark::DoNotOptimize(work(note));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * note.size()));
}

void BM_RtfPlainText_Corpus(benchmark::State& state) {
    OverCorpus(state, rtf::PlainText);
}
void BM_RtfParse_Corpus(benchmark::State& state) {
    OverCorpus(state, rtf::ReadRtf);
}
void BM_RtfPlainText_GeneratedNote1MB(benchmark::State& state) {
    OverNote(state, rtf::PlainText);
}
void BM_RtfParse_GeneratedNote1MB(benchmark::State& state) {
    OverNote(state, rtf::ReadRtf);
}

void BM_RtfWrite_GeneratedNote1MB(benchmark::State& state) {
    const rtf::Document document = rtf::ReadRtf(OneMegabyteNote());
    size_t bytes = 0;
    for (auto _ : state) {
        const std::string rtf = rtf::WriteRtf(document);
        bytes += rtf.size();
        benchmark::DoNotOptimize(rtf);
    }
    state.SetBytesProcessed(static_cast<int64_t>(bytes));
}

// One search pass over a project of 100,000 nodes with typical notes (about 500 bytes each): taking
// every note's plain text, parsing all of them.
const std::vector<std::string>& HundredThousandNotes() {
    static const std::vector<std::string> notes = [] {
        std::vector<std::string> result;
        for (int i = 0; i < 100000; ++i)
            result.push_back(GeneratedNote(400, i));
        return result;
    }();
    return notes;
}

void BM_RtfSearchPass100kNotes_Parse(benchmark::State& state) {
    const auto& notes = HundredThousandNotes();
    for (auto _ : state)
        for (const auto& note : notes)
            benchmark::DoNotOptimize(rtf::PlainText(note));
}

} // namespace

BENCHMARK(BM_RtfPlainText_Corpus)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfParse_Corpus)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfPlainText_GeneratedNote1MB)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfParse_GeneratedNote1MB)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfWrite_GeneratedNote1MB)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfPlainText_PictureNote5MB)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfPlainText_PictureNoteTextOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfParse_PictureNote5MB)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfReadAndWrite_PictureNote5MB)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RtfSearchPass100kNotes_Parse)->Unit(benchmark::kMillisecond);

} // namespace velto
