// The text search: matching in either case over Windows-1252, the parts of a node, one step in each
// direction with the wrap at the ends, and the kept texts following every change of the project.
#include "outline/TextSearch.h"
#include "core/outline/OutlineTestSupport.h"
#include "outline/NoteSearchTexts.h"
#include "outline/SearchTexts.h"

#include <memory>

namespace velto {

using namespace charttest;

namespace {

std::string Note(const std::string& text) {
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\pard\\f0 " + text + "\\par}";
}

bool Finds(std::string_view text, std::string_view in, bool matchCase = false) {
    return SearchText(text, matchCase).FoundIn(in);
}

TEST(SearchText, IgnoresTheCaseOfEveryWindows1252LetterUnlessAsked) {
    EXPECT_TRUE(Finds("abc", "xxABCxx"));
    EXPECT_FALSE(Finds("abc", "xxABCxx", true));
    EXPECT_TRUE(Finds("ABC", "ABC", true));
    // ä Ä, é É, š Š, œ Œ, ž Ž, ÿ Ÿ and ø Ø, both ways round
    for (const auto& [small, capital] : {std::pair{"\xE4", "\xC4"},
                                         {"\xE9", "\xC9"},
                                         {"\x9A", "\x8A"},
                                         {"\x9C", "\x8C"},
                                         {"\x9E", "\x8E"},
                                         {"\xFF", "\x9F"},
                                         {"\xF8", "\xD8"}}) {
        EXPECT_TRUE(Finds(std::string("x") + small + "y", std::string("X") + capital + "Y")) << capital;
        EXPECT_TRUE(Finds(std::string("x") + capital + "y", std::string("X") + small + "Y")) << capital;
        EXPECT_FALSE(Finds(std::string("x") + small + "y", std::string("x") + capital + "y", true))
            << capital;
    }
    // the multiplication and division signs are no letters, and ß has no capital
    EXPECT_FALSE(Finds("a\xD7", "A\xF7"));
    EXPECT_FALSE(Finds("\xDF", "SS"));
}

TEST(SearchText, FindsTheTextAtEveryPlaceOfLongTextsAndNothingAcrossANul) {
    std::vector<size_t> lengths{1000};
    for (size_t length = 3; length <= 40; ++length) // every way the text ends against 16 bytes
        lengths.push_back(length);
    for (size_t length : lengths) {
        for (size_t at = 0; at + 3 <= length; ++at) {
            std::string text(length, '.');
            text.replace(at, 3, "K\xDCn");
            ASSERT_TRUE(Finds("k\xFCn", text)) << length << " " << at;
            ASSERT_FALSE(Finds("k\xFCnx", text)) << length << " " << at;
        }
    }
    EXPECT_FALSE(Finds("ab", std::string("a\0b", 3)));
    EXPECT_FALSE(Finds("abc", "ab"));
    EXPECT_TRUE(SearchText().FindsNothing());
    EXPECT_TRUE(SearchText("", false).FindsNothing());
    EXPECT_TRUE(SearchText(std::string("a\0b", 3), false).FindsNothing());
    EXPECT_FALSE(SearchText(std::string("a\0b", 3), false).FoundIn(std::string("a\0b", 3)));
}

TEST(NoteSearchText, IsThePlainTextInWindows1252WithANulForWhatItCannotHold) {
    EXPECT_EQ(NoteSearchText("{\\rtf1\\ansi Gr\\'fc\\u223?e \\u8594? \\u8364? x\\par y}"),
              std::string("Gr\xFC\xDF"
                          "e \0 \x80 x\ny",
                          13));
    EXPECT_EQ(NoteSearchText("nicht \xFC RTF"), "nicht \xFC RTF");
    // The arrow is no question mark: a search for one does not find it.
    EXPECT_FALSE(Finds("e ?", NoteSearchText("{\\rtf1 e \\u8594?}")));
}

class TextSearchTest : public ::testing::Test {
protected:
    ~TextSearchTest() override { FreeNodeList(first); }
    CProjectNode* N(const std::string& title) { return Find(first, title); }
    void Select(const std::string& title) { SelectOnly(first, N(title)); }
    // The title of the node a step finds, or "-".
    std::string Step(std::string_view text, int direction, bool matchCase = false) {
        const SearchHit hit = SearchStep(first, SearchText(text, matchCase), direction, texts);
        return hit.node ? std::string(hit.node->m_strTitle) : "-";
    }
    SearchParts Parts(std::string_view text) {
        return SearchStep(first, SearchText(text, false), kSearchInPlace, texts).parts;
    }

    CProjectNode* first = BuildList({{0, kKindProject, "R"},
                                     {1, kKindTask, "a"},
                                     {1, kKindTask, "b"},
                                     {1, kKindTask, "c"},
                                     {1, kKindTask, "d"}});
    SearchTexts texts;
};

TEST_F(TextSearchTest, InPlaceStartsAtTheSelectedNodeAndForwardAndBackwardWrapRound) {
    for (const char* title : {"a", "c"})
        N(title)->m_strNote = Note("Mark");
    Select("a");
    EXPECT_EQ(Step("mark", kSearchInPlace), "a") << "the selected node stays";
    EXPECT_EQ(Step("mark", kSearchForward), "c");
    Select("c");
    EXPECT_EQ(Step("mark", kSearchForward), "a") << "past the last node on at the first";
    EXPECT_EQ(Step("mark", kSearchBackward), "a");
    Select("a");
    EXPECT_EQ(Step("mark", kSearchBackward), "c") << "past the first node on at the last";
    Select("d");
    EXPECT_EQ(Step("mark", kSearchInPlace), "a") << "in place walks forward";
    SelectOnly(first, nullptr);
    EXPECT_EQ(Step("mark", kSearchBackward), "c") << "without a selection from the last";
    EXPECT_EQ(Step("mark", kSearchForward), "a") << "without a selection from the first";
}

TEST_F(TextSearchTest, APassEndsBeforeTheSelectedNodeAndTestsItsFarNeighbourLast) {
    N("a")->m_strNote = Note("Mark");
    Select("a");
    EXPECT_EQ(Step("mark", kSearchForward), "-") << "the selected node itself is left out";
    EXPECT_EQ(Step("mark", kSearchBackward), "-");
    Select("b");
    EXPECT_EQ(Step("mark", kSearchForward), "a") << "the far neighbour comes last, but it comes";
    Select("R");
    EXPECT_EQ(Step("mark", kSearchBackward), "a");
    SelectOnly(first, nullptr);
    N("R")->m_strTitle = "Mark";
    EXPECT_EQ(Step("mark", kSearchBackward), "a");
    EXPECT_EQ(Step("zzz", kSearchForward), "-");
    EXPECT_EQ(Step("", kSearchInPlace), "-") << "an empty text finds nothing";
}

TEST_F(TextSearchTest, EachPartIsFoundAndShownOnItsOwn) {
    const CTime day = Today();
    Select("a");
    CProjectNode* a = N("a");
    a->m_strTitle = "aABCa";
    a->m_strNote = Note("Die abc-Notiz");
    a->m_pHours = {{day, day, day, "Ute", "xABC"}};
    a->m_pCosts = {{day, 1, 1, 1, "ABC GmbH", ""}};
    a->m_pCosts2 = {{day, 1, 1, 1, "", "Abc"}};
    EXPECT_EQ(Parts("abc"), kPartTitle | kPartNote | kPartHours | kPartCalculatedCosts | kPartNeededCosts);
    EXPECT_EQ(Parts("Notiz"), kPartNote);
    EXPECT_EQ(Parts("ute"), kPartHours) << "an entry's assignee";
    EXPECT_EQ(Parts("xabc"), kPartHours) << "an entry's remark";
    EXPECT_EQ(Parts("gmbh"), kPartCalculatedCosts);
    EXPECT_EQ(Parts("aabc"), kPartTitle);
    EXPECT_EQ(Parts("abcx"), 0u) << "no match runs from one text into the next";
    EXPECT_EQ(Step("NOTIZ", kSearchInPlace, true), "-");
}

TEST_F(TextSearchTest, FollowsChangedNotesTitlesEntriesAndDeletedAndSwappedNodes) {
    N("b")->m_strNote = Note("alt");
    Select("R");
    EXPECT_EQ(Step("alt", kSearchForward), "b");
    N("b")->m_strNote = Note("neu");
    EXPECT_EQ(Step("alt", kSearchForward), "-") << "the old note is forgotten";
    EXPECT_EQ(Step("neu", kSearchForward), "b");
    N("c")->m_pCosts2 = {{Today(), 1, 1, 1, "", "Miete"}};
    N("d")->m_strTitle = "Miete";
    EXPECT_EQ(Step("miete", kSearchForward), "c");
    Select("c");
    EXPECT_EQ(Step("miete", kSearchForward), "Miete");

    CProjectNode* copy = DeepCopyList(first); // the undo copy shares the notes
    CProjectNode* b = N("b");
    b->m_pPrev->m_pNext = b->m_pNext;
    b->m_pNext->m_pPrev = b->m_pPrev;
    delete b;
    EXPECT_EQ(Step("neu", kSearchForward), "-");
    std::swap(first, copy);
    EXPECT_EQ(Step("neu", kSearchForward), "b");
    FreeNodeList(copy);
    AppendCopies(N("Miete"), 1); // the last node
    N("Miete")->m_pNext->m_strTitle = "zuletzt";
    EXPECT_EQ(Step("zuletzt", kSearchForward), "zuletzt") << "a node added at the end";
}

TEST_F(TextSearchTest, NotesParsedInTheBackgroundAreTheSameAsParsedOneByOne) {
    AppendCopies(N("d"), 600); // enough notes for the threads
    int i = 0;
    CProjectNode* wanted = nullptr;
    for (CProjectNode* node = N("d"); node; node = node->m_pNext, ++i) {
        node->m_strNote = Note("Nummer " + std::to_string(i));
        if (i == 599)
            wanted = node;
    }
    texts.StartPreparing(first);
    wanted->m_pPrev->m_strNote = Note("Nummer 598 neu"); // edited while the threads parse
    Select("R");
    EXPECT_EQ(SearchStep(first, SearchText("nummer 599", false), kSearchForward, texts).node, wanted);
    EXPECT_EQ(SearchStep(first, SearchText("598 neu", false), kSearchForward, texts).node, wanted->m_pPrev);
    // A project closed while its notes are parsed: the threads hold their own copies of the notes,
    // and the cache, thrown away while they still run, waits for them.
    CProjectNode* closed = DeepCopyList(first);
    for (CProjectNode* node = closed; node; node = node->m_pNext)
        node->m_strNote = Note("eigene Notiz");
    auto early = std::make_unique<SearchTexts>();
    early->StartPreparing(closed);
    FreeNodeList(closed);
    early.reset();
}

} // namespace

} // namespace velto
