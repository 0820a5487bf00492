// Test entry point for the widget tests: one QApplication on the platform ctest selects (offscreen).
#include "support/TestEnvironment.h"
#include <QApplication>
#include <ctime>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    velto::testenv::Pin();
    QApplication app(argc, argv);
    tzset();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
