// Test entry point for the widget tests: one QApplication on the platform ctest selects (offscreen).
#include "support/TestEnvironment.h"
#include <QApplication>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    velto::testenv::Pin();
    QApplication app(argc, argv);
    tzset();
    ::testing::InitGoogleTest(&argc, argv);
    // Clock-ins, presets and holidays written by the widgets go to a folder of the run, never the user's.
    std::string dataDir = (std::filesystem::temp_directory_path() / "velto-gui-data-XXXXXX").string();
    if (!mkdtemp(dataDir.data()))
        return 1;
    setenv("VELTO_DATA_DIR", dataDir.c_str(), 1);
    const int result = RUN_ALL_TESTS();
    std::filesystem::remove_all(dataDir);
    return result;
}
