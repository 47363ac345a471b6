#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "Harness.h"
#include "rhythm/RhythmFiles.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;
using testing::Harness;

// The header "05020A1E2400": volume entry 5 (100), metre 4/4, instruments
// 10, 30 and 36, reserved 00; then the rows of 16, 16 and 17 boxes.
const std::string kRowA = "*---*---*---*---";
const std::string kRowB = "--*---*---*---**";
const std::string kRowC = "*-*-*-*-*-*-*-*-*";
const std::string kHeader = "05020A1E2400";

// The program started with these files in its rhythm folder.
struct RhythmHarness : Harness {
    explicit RhythmHarness(const std::map<std::string, std::string>& files = {}) : Harness(false) {
        fs::create_directories(folder());
        for (const auto& [name, bytes] : files) std::ofstream(folder() / name, std::ios::binary) << bytes;
        app->start();
        while (!app->activated() && !app->ended()) loop.advance(1);
        midiPort.take();
        log.take();
    }
    fs::path folder() const { return appDir / "演奏记录"; }
    MainWindow& form() { return app->form1; }
    RhythmPage& page() { return app->form1.rhythmPage; }
    std::string rows() {
        std::string out;
        for (int k = 0; k < 3; ++k) {
            for (int s = 0; s <= (k == 2 ? 16 : 15); ++s) out += page().track(k)[s].value() == 1 ? "*" : "-";
            out += k < 2 ? "|" : "";
        }
        return out;
    }
    void load(const std::string& text) {
        app->state.RhythmFileText = text;
        app->rhythmFiles.OpenJZwj();
    }
    std::string bytesOf(const std::string& name) {
        std::ifstream in(folder() / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
};

TEST(RhythmFiles, SaveWritesSeventySevenCharactersNotBytes) {
    RhythmHarness h;
    h.load(kHeader + kRowA + kRowB + kRowC + "x");
    h.app->state.FilePathInUse = (h.folder() / "我的节奏.bin").string();
    h.app->rhythmFiles.SaveJZwj();

    const std::string bytes = h.bytesOf("我的节奏.bin");
    // The title with its extension, padded to 16 characters, then CR LF.
    EXPECT_EQ(bytes, kHeader + kRowA + kRowB + kRowC + "我的节奏.bin" + std::string(8, ' ') + "\r\n");
    EXPECT_EQ(charLength(bytes), 79u);
    EXPECT_EQ(bytes.size(), 79u + 4 * 2);  // four characters of three bytes in UTF-8

    // A long title is cut to 16 characters, blanks around it trimmed first.
    h.app->state.FilePathInUse = (h.folder() / "  一二三四五六七八九十一二三四五六.bin").string();
    h.app->rhythmFiles.SaveJZwj();
    EXPECT_EQ(charSubstr(h.bytesOf("  一二三四五六七八九十一二三四五六.bin"), 61), "一二三四五六七八九十一二三四五六\r\n");
}

TEST(RhythmFiles, PickingAFileLoadsItsFirstLineIntoThePageAndTheTable) {
    RhythmHarness h({{"a.bin", "00000000000000000000000000000000000000000000000000000000000000\r\n"},
                     {"b.bin", kHeader + kRowA + kRowB + kRowC + "b.bin           \r\nsecond line"}});
    h.form().Label11.onMouseMove(0, 0, 0, 0);
    EXPECT_TRUE(h.form().File1.visible());
    h.form().File1.userPick(1);

    EXPECT_EQ(h.app->state.RhythmFileText, kHeader + kRowA + kRowB + kRowC + "b.bin           ");
    EXPECT_EQ(h.form().Label11.caption(), "2★b.bin");
    EXPECT_FALSE(h.form().File1.visible());
    EXPECT_EQ(h.rows(), kRowA + "|" + kRowB + "|" + kRowC);
    EXPECT_EQ(h.form().VsbVol.text(), "100");
    EXPECT_TRUE(h.page().Option1[2].value());
    EXPECT_EQ(h.page().LblInst[0].listIndex(), 10);
    EXPECT_EQ(h.page().LblInst[1].listIndex(), 30);
    EXPECT_EQ(h.page().LblInst[2].listIndex(), 36);

    MidiOut& midi = h.app->midi;
    for (int s = 0; s <= 15; ++s) {
        EXPECT_EQ(midi.StepTable[s][0].On, kRowA[s] == '*' ? -1 : 0) << s;
        EXPECT_EQ(midi.StepTable[s][1].On, kRowB[s] == '*' ? -1 : 0) << s;
        EXPECT_EQ(midi.StepTable[s][2].On, kRowC[s] == '*' ? -1 : 0) << s;
        EXPECT_EQ(midi.StepTable[s][2].ShortMsg, MidiOut::percussionMessage(71, 100)) << s;
        EXPECT_EQ(midi.StepTable[s][0].Volume, 100) << s;
    }
    // The seventeenth box of the last row is stored and clicked into record 16 too.
    EXPECT_EQ(h.page().BZC[16].value(), 1);
    EXPECT_EQ(midi.StepTable[16][2].On, -1);
}

TEST(RhythmFiles, LoadingClearsTheSlotsOfTheEditorAndSavingRoundTrips) {
    RhythmHarness h;
    for (int s = 0; s <= 15; ++s) h.app->midi.StepTable[s][3].On = h.app->midi.StepTable[s][4].On = -1;
    const std::string line = "06010001022A" + kRowB + kRowA + kRowC;
    h.load(line + "n");
    EXPECT_EQ(h.app->midi.StepTable[5][3].On, 0);
    EXPECT_EQ(h.app->midi.StepTable[5][4].On, 0);
    EXPECT_EQ(h.app->state.RhythmLastStep, 11);
    // The reserved field is written as 00 whatever was read.
    EXPECT_EQ(h.app->rhythmFiles.patternLine("n"), "060100010200" + kRowB + kRowA + kRowC + "n" + std::string(15, ' '));
}

TEST(RhythmFiles, ShortTextsAreRefusedByCharacterCount) {
    RhythmHarness h;
    const std::string sixtyTwo = "000001020300" + std::string(50, '0');
    h.load(sixtyTwo.substr(0, 61));
    EXPECT_EQ(h.log.take(), std::vector<std::string>{"box 提示|打开节奏文件出错，请检查！"});
    EXPECT_EQ(h.page().LblInst[0].listIndex(), -1);  // nothing changed

    h.load(sixtyTwo);
    EXPECT_TRUE(h.log.take().empty());
    EXPECT_EQ(h.page().LblInst[0].listIndex(), 1);

    // 60 digits and one character that takes two bytes in GB18030: 61 characters.
    RhythmHarness gb({{"gb.bin", std::string(60, '0') + "\xBD\xDA"}});
    gb.form().File1.userPick(0);
    EXPECT_EQ(gb.app->state.RhythmFileText, std::string(60, '0') + "节");
    EXPECT_EQ(gb.log.take(), std::vector<std::string>{"box 提示|打开节奏文件出错，请检查！"});
}

TEST(RhythmFiles, CharactersAreNotChecked) {
    RhythmHarness h;
    // Not hexadecimal: value 0. The metre field is read in decimal, so "0A" is 0.
    h.load("G70A1Z0Q0000" + std::string(16, '#') + std::string(16, 'x') + std::string(17, '*') + "?");
    EXPECT_EQ(h.form().VsbVol.listIndex(), 0);
    EXPECT_EQ(h.form().VsbVol.text(), "50");
    EXPECT_TRUE(h.page().Option1[0].value());
    EXPECT_EQ(h.page().LblInst[0].listIndex(), 1);
    EXPECT_EQ(h.page().LblInst[1].listIndex(), 0);
    EXPECT_EQ(h.page().LblInst[2].listIndex(), 0);
    EXPECT_EQ(h.rows(), std::string(16, '-') + "|" + std::string(16, '-') + "|" + std::string(17, '*'));
}

TEST(RhythmFiles, AnIndexPastAListIsTheListsFatalFault) {
    const std::string rows = kRowA + kRowB + kRowC + "x";
    for (const char* header : {"080200000000", "050300000000", "05022F000000", "FF0200000000", "05-100000000"}) {
        RhythmHarness h;
        h.app->state.RhythmFileText = header + rows;
        EXPECT_THROW(h.app->rhythmFiles.OpenJZwj(), FatalFailure) << header;
    }
}

TEST(RhythmFiles, AVolumeTypedOutsideTheListShiftsTheSavedFields) {
    RhythmHarness h;
    h.load(kHeader + kRowA + kRowB + kRowC + "x");
    h.form().VsbVol.setText("95");
    EXPECT_EQ(h.app->midi.StepTable[0][0].Volume, 95);
    EXPECT_EQ(h.app->rhythmFiles.patternLine("x").substr(0, 14), "FFFF020A1E2400");
    // Read back, the first two characters name list entry 255.
    h.app->state.RhythmFileText = h.app->rhythmFiles.patternLine("x");
    EXPECT_THROW(h.app->rhythmFiles.OpenJZwj(), FatalFailure);
}

TEST(RhythmFiles, TheFirstFileIsLoadedAtStart) {
    RhythmHarness h({{"01慢四.bin", kHeader + kRowA + kRowB + kRowC + "01慢四.bin\r\n"}, {"02.bin", "short"}});
    EXPECT_EQ(h.form().Label11.caption(), "1★01慢四.bin");
    EXPECT_EQ(h.form().File1.listCount(), 2);
    // Read whole: the line end belongs to the text.
    EXPECT_EQ(h.app->state.RhythmFileText, kHeader + kRowA + kRowB + kRowC + "01慢四.bin\r\n");
    EXPECT_EQ(h.rows(), kRowA + "|" + kRowB + "|" + kRowC);

    RhythmHarness empty;
    EXPECT_EQ(empty.form().Label11.caption(), "");
    EXPECT_EQ(empty.form().File1.listCount(), 0);
}

TEST(RhythmFiles, DeleteRemovesTheChosenFileAndLoadsTheFirstByItsPlainName) {
    RhythmHarness h({{"a.bin", kHeader + kRowA + kRowB + kRowC + "a\r\n"},
                     {"b.bin", "00020000000000000000000000000000000000000000000000000000000000b\r\n"}});
    h.form().File1.userPick(0);
    h.page().Cmdcill[0].userClick();
    EXPECT_FALSE(fs::exists(h.folder() / "a.bin"));
    EXPECT_EQ(h.form().File1.listCount(), 1);
    EXPECT_EQ(h.form().Label11.caption(), "b.bin");
    EXPECT_EQ(h.form().VsbVol.listIndex(), 0);

    // With nothing chosen there is nothing to name: the file system's failure.
    EXPECT_EQ(h.form().File1.listIndex(), -1);
    EXPECT_THROW(h.page().Cmdcill[0].userClick(), FatalFailure);
    EXPECT_TRUE(fs::exists(h.folder() / "b.bin"));
}

TEST(RhythmFiles, TheListShowsOverLabel11AndHidesOverThePageOrAScoreChange) {
    RhythmHarness h(std::map<std::string, std::string>{{"a.bin", "x"}});
    EXPECT_FALSE(h.form().File1.visible());
    std::ofstream(h.folder() / "b.bin") << "y";
    h.form().Label11.onMouseMove(0, 0, 0, 0);
    EXPECT_TRUE(h.form().File1.visible());
    EXPECT_EQ(h.form().File1.listCount(), 2);  // refreshed
    h.form().Jiezhou[2].onMouseMove(0, 0, 0, 0);
    EXPECT_FALSE(h.form().File1.visible());
    h.form().Label11.onMouseMove(0, 0, 0, 0);
    h.form().Text3.setText("KC");
    EXPECT_FALSE(h.form().File1.visible());
}

TEST(RhythmFiles, CancelledSaveDialogChangesNothing) {
    RhythmHarness h;
    h.app->state.FilePathInUse = "before";
    h.page().Cmdcill[1].userClick();
    ASSERT_TRUE(h.app->unansweredDialogs.lastRequest());
    EXPECT_EQ(h.app->unansweredDialogs.lastRequest()->kind, "save");
    EXPECT_EQ(h.app->unansweredDialogs.lastRequest()->filter, "节奏bin|*.bin");
    EXPECT_EQ(h.app->state.FilePathInUse, "before");
    EXPECT_TRUE(fs::is_empty(h.folder()));
}

// The built-in rhythms list first, load like any user file, and are exactly
// what the page writes back for the same pattern and title.
TEST(RhythmFiles, TheBuiltInRhythmsLoadAndSaveBackByteForByte) {
    const fs::path shipped = fs::path(TESSALY_SOURCE_DIR) / "data" / "演奏记录";
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(shipped))
        if (entry.path().extension() == ".bin") {
            std::ifstream in(entry.path(), std::ios::binary);
            files[entry.path().filename().string()] =
                std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        }
    ASSERT_GE(files.size(), 9u);
    files["我的.bin"] = "0502000000000000000000000000000000000000000000000000000000000我的";
    RhythmHarness h(files);
    ASSERT_EQ(h.form().File1.listCount(), static_cast<int>(files.size()));
    EXPECT_EQ(h.form().File1.item(static_cast<int>(files.size()) - 1), "我的.bin");
    bool sawThreeFour = false;
    for (int i = 0; i + 1 < h.form().File1.listCount(); ++i) {
        const std::string name = h.form().File1.item(i);
        h.form().File1.userPick(i);
        EXPECT_TRUE(h.log.take().empty()) << name;
        EXPECT_EQ(h.form().Label11.caption(), std::to_string(i + 1) + "★" + name);
        EXPECT_EQ(h.app->rhythmFiles.patternLine(name) + "\r\n", files[name]) << name;
        sawThreeFour = sawThreeFour || h.app->state.RhythmLastStep == 11;
        // Every track sounds somewhere, and only instruments of the catalogue.
        for (int k = 0; k < 3; ++k) {
            bool sounds = false;
            for (int s = 0; s <= h.app->state.RhythmLastStep; ++s) sounds = sounds || h.app->midi.StepTable[s][k].On;
            EXPECT_TRUE(sounds) << name << " track " << k;
        }
    }
    EXPECT_TRUE(sawThreeFour);
}

}  // namespace
}  // namespace tessaly
