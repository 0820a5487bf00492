// The reader against a corpus of real RTF files from many writers (shared test data, not part of the
// project): it reads every file, round-trips what it read, and its plain text agrees with another
// word processor's plain text of the same file, except where docs/rtf.md explains why not.
#include "text/RtfReader.h"
#include "text/RtfWriter.h"

#include "core/text/RtfTestSupport.h"
#include "support/TempDir.h"
#include "support/TestEnvironment.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
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
    std::sort(corpus.begin(), corpus.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    return corpus;
}

const std::vector<CorpusFile>& Corpus() {
    static const std::vector<CorpusFile> corpus = LoadCorpus();
    return corpus;
}

// The rich-edit control's own output: the shape of real notes.
bool IsRichEditOutput(const std::string& rtf) {
    return rtf.starts_with("{\\rtf1\\ansi\\ansicpg1252") &&
           (rtf.find("\\*\\generator Msftedit") != std::string::npos ||
            rtf.find("\\*\\generator Riched20") != std::string::npos);
}

// Builds a new string rather than replacing in place: g++ 12 warns falsely (-Wrestrict) about
// std::string::replace with short literals.
void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
    std::string out;
    out.reserve(text.size());
    size_t start = 0;
    for (size_t pos; (pos = text.find(from, start)) != std::string::npos; start = pos + from.size()) {
        out.append(text, start, pos - start);
        out.append(to);
    }
    out.append(text, start);
    text = std::move(out);
}

// A list label as the other program writes it: four blanks, a bullet or a number with '.' or ')', a
// blank. Our text has no labels: the rich-edit control numbers lists itself.
size_t ListLabelLength(std::string_view line) {
    if (!line.starts_with("    "))
        return 0;
    std::string_view rest = line.substr(4);
    for (std::string_view bullet : {"\xE2\x80\xA2 ", "\xE2\x97\xA6 ", "\xE2\x96\xAA "})
        if (rest.starts_with(bullet))
            return 4 + bullet.size();
    size_t digits = 0;
    while (digits < rest.size() && digits < 4 && std::isalnum(static_cast<unsigned char>(rest[digits])))
        ++digits;
    const std::string_view after = rest.substr(std::min(digits, rest.size()), 2);
    if (digits > 0 && (after == ". " || after == ") "))
        return 4 + digits + 2;
    return 0;
}

std::string TrimEnd(std::string text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back())))
        text.pop_back();
    return text;
}

// The other program's text, normalised as the corpus describes: byte-order mark, CR LF, blanks written
// as U+2006 + blank, and list labels; trailing blank lines (it ends a document after a table with an
// empty paragraph) do not count on either side.
std::string NormaliseExpected(std::string text) {
    if (text.starts_with("\xEF\xBB\xBF"))
        text.erase(0, 3);
    ReplaceAll(text, "\r\n", "\n");
    ReplaceAll(text, "\xE2\x80\x86 ", " ");
    std::string result;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        result += line.substr(ListLabelLength(line)) + "\n";
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

#define SKIP_WITHOUT_CORPUS()                                                                                \
    if (Corpus().empty())                                                                                    \
    GTEST_SKIP() << "no RTF corpus at " << CorpusDir() << " (set VELTO_SHARED_DIR)"

} // namespace

TEST(RtfCorpus, EveryFileReadsRoundTripsAndGivesTheSamePlainText) {
    SKIP_WITHOUT_CORPUS();
    for (const CorpusFile& file : Corpus()) {
        const rtf::Document document = rtf::ReadRtf(file.rtf);
        EXPECT_EQ(rtf::PlainText(file.rtf), rtftest::Joined(document)) << file.name;
        EXPECT_EQ(rtf::ReadRtf(rtf::WriteRtf(document)), document) << file.name;
    }
}

TEST(RtfCorpus, PlainTextAgreesWithAnotherWordProcessor) {
    SKIP_WITHOUT_CORPUS();
    int richEdit = 0, richEditAgreeing = 0, others = 0, othersAgreeing = 0;
    for (const CorpusFile& file : Corpus()) {
        if (!file.expected)
            continue;
        const bool agrees = TrimEnd(rtf::PlainText(file.rtf)) == NormaliseExpected(*file.expected);
        const bool fromRichEdit = IsRichEditOutput(file.rtf);
        (fromRichEdit ? richEdit : others) += 1;
        (fromRichEdit ? richEditAgreeing : othersAgreeing) += agrees;
        if (fromRichEdit)
            EXPECT_TRUE(agrees) << "rich-edit file " << file.name;
        else
            EXPECT_TRUE(agrees || kKnownDifferences.count(file.name)) << "new difference in " << file.name;
        EXPECT_FALSE(agrees && kKnownDifferences.count(file.name))
            << file.name << " agrees now: update the list";
    }
    std::cout << "rich-edit files agreeing: " << richEditAgreeing << " of " << richEdit
              << "; other files: " << othersAgreeing << " of " << others << "\n";
    ASSERT_GT(richEdit, 0);
    EXPECT_GE(othersAgreeing * 10, others * 9);
}

} // namespace velto
