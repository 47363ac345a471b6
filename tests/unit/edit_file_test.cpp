// Edit files: the song written and read, and the song kept at a fatal end.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "EditorHarness.h"
#include "editor/EditFiles.h"
#include "runtime/TextFiles.h"

using namespace tessaly;
using tessaly::testing::EditorHarness;

namespace {

std::string readBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeLines(const std::string& path, const std::vector<std::string>& lines) {
    std::ofstream out(path, std::ios::binary);
    for (const std::string& line : lines) out << line << "\r\n";
}

void save(EditorHarness& h, const std::string& name) {
    h.dialogs.queueFileAnswer(h.file(name));
    h.yybj.commands().BCBJ.userClick();
}

void open(EditorHarness& h, std::optional<std::string> name) {
    h.dialogs.queueFileAnswer(name ? std::optional<std::string>(h.file(*name)) : std::nullopt);
    h.yybj.commands().DkBianji.userClick();
}

// A block of 13 lines: the head, seven melody texts, five percussion texts.
std::vector<std::string> block(const std::string& head, const std::string& melody, const std::string& percussion) {
    std::vector<std::string> lines{head};
    for (int t = 0; t < 7; ++t) lines.push_back(melody);
    for (int t = 0; t < 5; ++t) lines.push_back(percussion);
    return lines;
}

}  // namespace

TEST(EditFiles, TheSaveNameReplacesOnlyAThreeLetterExtension) {
    EXPECT_EQ(editFileSavePath("/d/歌.txt"), "/d/歌.lnk");
    EXPECT_EQ(editFileSavePath("/d/歌"), "/d/歌.lnk");
    EXPECT_EQ(editFileSavePath("/d/x.lnk"), "/d/x.lnk");
    EXPECT_EQ(editFileSavePath("/d/曲子.mid"), "/d/曲子.lnk");
    EXPECT_EQ(editFileSavePath("/d/歌.text"), "/d/歌.text.lnk");
    EXPECT_EQ(editFileSavePath("abc"), std::nullopt);
}

TEST(EditFiles, GapsAreFilledBeforeTheDialogEvenWhenTheSaveIsCancelled) {
    EditorHarness h;
    h.song.SlotTokens(0, 0) = "KC";
    h.song.SlotTokens(1, 0) = "0X";  // sorts before "1"
    h.dialogs.queueFileAnswer(std::nullopt);
    h.yybj.commands().BCBJ.userClick();
    EXPECT_EQ(h.dialogs.lastRequest()->filter, "乐谱编辑|*.lnk");
    EXPECT_EQ(h.song.SlotTokens(1, 0), "--");
    EXPECT_EQ(h.song.SlotTokens(3, 3), "--");
    EXPECT_EQ(h.song.SlotTokens(3, 9), "-");
    EXPECT_EQ(h.song.BarStrings(0, 0), "KC" + std::string(30, '-'));
    EXPECT_EQ(h.song.BarHead[0], "0000");
    EXPECT_EQ(h.song.EditFilePath, "");
}

TEST(EditFiles, AFailedWriteLeavesNothingAndTheSongCanBeSavedAgain) {
    EditorHarness h;
    h.writeNotes(0, "KC");
    std::filesystem::create_directories(h.file("占用.lnk"));  // a folder where the file would go
    save(h, "占用");
    EXPECT_TRUE(std::filesystem::is_directory(h.file("占用.lnk")));
    EXPECT_FALSE(std::filesystem::exists(h.file("占用.lnk.new")));
    save(h, "好.lnk");
    EXPECT_EQ(splitLines(readBytes(h.file("好.lnk"))).size(), 13u);
}

TEST(EditFiles, PercussionGapsStayEmptyAndACutBlockTakesOlderLines) {
    EditorHarness h;
    auto first = block("0000", std::string(32, '-'), std::string(16, '-'));
    auto second = block("0001", "KD", "-");
    first.insert(first.end(), second.begin(), second.end());
    writeLines(h.file("long.lnk"), first);
    open(h, "long.lnk");
    EXPECT_EQ(h.song.BarCount, 1);
    EXPECT_EQ(h.song.SlotTokens(17, 0), "--");  // a melody gap becomes "--"
    EXPECT_EQ(h.song.SlotTokens(17, 7), "");    // a percussion gap stays empty

    std::vector<std::string> cut = block("0000", "KC", std::string(16, '-'));
    cut.push_back("0001");
    cut.push_back("KE");
    cut.push_back("KF");
    writeLines(h.file("cut.lnk"), cut);
    open(h, "cut.lnk");
    EXPECT_EQ(h.song.BarCount, 1);
    EXPECT_EQ(h.song.BarStrings(1, 1), "KF");
    EXPECT_EQ(h.song.BarStrings(1, 2), "KD");  // line 17 is still the older file's
    EXPECT_EQ(h.song.SlotTokens(0, 0), "KC");
}

TEST(EditFiles, AnEmptyFileLeavesBarCountMinusOneAndNoSlots) {
    EditorHarness h;
    writeLines(h.file("empty.lnk"), {});
    open(h, "empty.lnk");
    EXPECT_EQ(h.song.BarCount, -1);
    EXPECT_EQ(h.song.LoadedSlots, 0);
    EXPECT_EQ(h.song.SlotsPerBarMinusOne, -1);
    EXPECT_EQ(h.yybj.bar().DJY1.count(), 1u);  // the grid has only its first box
    EXPECT_EQ(h.song.LastSlotIndex, -1);
    save(h, "still.lnk");
    EXPECT_EQ(readBytes(h.file("still.lnk")), "");
}

TEST(EditFiles, ThreeLinesPast769BarsFailSilentlyWithTheSongCleared) {
    EditorHarness h;
    // One slot a bar, so that 769 bars fit the tables.
    std::vector<std::string> lines;
    for (int bar = 0; bar < 769; ++bar) {
        auto one = block(std::to_string(bar), "KC", "O");
        lines.insert(lines.end(), one.begin(), one.end());
    }
    writeLines(h.file("most.lnk"), lines);
    open(h, "most.lnk");
    EXPECT_EQ(h.song.BarCount, 768);
    EXPECT_EQ(h.song.LoadedSlots, 1);
    EXPECT_EQ(h.song.SlotTokens(768, 0), "KC");

    for (int extra = 0; extra < 4; ++extra) lines.push_back("KC");
    writeLines(h.file("toolong.lnk"), lines);  // 10001 lines
    open(h, "toolong.lnk");
    EXPECT_EQ(h.song.BarCount, 0);
    EXPECT_EQ(h.song.SlotTokens(768, 0), "");
    EXPECT_EQ(h.song.FileLine[9999], "KC");  // read up to where the buffer ends
}

TEST(EditFiles, AFileLongerThanTheTablesReadsWhatFitsAndTheNextClearingIsFatal) {
    EditorHarness h;
    std::vector<std::string> lines;
    for (int bar = 0; bar < 700; ++bar) {
        auto one = block(std::to_string(bar), "KC" + std::string(30, '-'), std::string(16, '-'));
        lines.insert(lines.end(), one.begin(), one.end());
    }
    writeLines(h.file("big.lnk"), lines);
    open(h, "big.lnk");
    // Slot 10000 is bar 625's first: the rebuild ends there, the song counting 700 bars.
    EXPECT_EQ(h.song.BarCount, 699);
    EXPECT_EQ(h.song.SlotTokens(624 * 16, 0), "KC");
    EXPECT_EQ(h.yybj.bar().HScroll1.max(), 200);  // the rebuild never reached the screen
    // What a fatal end keeps of it is what the tables hold.
    auto kept = h.editor.saveForRecovery({h.file("")});
    ASSERT_TRUE(kept);
    EXPECT_EQ(splitLines(readBytes(kept->path)).size(), 625u * 13);
    // Clearing runs to the song's last bar, outside the open's trap.
    EXPECT_THROW(h.yybj.commands().DkBianji.userClick(), FatalFailure);
}

TEST(EditFiles, ACancelledOpenReadsTheNameTheDialogStillHolds) {
    EditorHarness h;
    writeLines(h.file("a.lnk"), block("0000", "KG", "O"));
    open(h, "a.lnk");
    EXPECT_EQ(h.dialogs.lastRequest()->filter, "编辑记录|*.lnk");
    h.song.BarCount = 3;
    open(h, std::nullopt);
    EXPECT_EQ(h.song.BarCount, 0);
    EXPECT_EQ(h.song.SlotTokens(0, 0), "KG");
    EXPECT_EQ(h.song.EditFilePath, h.file("a.lnk"));
}

TEST(EditFiles, AScoreTakenForAnEditFileEndsQuietly) {
    EditorHarness h;
    writeLines(h.file("score.txt"), {"KC8KD8KE8TZ"});
    open(h, "score.txt");
    // Its one line is bar 0's settings, which no list can take: the open ends there.
    EXPECT_EQ(h.song.BarHead[0], "KC8KD8KE8TZ");
    EXPECT_EQ(h.song.BarCount, 0);
    EXPECT_TRUE(h.yybj.visible());
}

TEST(EditorRecovery, TheSongIsKeptUnderARecoveredNameNeverOverAnEarlierOne) {
    EditorHarness h;
    EXPECT_FALSE(h.editor.saveForRecovery({h.file("")}));  // an empty song has nothing to keep
    h.writeNotes(0, "KCKD");
    h.hit(3, 1);
    auto saved = h.app->fatalEndSaves.runAll();
    ASSERT_EQ(saved.size(), 1u);
    EXPECT_EQ(saved[0].path, h.file("恢复的编辑记录.lnk"));
    auto lines = splitLines(readBytes(saved[0].path));
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(lines[0], "0000");
    EXPECT_EQ(lines[1], "KCKD" + std::string(28, '-'));
    EXPECT_EQ(lines[10], "-O--------------");
    EXPECT_EQ(h.song.BarHead[0], "");  // the song itself is not touched
    auto again = h.editor.saveForRecovery({h.file("")});
    ASSERT_TRUE(again);
    EXPECT_EQ(again->path, h.file("恢复的编辑记录(2).lnk"));

    // A song stretched past the tables is kept up to its last whole bar.
    h.yybj.settings().JPFL[2].userClick();
    h.dialogs.queueInputAnswer("400");
    h.yybj.commands().ZDXJZS.userClick();
    auto stretched = h.editor.saveForRecovery({h.file("")});
    ASSERT_TRUE(stretched);
    EXPECT_EQ(splitLines(readBytes(stretched->path)).size(), 312u * 13);
}
