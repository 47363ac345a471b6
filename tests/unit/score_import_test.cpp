#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "EditorHarness.h"
#include "analysis/ChordAddition.h"
#include "analysis/ScoreImport.h"
#include "runtime/FatalFailure.h"

using namespace tessaly;
using tessaly::testing::EditorHarness;

namespace {

void writeBytes(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << bytes;
}

// The user presses DRYP and answers its dialog; the import must end inside
// its own trap whatever the file holds.
void import(EditorHarness& h, std::optional<std::string> name) {
    h.dialogs.queueFileAnswer(name ? std::optional<std::string>(h.file(*name)) : std::nullopt);
    EXPECT_NO_THROW(h.yybj.commands().DRYP.userClick());
}

}  // namespace

TEST(ScoreImport, AnyFileEndsQuietlyAsTheScanSays) {
    EditorHarness h;
    // Binary bytes: NUL, control characters and bytes that are no UTF-8.
    std::string binary;
    for (int i = 0; i < 4096; ++i) binary += static_cast<char>((i * 37) & 0xFF);
    writeBytes(h.file("binary.txt"), binary);
    import(h, "binary.txt");
    EXPECT_EQ(h.song.BarCount, 0);

    // An old file in GB18030: "乐" is one character, so it takes "K" with it
    // into an unknown token and "KD" is lost, as it would be to any character.
    writeBytes(h.file("gb.txt"), "KC8\xC0\xD6KD8TZ\r\n");
    import(h, "gb.txt");
    EXPECT_EQ(h.app->state.ScoreText, "KC8乐KD8TZ");
    EXPECT_EQ(h.song.BarStrings(0, 0), "KC------TZ" + std::string(22, '-'));

    // Ten megabytes of lines that end in text no note follows: one pass, then
    // the scan fails with the boxes emptied and the song as far as it came.
    std::string big;
    while (big.size() < 10'000'000) big += "XZ1KC1你好\r\n";
    writeBytes(h.file("big.txt"), big);
    import(h, "big.txt");
    EXPECT_EQ(h.song.SlotTokens(0, 0), "--");
    EXPECT_EQ(h.yybj.bar().YF1[0].text(), "");

    EXPECT_TRUE(h.log.take().empty()) << "no box, no sound";
}

TEST(ScoreImport, AFileThatCannotBeReadEndsBeforeTheArrangement) {
    EditorHarness h;
    h.app->form1.Combo1.setListIndex(9);
    std::filesystem::create_directories(h.file("目录.txt"));
    for (const char* name : {"目录.txt", "没有.txt"}) {
        import(h, name);
        EXPECT_EQ(h.yybj.settings().SYYQ[4].listIndex(), 35) << name;
    }
    // An empty name skips the score and arranges the song as it stands: two bars here.
    h.dialogs.queueInputAnswer("1");
    h.yybj.commands().ZDXJZS.userClick();
    h.dialogs.queueFileAnswer("");
    h.yybj.commands().DRYP.userClick();
    EXPECT_EQ(h.yybj.settings().SYYQ[4].listIndex(), 9);
    EXPECT_EQ(h.song.SlotTokens(30, 4), chordStepToken(h.app->chordState.ChordStepTable(15, 1)));
    EXPECT_EQ(h.song.SlotTokens(31, 4), "");
    EXPECT_EQ(h.dialogs.lastRequest()->filter, "编辑记录txt|*.txt");
}

// A score that fills exactly 10000 slots finishes its scan: BarCount is taken
// from the slot reached first, and only then does the pass over the slots run
// past the tables and end the import in its trap, before the scroll bar and
// the bars are made. A save then meets the slot beyond the tables outside its
// own trap, and the program ends keeping the song.
TEST(ScoreImport, ASongOfExactlyTenThousandSlotsTakesItsBarCountBeforeTheScanFails) {
    EditorHarness h;
    std::string score;
    for (int i = 0; i < 204; ++i) score += "KC98";  // 49 slots each: 9996
    score += "KD08";                              // 4 more: slot 10000 reached
    writeBytes(h.file("full.txt"), score);
    const int maxBefore = h.yybj.bar().HScroll1.max();
    import(h, "full.txt");
    EXPECT_EQ(h.app->editor.scoreImport.state().ImportSlot, 10000);
    EXPECT_EQ(h.song.BarCount, 625);
    EXPECT_EQ(h.yybj.bar().HScroll1.max(), maxBefore);
    EXPECT_EQ(h.song.SlotTokens(9996, 0), "KD");

    h.dialogs.queueFileAnswer(h.file("saved.lnk"));
    try {
        h.yybj.commands().BCBJ.userClick();
        ADD_FAILURE() << "the save met no slot beyond the tables";
    } catch (const FatalFailure& failure) {
        EXPECT_STREQ(failure.what(), "下标越界（10000）");
    }
    const auto kept = h.editor.saveForRecovery({h.appDir.string() + "/演奏记录/"});
    ASSERT_TRUE(kept);
    EXPECT_NE(std::ifstream(kept->path).peek(), EOF);
}
