// "Bearbeiter.dat": presets as carriage-return-terminated tokens, and saving with the backup.
#include "files/AssigneeFile.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

namespace velto {

using testsupport::TempDir;
using testsupport::WriteFile;

namespace {

using Presets = std::vector<std::string>;

TEST(AssigneeFormat, TwoWordPresetsAreJoinedByTheMarkerAndComeBack) {
    const std::string bytes = FormatAssignees({"Max Muster", "Bau", "M\xFCller  GmbH"});
    EXPECT_EQ(bytes, "Max#~*Muster\rBau\rM\xFCller#~*#~*GmbH\r");
    EXPECT_EQ(ParseAssignees(bytes), (Presets{"Max Muster", "Bau", "M\xFCller  GmbH"}));
}

TEST(AssigneeFormat, AnEmptyPresetLeavesOnlyASeparatorAndIsNotReadBack) {
    EXPECT_EQ(FormatAssignees({"", "A"}), "\rA\r");
    EXPECT_EQ(ParseAssignees(FormatAssignees({"", "A"})), Presets{"A"});
}

TEST(AssigneeParse, AnyWhiteSpaceSeparatesAndTheLastTokenNeedsASeparator) {
    EXPECT_EQ(ParseAssignees("a\nb\tc d\r\re#~*f\r"), (Presets{"a", "b", "c", "d", "e f"}));
    EXPECT_EQ(ParseAssignees("a\rb"), Presets{"a"});
    EXPECT_TRUE(ParseAssignees("").empty());
    EXPECT_TRUE(ParseAssignees(" \r\n").empty());
}

TEST(AssigneeParse, TheMarkerIsReplacedLeftToRight) {
    EXPECT_EQ(ParseAssignees("#~#~*\r#~*~*\r#~*#~*\r"), (Presets{"#~ ", " ~*", "  "}));
    // Each of these comes back unchanged through a save.
    for (const std::string& text : ParseAssignees("#~#~*\r#~*~*\r##~**\r"))
        EXPECT_EQ(ParseAssignees(FormatAssignees({text})), Presets{text});
}

TEST(AssigneeFile, SavedPresetsComeBackAndContentMeansAtLeastOneByte) {
    TempDir dir;
    const std::string path = dir.PathOf("Bearbeiter.dat");
    EXPECT_FALSE(ReadAssigneeFile(path).hasContent);
    ASSERT_TRUE(SaveAssignees(path, {"Anna", "Bernd Bau"}));
    EXPECT_EQ(ReadAssigneeFile(path).presets, (Presets{"Anna", "Bernd Bau"}));
    WriteFile(path, "");
    EXPECT_FALSE(ReadAssigneeFile(path).hasContent);
    WriteFile(path, "\r");
    EXPECT_TRUE(ReadAssigneeFile(path).hasContent);
    EXPECT_TRUE(ReadAssigneeFile(path).presets.empty());
}

} // namespace

} // namespace velto
