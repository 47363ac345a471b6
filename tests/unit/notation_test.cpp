#include <gtest/gtest.h>

#include <set>

#include "notation/Catalogue.h"
#include "notation/KeyTables.h"
#include "notation/NoteVocabulary.h"

using namespace tessaly;

TEST(KeyTables, NoteTonalityAndQuickKeysLandInTheirEntries) {
    KeyTables t;
    YFSZDY(t);
    YFDHDY(t);
    YFXSDY(t);
    // G plays KC, offset 24, tip 415
    EXPECT_EQ(t.KeyNoteOffset[71], 24);
    EXPECT_EQ(t.KeyNoteName[71], "KC");
    EXPECT_EQ(t.KeyTipId[71], 415);
    // punctuation keys by their virtual key codes
    EXPECT_EQ(t.KeyNoteName[189], "LA");
    EXPECT_EQ(t.KeyNoteName[222], "KB");
    EXPECT_EQ(t.KeyNoteOffset[53], 55);  // 5 is MG, the top token
    // tonality key C selects NoteBase 46, caption "bB调", tonality index 10
    EXPECT_EQ(t.KeyNoteOffset[67], 46);
    EXPECT_EQ(t.KeyNoteName[67], "bB调");
    EXPECT_EQ(t.KeyTipId[67], 10);
    // quick key R selects list index 119 and has no name or tip
    EXPECT_EQ(t.KeyNoteOffset[82], 119);
    EXPECT_EQ(t.KeyNoteName[82], "");
    EXPECT_EQ(t.KeyTipId[82], 0);
    EXPECT_EQ(t.KeyNoteOffset[90], 43);  // Z: tonality G
    // an unlisted key stays empty
    EXPECT_EQ(t.KeyNoteOffset[255], 0);
    EXPECT_THROW(t.KeyNoteOffset[256], FatalFailure);
}

TEST(KeyTables, EveryOtherLetterIsANoteKey) {
    std::set<char> notNotes{'A', 'S', 'D', 'F', 'Z', 'X', 'C', 'Q', 'W', 'E', 'R'};
    for (char letter = 'A'; letter <= 'Z'; ++letter)
        EXPECT_EQ(isNoteKey(letter), notNotes.count(letter) == 0) << letter;
}

TEST(NoteVocabulary, TokensCodesAndOffsets) {
    EXPECT_EQ(tokenOffset("LC"), 0);
    EXPECT_EQ(tokenOffset("MG"), 55);
    EXPECT_EQ(tokenOffset("MA"), std::nullopt);
    EXPECT_EQ(tokenOffset("kc"), std::nullopt);
    EXPECT_EQ(noteCode("HB"), 47);
    EXPECT_EQ(noteCode("CL"), 65);
    EXPECT_EQ(noteCode("BL"), 71);
    EXPECT_EQ(noteCode("CC"), 72);
    EXPECT_EQ(noteCode("BM"), 85);
    EXPECT_EQ(noteCode("XZ"), 254);
    EXPECT_EQ(noteCode("TZ"), 255);
    EXPECT_EQ(noteCode("MA"), 255);
    EXPECT_EQ(noteCode("Q"), 255);
    EXPECT_TRUE(isWhiteKey(0));
    EXPECT_FALSE(isWhiteKey(1));
    EXPECT_TRUE(isWhiteKey(64));  // E above MG, reached by no token
    EXPECT_FALSE(isWhiteKey(63));
}

TEST(NoteVocabulary, TipStringsHaveThreeLinesAndTheirBlanks) {
    EXPECT_EQ(noteTipString(415), " G 键\r\n中音（哆）\r\n乐谱中用 KC 表示");
    EXPECT_EQ(noteTipString(401), "6 键\r\n最低音（哆）\r\n乐谱中用 LC 表示");
    EXPECT_EQ(noteTipString(403), "8 键\r\n最低音（咪）\r\n乐谱中用 LE 表示");
    EXPECT_EQ(noteTipString(402), " 7 键\r\n最低音（唻）\r\n乐谱中用 LD 表示");
    EXPECT_EQ(noteTipString(421), " ' 键\r\n中音（希）\r\n乐谱中用 KB 表示");
    EXPECT_EQ(noteTipString(433), " 5 键\r\n最高音（嗦）\r\n乐谱中用 MG 表示");
    EXPECT_EQ(noteTipString(400), "");
}

TEST(Catalogue, IndexesMapToProgramsAndKeys) {
    EXPECT_EQ(instrumentName(0), "0.无声");
    EXPECT_EQ(instrumentName(2), "2.电钢琴 ");
    EXPECT_EQ(instrumentName(13), instrumentName(13).substr(0, 3) + "木琴");
    EXPECT_EQ(instrumentName(128), "128.枪声");
    EXPECT_EQ(percussionName(0), "低音大鼓");
    EXPECT_EQ(percussionName(46), "三角铃-开音");
    EXPECT_THROW(instrumentName(129), FatalFailure);
    for (int i = 0; i < kInstrumentCount; ++i)
        EXPECT_EQ(instrumentName(i).rfind(std::to_string(i) + ".", 0), 0u) << i;
}
