// The music editor's song and the editing of a bar.
#include <gtest/gtest.h>

#include "EditorHarness.h"
#include "editor/SongModel.h"
#include "notation/NoteVocabulary.h"

using namespace tessaly;
using tessaly::testing::EditorHarness;

TEST(SongModel, TokensGiveTheirCodesAndEverythingElseIsNothing) {
    EXPECT_EQ(SYYPSB("LC"), 0);
    EXPECT_EQ(SYYPSB("KC"), 24);
    EXPECT_EQ(SYYPSB("MG"), 55);
    EXPECT_EQ(SYYPSB("CL"), 65);
    EXPECT_EQ(SYYPSB("BL"), 71);
    EXPECT_EQ(SYYPSB("CC"), 72);
    EXPECT_EQ(SYYPSB("BM"), 85);
    EXPECT_EQ(SYYPSB("XZ"), 254);
    for (const char* other : {"TZ", "--", "", "MA", "MB", "kc", "K-", "O", "KCK"}) EXPECT_EQ(SYYPSB(other), 255) << other;
    // Every two characters of interest give the vocabulary's own code.
    const std::string letters = "LWKHMCDEFGABXZT-O1 ";
    for (char a : letters)
        for (char b : letters) {
            const std::string token{a, b};
            EXPECT_EQ(SYYPSB(token), noteCode(token)) << token;
        }
}

TEST(SongModel, ClearingSparesASongOfOneBarAndStopsAtTheLastBar) {
    EditorHarness h;
    EditorState& s = h.song;
    s.SlotTokens(0, 0) = "KC";
    s.BarStrings(0, 0) = "KC";
    QKYP(s);
    EXPECT_EQ(s.SlotTokens(0, 0), "KC");  // BarCount 0: nothing cleared
    EXPECT_EQ(s.BarCount, 0);

    s.BarCount = 2;
    s.BarHead[2] = "0002";
    s.SlotTokens(47, 11) = "O";
    s.SlotNotes(47, 6) = 24;
    s.SlotTokens(48, 0) = "KD";  // bar 3, beyond the song
    h.app->midi.StepTable[47][4].On = -1;
    QKYP(s);
    EXPECT_EQ(s.SlotTokens(0, 0), "");
    EXPECT_EQ(s.BarStrings(0, 0), "");
    EXPECT_EQ(s.BarHead[2], "");
    EXPECT_EQ(s.SlotTokens(47, 11), "");
    EXPECT_EQ(s.SlotNotes(47, 6), 255);
    EXPECT_EQ(s.SlotTokens(48, 0), "KD");
    EXPECT_EQ(h.app->midi.StepTable[47][4].On, -1);  // the flags are rebuilt before a play
    EXPECT_EQ(s.BarCount, 0);
}

TEST(EditorWindow, ANewSongHasItsDefaultsAndTheDeliberateSlotOf188) {
    EditorHarness h;
    const int instruments[12] = {1, 50, 79, 83, 35, 25, 5, 1, 3, 4, 41, 17};
    const int volumes[12] = {80, 80, 80, 80, 60, 60, 60, 80, 80, 80, 80, 60};
    for (int t = 0; t < 12; ++t) {
        EXPECT_EQ(h.yybj.settings().SYYQ[t].listIndex(), instruments[t]) << t;
        EXPECT_EQ(h.app->midi.LayerVelocity[t], volumes[t]) << t;
    }
    EXPECT_EQ(h.yybj.settings().SYYQ[0].listCount(), 129);
    EXPECT_EQ(h.yybj.settings().SYYQ[7].listCount(), 47);
    EXPECT_EQ(h.yybj.settings().DQSUDU.text(), "70");
    EXPECT_EQ(h.app->state.TickMs, 188);
    EXPECT_EQ(h.app->state.NoteBase, 36);
    EXPECT_EQ(h.song.SlotsPerBarMinusOne, 15);
    EXPECT_EQ(h.song.ExprValue, 120);
    EXPECT_EQ(h.yybj.bar().DJY5.count(), 16u);
    EXPECT_EQ(h.yybj.bar().YF1[0].backColor(), 128 * 65536);  // blue
    EXPECT_EQ(h.yybj.bar().DJY1[4].backColor(), 255 * 256);   // light green, the second beat
    EXPECT_FALSE(h.app->form1.visible());
}

TEST(BarSettings, TheDefaultSettingsTextAndItsTempoField) {
    EditorHarness h;
    h.yybj.commands().BCBXJ.userClick();
    EXPECT_EQ(h.song.BarHead[0], "0000005031504E505250223C183C043C015003500450295011"
                                 "3C20000046");
    // Tempo 120 is "78"; a tempo below 16 is still two digits.
    h.yybj.settings().DQSUDU.userPick(16);
    h.editor.barSettings.BCXJ();
    EXPECT_EQ(h.song.BarTempoText[0], "78");
    h.yybj.settings().DQSUDU.setText("15");
    h.editor.barSettings.BCXJ();
    EXPECT_EQ(h.song.BarTempoText[0], "0F");
}

TEST(BarSettings, ASilentMelodyTrackWidensTheTextWhoseTempoIsStillAtItsEnd) {
    EditorHarness h;
    h.yybj.settings().SYYQ[0].userPick(0);
    h.yybj.commands().BCBXJ.userClick();
    const std::string& head = h.song.BarHead[0];
    EXPECT_EQ(head.size(), 66u);
    EXPECT_EQ(head.substr(4, 10), "FFFFFFFF50");
    EXPECT_EQ(head.substr(64), "46");
    // Read back by fixed positions the program is 255, which no list holds:
    // showing the bar again is the fatal failure of an invalid list index.
    h.showBar(1);
    EXPECT_THROW(h.showBar(0), FatalFailure);
}

TEST(BarSettings, NoSettingsFromBar256OnAndTheTextIsLeftAlone) {
    EditorHarness h;
    h.dialogs.queueInputAnswer("300");
    h.yybj.commands().ZDXJZS.userClick();
    h.showBar(256);
    h.song.BarHead[256] = "0256";
    EXPECT_THROW(h.editor.barSettings.BCXJ(), FatalFailure);
    EXPECT_EQ(h.song.BarHead[256], "0256");
}

TEST(BarEditing, TheNumberOfBarsIsTheLastIndexAndAnAnswerThatIsNoNumberIsFatal) {
    EditorHarness h;
    h.dialogs.queueInputAnswer("5");
    h.yybj.commands().ZDXJZS.userClick();
    ASSERT_TRUE(h.dialogs.lastRequest());
    EXPECT_EQ(h.dialogs.lastRequest()->title, "选择小节总数");
    EXPECT_EQ(h.dialogs.lastRequest()->prompt, "请输入音乐需要的小节总数\r\n     （音乐每两小节为软件的一小节）");
    EXPECT_EQ(h.song.BarCount, 5);
    EXPECT_EQ(h.song.LastSlotIndex, 95);
    EXPECT_EQ(h.yybj.bar().HScroll1.max(), 5);

    h.dialogs.queueInputAnswer("0");  // zero changes nothing
    h.yybj.commands().ZDXJZS.userClick();
    EXPECT_EQ(h.song.BarCount, 5);
    for (std::optional<std::string> answer : {std::optional<std::string>(), std::optional<std::string>("五")}) {
        h.dialogs.queueInputAnswer(answer);
        try {
            h.yybj.commands().ZDXJZS.userClick();
            ADD_FAILURE() << "no failure";
        } catch (const FatalFailure& failure) {
            EXPECT_EQ(failure.kind(), FailureKind::TypeMismatch);
        }
    }
}

TEST(BarEditing, TheTimeSignatureReformsTheGridInColouredBeats) {
    EditorHarness h;
    EditorBarPanel& b = h.yybj.bar();
    h.yybj.settings().JPFL[2].userClick();
    EXPECT_EQ(h.song.SlotsPerBarMinusOne, 31);
    for (int row = 1; row <= 5; ++row) EXPECT_EQ(b.DJY(row).count(), 32u);
    EXPECT_EQ(b.DJY3[31].geometry().left, 20 * 31 + 7);  // the gap grows by one at every beat
    EXPECT_EQ(b.DJY3[16].backColor(), 255 + 255 * 65536);  // group 4 starts the colours again
    EXPECT_EQ(b.DJY3[28].backColor(), 255 + 255 * 256);
    EXPECT_EQ(b.YF1[6].maxLength(), 64);
    EXPECT_GT(h.yybj.geometry().width, 900);
    h.yybj.settings().JPFL[0].userClick();
    EXPECT_EQ(b.DJY1.count(), 16u);
    EXPECT_FALSE(b.DJY1.contains(16));
    EXPECT_EQ(h.app->controls.findControl("YYBJ.DJY1(16)"), nullptr);
    EXPECT_LT(h.yybj.geometry().width, 800);
}

TEST(BarSettings, TheTempoBoxKeepsItsBoundsOnlyWhenLeft) {
    EditorHarness h;
    ComboBox& tempo = h.yybj.settings().DQSUDU;
    tempo.setFocus();
    tempo.setText("300");
    h.yybj.bar().XJZS.setFocus();
    EXPECT_EQ(tempo.text(), "79");  // 15000 / 188, whole part: the round trip loses digits
    EXPECT_EQ(h.app->state.TickMs, 188);
    tempo.setFocus();
    tempo.setText("255");
    h.yybj.bar().XJZS.setFocus();
    EXPECT_EQ(h.app->state.TickMs, 58);
    tempo.userPick(0);  // "40": below the bound, but a choice is not checked
    EXPECT_EQ(h.app->state.TickMs, 375);
    h.yybj.bar().XJZS.setFocus();
    EXPECT_EQ(tempo.text(), "40");
    EXPECT_EQ(h.app->state.TickMs, 375);
}
