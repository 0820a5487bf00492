#include "outline/MindMapLayout.h"
#include "core/outline/OutlineTestSupport.h"

#include <random>

namespace velto {

using namespace charttest;

namespace {

// A font of fixed pitch: half the size per character, a quarter more when bold; as high as the size.
class FixedPitch : public TextMeasurer {
public:
    TextExtent Measure(std::string_view text, const TitleStyle& style) override {
        ++calls;
        const int perChar = style.size / 2 + (style.bold ? style.size / 8 : 0);
        return {int(text.size()) * perChar, style.size};
    }
    int calls = 0;
};

// Always the same extent, whatever the size.
class Constant : public TextMeasurer {
public:
    explicit Constant(TextExtent extent) : m_extent(extent) {}
    TextExtent Measure(std::string_view, const TitleStyle&) override { return m_extent; }

private:
    TextExtent m_extent;
};

class MindMapLayoutTest : public ::testing::Test {
protected:
    ~MindMapLayoutTest() override { FreeNodeList(first); }
    void Build(std::initializer_list<Spec> specs) {
        FreeNodeList(first);
        first = BuildList(specs);
        Relayout();
    }
    void Relayout() { layout.Build(first, 20, measurer); }
    int BoxOf(const std::string& title) { return layout.Find(Find(first, title)); }
    const MindMapBox& Box(const std::string& title) { return layout.Box(BoxOf(title)); }
    std::string TitleOf(int box) { return box < 0 ? "-" : std::string(layout.Box(box).node->m_strTitle); }

    CProjectNode* first = nullptr;
    FixedPitch measurer;
    MindMapLayout layout;
};

std::string Titled(size_t characters) {
    return std::string(characters, 'x');
}

} // namespace

TEST(MindMapRootBox, GrowsOnlyBelowHalfTheTextWidthAndShrinksAboveOnePointSixTimesIt) {
    FixedPitch measurer; // 10 pixels a character at size 20
    TitleStyle style{"Arial", false, false, false, false, 20};
    int stored = 0;
    RootBox box = FitRootBox(Titled(4), style, stored, measurer);
    EXPECT_EQ(stored, 64) << "unset: 40 * 1.6";
    EXPECT_EQ(box.width, 64);
    EXPECT_EQ(box.height, 32);
    EXPECT_EQ(box.marginX, 8);
    EXPECT_EQ(box.marginY, 4);
    EXPECT_GT(box.fontSize, 20) << "the text grows into its box";
    FitRootBox(Titled(12), style, stored, measurer);
    EXPECT_EQ(stored, 64) << "120 / 2 = 60 is still below the box";
    box = FitRootBox(Titled(13), style, stored, measurer);
    EXPECT_EQ(stored, 65) << "130 / 2: the box grows";
    EXPECT_LT(box.fontSize, 20) << "and the text shrinks into it";
    FitRootBox(Titled(4), style, stored, measurer);
    EXPECT_EQ(stored, 64) << "65 > 64: the box shrinks to 1.6 times the text";
    FitRootBox(Titled(5), style, stored, measurer);
    EXPECT_EQ(stored, 64) << "between half and 1.6 times the text the box keeps its width";
}

TEST(MindMapRootBox, AnEmptyTitleStopsAtOnceAndTheFittingLoopIsBounded) {
    TitleStyle style{"Arial", false, false, false, false, 20};
    int stored = 50;
    Constant empty({0, 23});
    RootBox box = FitRootBox("", style, stored, empty);
    EXPECT_EQ(stored, 0);
    EXPECT_EQ(box.fontSize, 20);
    EXPECT_EQ(box.measurements, 1);

    stored = 0;
    Constant neverGrows({10, 10});
    box = FitRootBox("x", style, stored, neverGrows);
    EXPECT_EQ(box.fontSize, kMindMapMaxFontSize);
    EXPECT_EQ(box.measurements, kMindMapMaxFontSize - 20 + 1);

    stored = 1; // raised to 100 / 2, which text and margins never fit
    Constant neverShrinks({100, 10});
    box = FitRootBox("x", style, stored, neverShrinks);
    EXPECT_EQ(stored, 50);
    EXPECT_EQ(box.fontSize, kMindMapMinFontSize);
    EXPECT_EQ(box.measurements, 20);
}

TEST_F(MindMapLayoutTest, ChildrenSplitIntoHalvesLevelsGoOutwardsAndCollapsedBranchesAreMarked) {
    Build({{0, kKindProject, "R"},
           {1, kKindProject, "A"},
           {2, kKindTask, "a1"},
           {2, kKindTask, "a2"},
           {1, kKindTask, "B"},
           {1, kKindProject, "C"},
           {2, kKindTask, "c1"},
           {1, kKindNote, "D"},
           {1, kKindTask, "E"}});
    EXPECT_EQ(Box("A").side, MapSide::Right);
    EXPECT_EQ(Box("C").side, MapSide::Right);
    EXPECT_EQ(Box("D").side, MapSide::Left);
    EXPECT_EQ(Box("c1").side, MapSide::Right);
    const MapRect root = Box("R").rect;
    EXPECT_EQ(root.Centre(), (MapPoint{0, 0}));
    EXPECT_GT(Box("a1").rect.x, Box("A").rect.Right());
    EXPECT_LT(Box("D").rect.Right(), root.x);
    EXPECT_LT(Box("A").rect.Bottom(), Box("B").rect.y) << "stacked in list order";
    EXPECT_LT(Box("D").rect.Bottom(), Box("E").rect.y);
    EXPECT_EQ(Box("a1").rect.x, Box("a2").rect.x);
    EXPECT_EQ(Box("a2").rect.y - Box("a1").rect.Bottom(), layout.StackGap());
    EXPECT_EQ(layout.LineStart(BoxOf("a1")), (MapPoint{Box("a1").rect.x, Box("a1").rect.Centre().y}));
    EXPECT_EQ(layout.LineEnd(BoxOf("a1")), (MapPoint{Box("A").rect.Right() - 1, Box("A").rect.Centre().y}));
    EXPECT_EQ(layout.LineEnd(BoxOf("D")), (MapPoint{root.x, 0}));
    EXPECT_FALSE(Box("A").collapsed);
    first->m_strTitle = "RRR";
    Relayout();
    EXPECT_EQ(layout.Root().width, 16) << "the root box kept its width from the title R";

    Find(first, "A")->m_bExpanded = 0;
    Relayout();
    EXPECT_EQ(layout.Count(), 7);
    EXPECT_EQ(BoxOf("a1"), -1);
    EXPECT_TRUE(Box("A").collapsed && Box("A").hasChildren);
    EXPECT_FALSE(Box("B").hasChildren);
    EXPECT_TRUE(layout.Extent().Contains({layout.MarkRect(BoxOf("A")).Right() - 1, 0}));
    first->m_bExpanded = 0;
    Relayout();
    EXPECT_EQ(layout.Count(), 1) << "a collapsed root shows itself alone";
    EXPECT_TRUE(layout.Box(0).collapsed);
}

TEST_F(MindMapLayoutTest, RandomOutlinesGiveTheSameMapTwiceWithoutOverlapsAndEveryShownNodeOnce) {
    std::mt19937 random(18);
    for (int round = 0; round < 40; ++round) {
        FreeNodeList(first);
        first = BuildList({{0, kKindProject, "Wurzel"}});
        CProjectNode* tail = first;
        int level = 0;
        const int count = 1 + int(random() % 120);
        for (int i = 0; i < count; ++i) {
            level = std::max(1, level + int(random() % 4) - 2 + (round % 5 == 0 ? 2 : 0)); // jumps too
            auto* node = new CProjectNode();
            node->m_nLevel = level;
            node->m_bSelected = 0;
            node->m_bExpanded = random() % 6 != 0;
            node->m_bBold = random() % 3 == 0;
            node->m_strTitle = Titled(random() % 30);
            node->m_pPrev = tail;
            tail = tail->m_pNext = node;
        }
        RecomputeVisibility(first);
        Relayout();
        const std::vector<MindMapBox> once = layout.Boxes();
        Relayout();
        ASSERT_EQ(layout.Boxes().size(), once.size());
        int shown = 0;
        for (const CProjectNode* node = first; node; node = node->m_pNext)
            shown += node->m_bVisible;
        ASSERT_EQ(layout.Count(), shown) << "round " << round;
        for (int i = 0; i < layout.Count(); ++i) {
            const MindMapBox& box = layout.Box(i);
            ASSERT_EQ(box.rect, once[size_t(i)].rect);
            EXPECT_GT(box.rect.w, 0);
            EXPECT_EQ(layout.BoxAt(box.rect.Centre()), i);
            for (int j = i + 1; j < layout.Count(); ++j) {
                ASSERT_FALSE(box.rect.Intersects(layout.Box(j).rect))
                    << "round " << round << ": " << i << "/" << j;
                ASSERT_FALSE(layout.MarkRect(i).Intersects(layout.Box(j).rect)) << "round " << round;
            }
        }
    }
}

TEST_F(MindMapLayoutTest, PointsFindBoxesAndMarksAndArrowKeysLeadAlongTheMap) {
    Build({{0, kKindProject, "R"},
           {1, kKindProject, "A"},
           {2, kKindTask, "a1"},
           {2, kKindTask, "a2"},
           {1, kKindProject, "B"},
           {2, kKindTask, "b1"},
           {1, kKindProject, "C"},
           {2, kKindTask, "c1"},
           {1, kKindNote, "D"}});
    const MapRect a = Box("A").rect;
    EXPECT_EQ(TitleOf(layout.BoxAt({a.x, a.y})), "A");
    EXPECT_EQ(layout.BoxAt({a.Right(), a.y}), -1) << "right edge excluded";
    EXPECT_EQ(layout.MarkAt({a.x, a.y}), -1);
    EXPECT_EQ(TitleOf(layout.MarkAt(layout.MarkRect(BoxOf("A")).Centre())), "A");
    EXPECT_EQ(TitleOf(layout.MarkAt(layout.MarkRect(0).Centre())), "R");
    EXPECT_EQ(layout.BoxAt(layout.MarkRect(BoxOf("A")).Centre()), -1);

    using Step = MindMapLayout::Step;
    const auto go = [&](const std::string& from, Step step) {
        return TitleOf(layout.Neighbour(BoxOf(from), step));
    };
    EXPECT_EQ(go("R", Step::Right), "A");
    EXPECT_EQ(go("R", Step::Left), "C");
    EXPECT_EQ(go("R", Step::Up), "-");
    EXPECT_EQ(go("A", Step::Down), "B");
    EXPECT_EQ(go("a2", Step::Down), "b1") << "on to the next branch at the same depth";
    EXPECT_EQ(go("b1", Step::Up), "a2");
    EXPECT_EQ(go("C", Step::Down), "D");
    EXPECT_EQ(go("C", Step::Up), "-") << "the sides do not mix";
    EXPECT_EQ(go("a1", Step::Left), "A");
    EXPECT_EQ(go("A", Step::Left), "R");
    EXPECT_EQ(go("C", Step::Left), "c1") << "outwards on the left is to the left";
    EXPECT_EQ(go("c1", Step::Right), "C");
    EXPECT_EQ(go("a1", Step::Right), "-");
    EXPECT_EQ(layout.SelectedAtBuild(), 0);
}

TEST_F(MindMapLayoutTest, OnlyBoxesAndLinesInViewAreGivenAndAFanOfLinesOnlyOnce) {
    Build({{0, kKindProject, "R"}});
    AppendCopies(first, 1); // one child
    first->m_pNext->m_nLevel = 1;
    AppendCopies(first->m_pNext, 1999);
    Relayout();
    ASSERT_EQ(layout.Count(), 2001);
    const MapRect rootRect = layout.Box(0).rect;
    const MapRect view{rootRect.x - 300, rootRect.y - 200, 600 + rootRect.w, 400};
    std::vector<int> boxes;
    layout.BoxesIn(view, boxes);
    EXPECT_LT(boxes.size(), 30u);
    EXPECT_EQ(boxes.front(), 0);
    for (int box : boxes)
        EXPECT_TRUE(layout.Box(box).rect.Intersects({view.x - 20, view.y - 20, view.w + 40, view.h + 40}));
    std::vector<MindMapLayout::Line> lines;
    layout.LinesIn(view, lines);
    EXPECT_LT(lines.size(), 300u) << "2000 lines leave the root, most cover the same pixels";
    EXPECT_GE(lines.size(), boxes.size() - 1);
    for (const auto& line : lines) {
        EXPECT_TRUE(view.Contains(line.from) && view.Contains(line.to));
        EXPECT_EQ(line.to, layout.LineEnd(line.box)) << "the root end lies in view";
    }
    layout.LinesIn({100000, 100000, 10, 10}, lines);
    EXPECT_TRUE(lines.empty());
}

TEST_F(MindMapLayoutTest, TitlesAreMeasuredAgainOnlyWhenTitleFormatOrSizeChanged) {
    Build({{0, kKindProject, "R"}, {1, kKindTask, "a"}, {1, kKindTask, "b"}, {1, kKindTask, "c"}});
    const int rootSteps = layout.Root().measurements;
    const int before = measurer.calls;
    Relayout();
    EXPECT_EQ(measurer.calls - before, rootSteps) << "only the root is fitted again";
    Find(first, "a")->m_strTitle = "aaaa";
    Find(first, "b")->m_bBold = 1;
    Relayout();
    EXPECT_EQ(measurer.calls - before, 2 * rootSteps + 2);
    EXPECT_EQ(Box("aaaa").rect.w, 4 * 10 + 2 * 8);
    const int atTwenty = measurer.calls;
    layout.Build(first, 30, measurer);
    EXPECT_EQ(measurer.calls - atTwenty, layout.Root().measurements + 3) << "a new size measures all";
    AppendCopies(Find(first, "c"), 99);
    Relayout();
    EXPECT_EQ(layout.Extents().Size(), 102u);
    first->m_bExpanded = 0;
    Relayout();
    EXPECT_EQ(layout.Extents().Size(), 0u) << "the extents of a large folded branch are forgotten";
}

TEST_F(MindMapLayoutTest, DamagedListsAndDeepChainsAreLaidOut) {
    Build(
        {{2, kKindProject, "R"}, {5, kKindTask, "deep"}, {0, kKindProject, "shallow"}, {1, kKindTask, "s1"}});
    EXPECT_EQ(Box("deep").parent, 0);
    EXPECT_EQ(Box("shallow").parent, 0) << "no deeper than the root: the root's child";
    EXPECT_EQ(TitleOf(Box("s1").parent), "shallow");
    FreeNodeList(first);
    first = BuildList({{0, kKindProject, "R"}});
    CProjectNode* tail = first;
    for (int i = 1; i <= 100000; ++i) {
        AppendCopies(tail, 1);
        tail = tail->m_pNext;
        tail->m_nLevel = i;
    }
    Relayout(); // no recursion that a chain this deep could overflow
    EXPECT_EQ(layout.Count(), 100001);
    EXPECT_GT(layout.Box(100000).rect.x, layout.Box(99999).rect.Right());
}

} // namespace velto
