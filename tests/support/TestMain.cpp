// Test entry point for the Qt-free tests: pins the German locale and takes it as the application
// does at start-up (Qt calls setlocale(LC_ALL, "")), so number and time code is tested under it.
#include "support/TestEnvironment.h"
#include <clocale>
#include <ctime>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    velto::testenv::Pin();
    std::setlocale(LC_ALL, "");
    tzset();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
