// A score file longer than a score can be fails with the player's overflow
// before any box is handed its text, and a huge file is never read whole.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "Harness.h"
#include "runtime/FatalFailure.h"

namespace tessaly {
namespace {

using testing::Harness;

std::string failureOfOpening(Harness& h, const std::string& path) {
    h.app->unansweredDialogs.queueFileAnswer(path);
    try {
        h.app->form1.Yuepu[2].userClick();
    } catch (const FatalFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

TEST(ScoreLength, AScoreLongerThanSixteenBitsFailsBeforeTheBoxHoldsIt) {
    Harness h;
    const std::string path = (h.appDir / "演奏记录" / "长.txt").string();
    std::ofstream(path, std::ios::binary) << std::string(1000000, 'K');
    EXPECT_EQ(failureOfOpening(h, path), "溢出（1000000）");
    EXPECT_EQ(h.app->form1.Text3.text(), "");

    // The longest a score can be still opens.
    std::ofstream(path, std::ios::binary | std::ios::trunc) << "KC8" << std::string(32767 - 5, 'X') << "TZ";
    EXPECT_EQ(failureOfOpening(h, path), "no failure");
    EXPECT_EQ(h.app->form1.Text3.length(), 32767u);
}

// A gigabyte of holes costs no memory to make, and would cost a gigabyte to read.
TEST(ScoreLength, AGigabyteScoreIsNotReadAndFailsTheSameWay) {
    Harness h;
    const std::string path = (h.appDir / "演奏记录" / "巨.txt").string();
    std::ofstream(path).close();
    ASSERT_EQ(::truncate(path.c_str(), 1LL << 30), 0);
    EXPECT_EQ(failureOfOpening(h, path), "溢出（1073741824）");
    EXPECT_EQ(h.app->form1.Text3.text(), "");
}

}  // namespace
}  // namespace tessaly
