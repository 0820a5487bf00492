#pragma once
// Runs velto-cli's command line in-process in a temporary folder and collects its exit status and
// output.
#include "CliCommands.h"
#include "document/ProjectFile.h"
#include "support/TempDir.h"
#include "support/TestEnvironment.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace velto::clitest {

namespace fs = std::filesystem;

struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
};

using testsupport::ReadFile;
using testsupport::ReadFileBytes;
using testsupport::WriteFile;

class CliTest : public testsupport::TempDirTest {
protected:
    CliRun Run(const std::vector<std::string>& arguments) const {
        std::ostringstream out, err;
        CliRun run;
        run.status = RunCommandLine(arguments, out, err);
        run.out = out.str();
        run.err = err.str();
        return run;
    }
};

} // namespace velto::clitest
