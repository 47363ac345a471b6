#include <gtest/gtest.h>

#include "ui/GuardedApplication.h"
#include "ui/InstrumentStyle.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // CTest lists the tests at build time, where there is no display to open.
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    tessaly::GuardedApplication application(argc, argv);
    tessaly::GuardedApplication::setFont(tessaly::instrumentFont());
    return RUN_ALL_TESTS();
}
