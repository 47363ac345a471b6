#include <gtest/gtest.h>

#include <string>

#include "analysis/ChordAddition.h"
#include "analysis/ImportState.h"
#include "analysis/ScoreScanner.h"
#include "editor/EditorState.h"
#include "editor/SongModel.h"
#include "runtime/FatalFailure.h"

using namespace tessaly;

namespace {

// A song in 2/4 scanned from the start of a text, as an import begins.
struct Scan {
    EditorState song;
    ImportState import;

    // True when the scan finished, false when it failed.
    bool run(const std::string& text) {
        song.ImportCursor = 1;
        import.ImportSlot = 0;
        try {
            scanMelody(ScanText(text), song, import);
            finishScan(song, import);
            return true;
        } catch (const FatalFailure&) {
            return false;
        }
    }
    std::string melody(long first, long last) const {
        std::string out;
        for (long slot = first; slot <= last; ++slot) out += song.SlotTokens(slot, 0).empty() ? ".." : song.SlotTokens(slot, 0);
        return out;
    }
};

std::string repeated(const std::string& piece, std::size_t times) {
    std::string out;
    out.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) out += piece;
    return out;
}

}  // namespace

TEST(ScoreScanner, PositionsCountCharactersSoWideTextIsUnknownTwoAtATime) {
    Scan scan;
    // Two Chinese characters are one unknown token; counted in bytes they
    // would cut through "KD".
    ASSERT_TRUE(scan.run("KC8你好KD8TZ"));
    EXPECT_EQ(scan.melody(0, 8), "KC......KD......TZ");
    // "°" and "K" make one unknown token, so "E4" is unknown too and its 4
    // is never read.
    Scan shifted;
    ASSERT_TRUE(shifted.run("KC8°KE4KF2TZ"));
    EXPECT_EQ(shifted.melody(0, 8), "KC......KFTZ......");
    EXPECT_EQ(shifted.import.ImportDuration, 2);
}

TEST(ScoreScanner, TextThatNoNoteCanFinishFailsWithTheSlotMarked) {
    // Empty, commands only, a command or unknown text at the end: the scan
    // would run on over the end of the text for ever.
    for (const std::string text : {"", "VS5YQ12JP10", "KC8KD8YQ12", "KC8KD8YD", "KC8KD8xyz"}) {
        SCOPED_TRACE(text);
        Scan scan;
        scan.song.BarCount = 7;
        EXPECT_FALSE(scan.run(text));
        EXPECT_EQ(scan.song.SlotTokens(scan.import.ImportSlot, 0), "--");
        EXPECT_EQ(scan.song.SlotTokens(scan.import.ImportSlot, 1), "--");
        EXPECT_EQ(scan.song.BarCount, 7) << "the finish never came";
    }
    // Ten million characters of text with no note in it fail the same way,
    // after one pass over the text.
    Scan scan;
    EXPECT_FALSE(scan.run(repeated("ab", 5'000'000)));
    EXPECT_GE(scan.song.ImportCursor, 10'000'000);
}

TEST(ScoreScanner, ASingleDigitAsTheLastCharacterFailsTwoDoNot) {
    Scan one;
    EXPECT_FALSE(one.run("KC8KD4"));
    EXPECT_EQ(one.melody(0, 4), "KC........");
    Scan two;
    EXPECT_TRUE(two.run("KC8KD12"));
    EXPECT_EQ(two.import.ImportSlot, 10);
    Scan none;
    EXPECT_TRUE(none.run("KC8KD"));
    EXPECT_EQ(none.import.ImportSlot, 8);
}

TEST(ScoreScanner, SlotsPastTheTablesFailAfterWhatFits) {
    // Note 5001 of two slots each would go to slot 10000.
    Scan scan;
    EXPECT_FALSE(scan.run(repeated("KC4", 5001) + "TZ"));
    EXPECT_EQ(scan.song.SlotTokens(9998, 0), "KC");
    EXPECT_EQ(scan.import.ImportSlot, 10000);
    // The last slot filled, then the finish's pass reaches slot 10000.
    Scan finish;
    EXPECT_FALSE(finish.run(repeated("KC4", 4999) + "KC2TZ"));
    EXPECT_EQ(finish.song.SlotTokens(9999, 0), "TZ");
    EXPECT_EQ(finish.song.BarCount, 625);
}

TEST(ScoreScanner, AVeryLongRunOfNotesWithoutSlotsIsOnePass) {
    // 3.3 million notes of duration 1 all overwrite slot 0.
    Scan scan;
    ASSERT_TRUE(scan.run(repeated("XZ1", 3'300'000) + "KC8TZ"));
    EXPECT_EQ(scan.melody(0, 4), "KC......TZ");
    EXPECT_EQ(scan.song.BarCount, 0);
}

TEST(ChordStepToken, IsTheInverseOfTheSongsCodesWithGapsAsHolds) {
    int named = 0;
    for (int code = -300; code <= 300; ++code) {
        const std::string token = chordStepToken(code);
        if (token == "--") continue;
        ++named;
        EXPECT_EQ(SYYPSB(token), code) << token;
    }
    // 33 notes, 21 chords and the rest.
    EXPECT_EQ(named, 55);
    EXPECT_EQ(chordStepToken(73), "DC");
    EXPECT_EQ(chordStepToken(57), "--") << "MA has no code of its own";
    EXPECT_EQ(chordStepToken(255), "--");
}
