// Work kept when the program ends unasked: the first folder that takes the
// file whole, then the next; a box that says where, or that it could not be.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "EditorHarness.h"
#include "runtime/TextFiles.h"
#include "shell/FatalEndSaves.h"
#include "support/SmallDisk.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;
using testing::EditorHarness;
using testing::Harness;
using testing::SmallDisk;
using testing::contentOf;


TEST(Recovery, TheFoldersAreTheScoresTheDataFolderThenTheStateFolderOrHome) {
    EXPECT_EQ(recoveryFolders("/d/", "/s", "/h"),
              (std::vector<std::string>{"/d/演奏记录/", "/d/", "/s/tessaly/"}));
    EXPECT_EQ(recoveryFolders("/d/", "", "/h"), (std::vector<std::string>{"/d/演奏记录/", "/d/", "/h/"}));
}

TEST(Recovery, AFolderThatCannotTakeTheFilePassesItOnAndTheBoxSaysWhere) {
    Harness h;
    const std::string base = (h.appDir / "r").string();
    fs::create_directories(base + "/b");
    std::ofstream(base + "/blocked");  // a file where the first folder should be
    const auto saved = keepRecovered({base + "/blocked/", base + "/b/"}, "乐谱框中的乐谱", "恢复的乐谱", ".txt", "KC8\r\n");
    EXPECT_EQ(saved.path, base + "/b/恢复的乐谱.txt");
    EXPECT_EQ(contentOf(saved.path), "KC8\r\n");
    EXPECT_EQ(savedWorkText({saved}, base + "/"), "乐谱框中的乐谱已保存为：b/恢复的乐谱.txt");

    const auto lost = keepRecovered({base + "/blocked/"}, "乐谱框中的乐谱", "恢复的乐谱", ".txt", "KC8");
    EXPECT_EQ(lost.path, "");
    EXPECT_EQ(savedWorkText({lost}), "乐谱框中的乐谱无法保存（文件未找到）");
}

TEST(Recovery, AFullDiskLeavesNoShortFileAndTheNextFolderTakesIt) {
    SmallDisk disk;
    TESSALY_NEEDS_SMALL_DISK(disk);
    Harness h;
    disk.fill();
    const std::string text(64 * 1024, 'K');
    const auto saved = keepRecovered({disk.file("演奏记录") + "/", h.appDir.string() + "/"}, "乐谱框中的乐谱",
                                     "恢复的乐谱", ".txt", text);
    EXPECT_EQ(saved.path, h.appDir.string() + "/恢复的乐谱.txt");
    EXPECT_EQ(contentOf(saved.path), text);
    EXPECT_FALSE(fs::exists(disk.file("演奏记录/恢复的乐谱.txt")));
}

// The entry window's text is kept beside the score box's.
TEST(Recovery, TheEntryWindowsTextIsKeptAsItStands) {
    Harness h;
    h.app->form1.Text3.setText("KC8KD4");
    h.app->YYLR.Text1.setText("VS5\r\nKC8KD8");
    const auto saved = h.app->fatalEndSaves.runAll();
    ASSERT_EQ(saved.size(), 2u);
    EXPECT_EQ(contentOf(saved[1].path), "VS5\r\nKC8KD8");
    EXPECT_EQ(savedWorkText(saved, h.appDir.string() + "/"),
              "乐谱框中的乐谱已保存为：演奏记录/恢复的乐谱.txt\n乐谱录入窗口中的文字已保存为：演奏记录/恢复的乐谱录入.txt");
}

// An answer of -1 to the bar count leaves bar 0 with its notes outside
// BarCount: the recovery keeps it all the same.
TEST(Recovery, EveryBarThatHoldsAnythingIsKeptWhateverTheBarCount) {
    EditorHarness h;
    h.writeNotes(0, "KCKDKE");
    h.dialogs.queueInputAnswer("-1");
    h.yybj.commands().ZDXJZS.userClick();
    ASSERT_EQ(h.song.BarCount, -1);
    const auto saved = h.editor.saveForRecovery({h.appDir.string() + "/演奏记录/"});
    ASSERT_TRUE(saved);
    const std::vector<std::string> lines = splitLines(contentOf(saved->path));
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_NE(contentOf(saved->path).find("KCKDKE"), std::string::npos);
}

}  // namespace
}  // namespace tessaly
