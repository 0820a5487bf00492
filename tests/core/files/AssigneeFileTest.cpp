// "Bearbeiter.dat": presets as carriage-return-terminated tokens with marked blanks.
#include "files/AssigneeFile.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

namespace velto {

namespace {

using Presets = std::vector<std::string>;

TEST(AssigneeFormat, BlanksAreMarkedAndAnEmptyPresetLeavesOnlyItsSeparator) {
    const Presets presets{"Max Muster", "", "M\xFCller  GmbH"};
    EXPECT_EQ(FormatAssignees(presets), "Max#~*Muster\r\rM\xFCller#~*#~*GmbH\r");
    EXPECT_EQ(ParseAssignees(FormatAssignees(presets)), (Presets{"Max Muster", "M\xFCller  GmbH"}));
}

TEST(AssigneeParse, AnyWhiteSpaceSeparatesAndTheLastTokenNeedsASeparator) {
    const std::pair<std::string, Presets> cases[] = {
        {"a\nb\tc d\r\re#~*f\r", {"a", "b", "c", "d", "e f"}}, {"a\rb", {"a"}}, {"", {}}, {" \r\n", {}},
        {"#~#~*\r#~*~*\r#~*#~*\r", {"#~ ", " ~*", "  "}}, // the marker is replaced left to right
    };
    for (const auto& [bytes, presets] : cases)
        EXPECT_EQ(ParseAssignees(bytes), presets) << bytes;
    // Texts that look like part of a marker come back unchanged through a save.
    for (const std::string text : {"#~ ", " ~*", "# *"})
        EXPECT_EQ(ParseAssignees(FormatAssignees({text})), Presets{text}) << text;
}

TEST(AssigneeFile, SavedPresetsComeBackAndContentMeansAtLeastOneByte) {
    testsupport::TempDir dir;
    const std::string path = dir.PathOf("Bearbeiter.dat");
    EXPECT_FALSE(ReadAssigneeFile(path).hasContent);
    ASSERT_TRUE(SaveAssignees(path, {"Anna", "Bernd Bau"}));
    EXPECT_EQ(ReadAssigneeFile(path).presets, (Presets{"Anna", "Bernd Bau"}));
    testsupport::WriteFile(path, "");
    EXPECT_FALSE(ReadAssigneeFile(path).hasContent);
    testsupport::WriteFile(path, "\r");
    EXPECT_TRUE(ReadAssigneeFile(path).hasContent);
    EXPECT_TRUE(ReadAssigneeFile(path).presets.empty());
}

} // namespace

} // namespace velto
