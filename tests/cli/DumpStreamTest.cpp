// velto-cli dump hands its JSON over a megabyte at a time: a project of several megabytes comes back
// byte for byte through build.
#include "CliCommands.h"
#include "core/outline/OutlineTestSupport.h"
#include "document/ProjectFile.h"
#include "support/TempDir.h"

#include <sstream>

namespace velto {
namespace {

class DumpStream : public testsupport::TempDirTest {};

TEST_F(DumpStream, AProjectOfSeveralMegabytesComesBackByteForByte) {
    ProjectContent content;
    content.firstNode =
        charttest::BuildList({{0, kKindProject, "R"}, {1, kKindTask, "A"}, {1, kKindTask, "B"}});
    int n = 0;
    for (CProjectNode* node = content.firstNode; node; node = node->m_pNext)
        node->m_strNote = std::string(1500000, char('a' + n++)) + "\"\\\n\x01\xE4"; // escapes at the end
    const std::vector<uint8_t> bytes = WriteProject(content);
    testsupport::WriteFile(PathOf("a.VT5"), bytes);

    std::ostringstream json, err;
    ASSERT_EQ(RunCommandLine({"dump", PathOf("a.VT5")}, json, err), 0) << err.str();
    ASSERT_GT(json.str().size(), 4500000u);
    testsupport::WriteFile(PathOf("a.json"), json.str());
    std::ostringstream out;
    ASSERT_EQ(RunCommandLine({"build", PathOf("a.json"), PathOf("b.VT5")}, out, err), 0) << err.str();
    EXPECT_EQ(testsupport::ReadFileBytes(PathOf("b.VT5")), bytes);
}

} // namespace
} // namespace velto
