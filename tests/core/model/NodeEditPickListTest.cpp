// The pick lists of the node details: entry combos from presets or histories, the sorted list
// boxes, and the responsible persons of a project.
#include "model/PickListLogic.h"

#include "core/model/NodeListTestTree.h"

#include <gtest/gtest.h>

namespace velto {

namespace {

using Texts = std::vector<std::string>;

TEST(EntryChoices, PresetsWinOverTheHistoriesWhenTheFileHasContent) {
    EntryHistories histories;
    histories.assignee = {"Bert", "Anna"};
    histories.remark = {"Montage"};
    const EntryChoices withPresets = ChooseEntryChoices(true, {"Zeta", "alpha beta"}, histories);
    EXPECT_EQ(withPresets.assignee, (Texts{"alpha beta", "Zeta"}));
    EXPECT_EQ(withPresets.remark, (Texts{"alpha beta", "Zeta"}));

    // An empty (but present) file falls back to the histories, each in its own combo.
    const EntryChoices withoutPresets = ChooseEntryChoices(false, {}, histories);
    EXPECT_EQ(withoutPresets.assignee, (Texts{"Anna", "Bert"}));
    EXPECT_EQ(withoutPresets.remark, (Texts{"Montage"}));
}

TEST(ListBoxOrder, CaseInsensitiveWithNobodyBeforeLettersAndDigits) {
    Texts items{"zoe", "\xC4rger", "Bert", "anna", "--- Keiner ---", "7 Zwerge", "Anna"};
    SortLikeListBox(items);
    EXPECT_EQ(items, (Texts{"--- Keiner ---", "7 Zwerge", "Anna", "anna", "Bert", "zoe", "\xC4rger"}));
    EXPECT_EQ(ListBoxInsertPosition(items, "bert"), 5u) << "after its equals";
    EXPECT_EQ(ListBoxInsertPosition(items, "Aaron"), 2u);
    EXPECT_EQ(ListBoxInsertPosition({}, "x"), 0u);
    // Windows-1252 capitals fold to their small letters; the multiplication sign is no capital.
    for (const auto& [small, capital] : {std::pair{"\xE4", "\xC4"}, {"\x9A", "\x8A"}, {"\xFF", "\x9F"}})
        EXPECT_TRUE(ListBoxLess(std::string(small) + "a", std::string(capital) + "z")) << capital;
    EXPECT_TRUE(ListBoxLess("\xD7z", "\xF7y"));
}

// A person is stored as "name \xAB\xBB code"; choosing nobody stores an empty text.
TEST(Responsible, EachPersonIsListedOnceAfterNobody) {
    TestTree tree{{0, "R"}, {1, "A"}, {1, "B"}, {1, "C"}};
    tree["A"]->m_strResponsible = ComposeResponsible("M\xFCller", "M\xDC");
    tree["B"]->m_strResponsible = ComposeResponsible("M\xFCller", "M\xDC");
    tree["C"]->m_strResponsible = "Adam";
    EXPECT_EQ(ResponsibleChoices(tree.first), (Texts{"--- Keiner ---", "Adam", "M\xFCller \xAB\xBB M\xDC"}));
    EXPECT_EQ(ResponsibleFromChoice("Adam"), "Adam");
    EXPECT_EQ(ResponsibleFromChoice("--- Keiner ---"), "");
}

// "Meine Aufgaben": persons compared exactly, nodes in list order, equal titles kept apart.
TEST(Responsible, PersonsAreExactAndTheirNodesComeInListOrder) {
    TestTree tree{{0, "R"}, {1, "A"}, {1, "X"}, {1, "B"}, {1, "X"}};
    tree.first->m_pNext->m_strResponsible = "anna";
    for (CProjectNode* node = tree.first->m_pNext->m_pNext; node; node = node->m_pNext)
        node->m_strResponsible = "Anna";
    EXPECT_EQ(ResponsiblePersons(tree.first), (Texts{"Anna", "anna"}));
    const std::vector<CProjectNode*> nodes = NodesOfPerson(tree.first, "Anna");
    ASSERT_EQ(nodes.size(), 3u);
    EXPECT_EQ(nodes[0]->m_strTitle, "X");
    EXPECT_EQ(nodes[2]->m_strTitle, "X");
    EXPECT_EQ(nodes[2], tree.first->m_pNext->m_pNext->m_pNext->m_pNext);
    EXPECT_TRUE(NodesOfPerson(tree.first, "ANNA").empty());
}

} // namespace

} // namespace velto
