// The reader against a corpus of real RTF files from many writers (shared test data, not part of the
// project): it reads every file, round-trips what it read, and its plain text agrees with another
// word processor's plain text of the same file, except where docs/rtf.md explains why not.
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include "core/text/RtfTestSupport.h"
#include "support/TempDir.h"
#include "support/TestEnvironment.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>

namespace velto {

namespace fs = std::filesystem;

namespace {

struct CorpusFile {
    std::string name; // relative to files/
    std::string rtf;
    std::optional<std::string> expected; // none where the other program did not convert the file
};

fs::path CorpusDir() {
    return fs::path(testenv::SharedDir()) / "rtf-corpus";
}

std::vector<CorpusFile> LoadCorpus() {
    std::vector<CorpusFile> corpus;
    const fs::path files = CorpusDir() / "files";
    if (!fs::is_directory(files))
        return corpus;
    for (const auto& entry : fs::recursive_directory_iterator(files)) {
        if (entry.path().extension() != ".rtf")
            continue;
        CorpusFile file;
        file.name = fs::relative(entry.path(), files).generic_string();
        file.rtf = testsupport::ReadFile(entry.path());
        const fs::path expected =
            (CorpusDir() / "expected-libreoffice" / file.name).replace_extension(".txt");
        if (fs::exists(expected))
            file.expected = testsupport::ReadFile(expected);
        corpus.push_back(std::move(file));
    }
    return corpus;
}

// A list label as the other program writes it: four blanks, a bullet or a number with '.' or ')', a
// blank. Our text has no labels: the rich-edit control numbers lists itself.
const std::regex kListLabel("^    (\xE2\x80\xA2|\xE2\x97\xA6|\xE2\x96\xAA|[[:alnum:]]{1,4}[.)]) ");

std::string TrimEnd(std::string text) {
    return text.erase(text.find_last_not_of(" \t\n\v\f\r") + 1);
}

// The other program's text, normalised as the corpus describes: byte-order mark, CR LF, blanks written
// as U+2006 + blank, and list labels; trailing blank lines (it ends a document after a table with an
// empty paragraph) do not count on either side.
std::string NormaliseExpected(const std::string& text) {
    std::istringstream lines(text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        for (size_t pos; (pos = line.find("\xE2\x80\x86 ")) != std::string::npos;)
            line.erase(pos, 3);
        result += std::regex_replace(line, kListLabel, "", std::regex_constants::format_first_only) + "\n";
    }
    return TrimEnd(result);
}

// Files whose text differs on purpose or through the other program's peculiarities (docs/rtf.md).
const std::set<std::string> kKnownDifferences = {
    "rtfjs/test/rtf-test-files/sample/source.rtf",                   // footnote reference number
    "rtfpipe/RtfPipe.Tests/Files/phprtflite/footnotes.rtf",          // footnote reference numbers
    "rtfpipe/RtfPipe.Tests/Files/Issue49.rtf",                       // unclosed font table: we keep the text
    "rtfpipe/RtfPipe.Tests/Files/Issue50-1.rtf",                     // empty section paragraph after a table
    "rtfpipe/RtfPipe.Tests/Files/phprtflite/image_from_strings.rtf", // the same
    "rtfpipe/RtfPipe.Tests/Files/ListGoogle.rtf",                    // blanks of the list table taken as text
    "rtfpipe/RtfPipe.Tests/Files/Test01.rtf",                        // both halves of a \upr pair
    "rtfpipe/RtfPipe.Tests/Files/phprtflite/formfields.rtf",         // drop-down field result left out
};

// Counts what the model holds besides text, so that a reader that silently drops it, which the round
// trip alone would not notice, fails.
struct Tally {
    size_t pictures = 0;
    size_t pictureBytes = 0;
    size_t listItems = 0;
    size_t numberedItems = 0;
    size_t cellParagraphs = 0;
    size_t rows = 0;
    int64_t cellEdges = 0;

    void Add(const rtf::Document& document) {
        for (const rtf::Paragraph& paragraph : document.paragraphs) {
            listItems += paragraph.list.has_value();
            numberedItems += paragraph.list && paragraph.list->kind != rtf::ListKind::Bullet;
            cellParagraphs += paragraph.cell.has_value();
            rows += paragraph.cell && paragraph.cell->endsRow;
            cellEdges += paragraph.cell ? paragraph.cell->rightEdge : 0;
            for (const rtf::Run& run : paragraph.runs) {
                if (run.picture) {
                    ++pictures;
                    pictureBytes += run.picture->data.size();
                }
            }
        }
    }
};

} // namespace

TEST(RtfCorpus, EveryFileRoundTripsAndItsPlainTextAgreesWithAnotherWordProcessor) {
    const std::vector<CorpusFile> corpus = LoadCorpus();
    if (corpus.empty())
        GTEST_SKIP() << "no RTF corpus at " << CorpusDir() << " (set VELTO_SHARED_DIR)";
    Tally tally;
    for (const CorpusFile& file : corpus) {
        const rtf::Document document = rtf::ReadRtf(file.rtf);
        tally.Add(document);
        const std::string text = rtf::PlainText(file.rtf);
        EXPECT_EQ(text, rtftest::Joined(document)) << file.name;
        EXPECT_EQ(rtf::ReadRtf(rtf::WriteRtf(document)), document) << file.name;
        if (!file.expected)
            continue;
        const bool agrees = TrimEnd(text) == NormaliseExpected(*file.expected);
        EXPECT_NE(agrees, kKnownDifferences.count(file.name) > 0)
            << file.name << (agrees ? " agrees now: update the list" : " differs");
    }
    EXPECT_EQ(tally.pictures, 16u); // every \pict of the corpus
    EXPECT_EQ(tally.pictureBytes, 76661u);
    EXPECT_EQ(tally.listItems, 59u);
    EXPECT_EQ(tally.numberedItems, 19u);
    EXPECT_EQ(tally.cellParagraphs, 1166u);
    EXPECT_EQ(tally.rows, 314u);
    EXPECT_EQ(tally.cellEdges, 6152472); // the sum of the right edges
}

} // namespace velto
