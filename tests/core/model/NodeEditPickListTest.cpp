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
    // Windows-1252 capitals fold to their small letters: "\xC4" (Ä) sorts with "\xE4" (ä).
    EXPECT_FALSE(ListBoxLess("\xE4z", "\xC4"
                                      "a"));
    EXPECT_TRUE(ListBoxLess("\xC4"
                            "a",
                            "\xE4z"));
}

TEST(Responsible, EachPersonIsListedOnceAfterNobody) {
    TestTree tree{{0, "R"}, {1, "A"}, {1, "B"}, {1, "C"}};
    tree["A"]->m_strResponsible = ComposeResponsible("M\xFCller", "M\xDC");
    tree["B"]->m_strResponsible = ComposeResponsible("M\xFCller", "M\xDC");
    tree["C"]->m_strResponsible = "Adam";
    EXPECT_EQ(ResponsibleChoices(tree.first), (Texts{"--- Keiner ---", "Adam", "M\xFCller \xAB\xBB M\xDC"}));
}

TEST(Responsible, ANewPersonIsStoredWithTheGuillemetSeparator) {
    const std::string stored = ComposeResponsible("Eva", "EV");
    EXPECT_EQ(stored, std::string("Eva\x20\xAB\xBB\x20"
                                  "EV"));
    EXPECT_EQ(ResponsibleFromChoice(stored), stored);
    EXPECT_EQ(ResponsibleFromChoice("--- Keiner ---"), "");
    EXPECT_EQ(ResponsibleFromChoice(""), "");
}

} // namespace

} // namespace velto
