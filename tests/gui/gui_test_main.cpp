#include <gtest/gtest.h>

#include "ui/ChineseTranslations.h"
#include "ui/GuardedApplication.h"
#include "ui/InstrumentStyle.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // CTest lists the tests at build time, where there is no display to open.
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    // As the program does: Qt's dialogs take the system's locale as Chinese.
    tessaly::useChineseSystemLocale();
    tessaly::GuardedApplication application(argc, argv);
    tessaly::GuardedApplication::setFont(tessaly::instrumentFont());
    return RUN_ALL_TESTS();
}
