// What the user is told when a file fails: the file's own name and the cause
// in words, and what was there is kept.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "Harness.h"
#include "chords/PatternFile.h"
#include "runtime/FatalFailure.h"
#include "runtime/FileAccess.h"
#include "runtime/TextFiles.h"
#include "support/SmallDisk.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;
using testing::Harness;
using testing::SmallDisk;
using testing::contentOf;


std::string failureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const FatalFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

TEST(FileFailures, ReadersRefuseWhatIsNoRegularFileAndWhatIsTooLong) {
    Harness h;
    const std::string fifo = (h.appDir / "管道").string();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    int error = 0;
    EXPECT_FALSE(readFileBytes(fifo, 100, &error));  // would wait for a writer if opened plainly
    EXPECT_EQ(fileErrorText(error), "不是普通文件");
    const std::string file = (h.appDir / "长").string();
    std::ofstream(file) << std::string(101, 'x');
    EXPECT_FALSE(readFileBytes(file, 100, &error));
    EXPECT_EQ(error, kFileTooLong);
    EXPECT_EQ(readFileBytes(file, 101, &error)->size(), 101u);
    EXPECT_FALSE(readFileBytes((h.appDir / "无").string(), 100, &error));
    EXPECT_EQ(fileFailureMessage("无", error), "无：文件未找到");
}

// A listing passes over a link that loops instead of giving up on the folder.
TEST(FileFailures, AListingPassesOverWhatCannotBeExamined) {
    Harness h;
    const fs::path folder = h.appDir / "列表";
    fs::create_directories(folder);
    fs::create_symlink("环", folder / "环");
    std::ofstream(folder / "a.bin") << "x";
    const auto files = regularFilesIn(folder);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].filename(), "a.bin");
}

TEST(FileFailures, TheChordPagesSaveOnAReadOnlyDiskSaysSoAndKeepsTheFile) {
    SmallDisk disk;
    TESSALY_NEEDS_SMALL_DISK(disk);
    Harness h;
    const std::string folder = disk.file("") ;
    fs::copy_file(h.appDir / "HxJzMx.txt", folder + "HxJzMx.txt");
    const std::string before = contentOf(folder + "HxJzMx.txt");
    ASSERT_TRUE(disk.makeReadOnly());
    h.app->state.AppDir = folder;
    h.app->form1.chordPage.Text4.setText("CCCCCCCCCCCCCCCC");
    h.log.take();
    h.app->form1.chordPage.Command4.userClick();
    EXPECT_EQ(h.log.take(), (std::vector<std::string>{"box 提示|无法保存和弦节奏：" + folder +
                                                      "HxJzMx.txt：磁盘只读"}));
    EXPECT_EQ(contentOf(folder + "HxJzMx.txt"), before);
}

TEST(FileFailures, ARefusedDeleteOfAScoreSaysWhyNotThatTheFileIsMissing) {
    SmallDisk disk;
    TESSALY_NEEDS_SMALL_DISK(disk);
    Harness h;
    std::ofstream(disk.file("乐谱.txt")) << "KC8";
    ASSERT_TRUE(disk.makeReadOnly());
    h.app->state.FilePathInUse = disk.file("乐谱.txt");
    EXPECT_EQ(failureOf([&] { h.app->form1.Yuepu[1].userClick(); }),
              "无效的过程调用或参数（磁盘只读：" + disk.file("乐谱.txt") + "）");
}

TEST(FileFailures, APatternFileOfMoreThanAThousandLinesIsNamedInTheFailure) {
    Harness h;
    std::string lines;
    for (int i = 0; i < 1001; ++i) lines += "LC------LC------\r\n";
    const std::string path = (h.appDir / "HxJzMx.txt").string();
    std::ofstream(path, std::ios::binary | std::ios::trunc) << lines;
    EXPECT_EQ(failureOf([&] { PatternFile(h.appDir.string() + "/").readInto(h.app->chordState); }),
              "下标越界（超过 1000 行：" + path + "）");
}

}  // namespace
}  // namespace tessaly
