#include <gtest/gtest.h>

#include <algorithm>

#include "Harness.h"
#include "forms/EditorRecorderPanel.h"
#include "recorder/MainRecorder.h"
#include "recorder/RecorderCommands.h"
#include "runtime/FatalFailure.h"

using namespace tessaly;
using tessaly::testing::Harness;

TEST(RecorderNames, TheTypeFollowsTheLastThreeCharactersWithTheirCase) {
    EXPECT_EQ(deviceTypeOf("/home/me/歌.wav"), "WaveAudio");
    EXPECT_EQ(deviceTypeOf("/home/me/歌.mp3"), "MPEGVideo");
    EXPECT_EQ(deviceTypeOf("/home/me/歌.WAV"), "");
    EXPECT_EQ(deviceTypeOf("/home/me/歌.Mp3"), "");
    EXPECT_EQ(deviceTypeOf("/home/me/歌.ogg"), "");
    // No dot needed, and characters are counted, not bytes.
    EXPECT_EQ(deviceTypeOf("录音wav"), "WaveAudio");
    EXPECT_EQ(deviceTypeOf("wav"), "WaveAudio");
    EXPECT_EQ(deviceTypeOf("av"), "");
}

TEST(RecorderNames, TheMainWindowSavesUnderAWavName) {
    EXPECT_EQ(mainWindowTakeName("/home/me/歌.mp3"), "/home/me/歌.wav");
    EXPECT_EQ(mainWindowTakeName("/home/me/歌.wav"), "/home/me/歌.wav");
    EXPECT_EQ(mainWindowTakeName("/home/me/歌.flac"), "/home/me/歌.flac.wav");
    EXPECT_EQ(mainWindowTakeName("/home/me/歌"), "/home/me/歌.wav");
    // The fourth character from the end, counted in characters.
    EXPECT_EQ(mainWindowTakeName("演.奏录音"), "演.wav");
    EXPECT_EQ(mainWindowTakeName("演奏.录音"), "演奏.录音.wav");
    EXPECT_EQ(mainWindowTakeName("a.wa"), "a.wa.wav");
    EXPECT_THROW(mainWindowTakeName("abc"), FatalFailure);
}

TEST(RecorderNames, ElapsedTimeAsAClock) {
    EXPECT_EQ(elapsedClockText(0), "00:00:00");
    EXPECT_EQ(elapsedClockText(999), "00:00:00");
    EXPECT_EQ(elapsedClockText(3'661'000), "01:01:01");
    EXPECT_EQ(elapsedClockText(25u * 3'600'000u + 59'000u), "01:00:59");
}

namespace {

// The program with the recorder's model answering the commands, the music
// editor open on it.
struct EditorOpen {
    Harness h{false};
    RecordingMciCommands mci{h.log};
    Platform platform{h.loop, h.midiPort, h.wave, h.boxes, noInstanceLock(), mci};
    ScriptedDialogs& dialogs;
    EditorRecorderPanel* panel = nullptr;

    EditorOpen() : dialogs(remake()) {
        h.startUntilActive();
        h.app->form1.BJCK.userClick();
        panel = &h.app->YYBJ.recorder();
        h.log.take();
    }
    ~EditorOpen() { h.app.reset(); }

    ScriptedDialogs& remake() {
        h.app.reset();
        h.app = std::make_unique<Instrument>(platform, h.dir.string());
        return h.app->unansweredDialogs;
    }
};

}  // namespace

TEST(EditorRecorder, ASaveThatCannotBeWrittenLeavesTheTimeRunning) {
    EditorOpen e;
    e.panel->LUYINJI[2].userClick();
    e.h.loop.advance(2000);
    e.dialogs.queueFileAnswer((e.h.appDir / "没有/take.wav").string());
    e.panel->LUYINJI[3].userClick();
    EXPECT_TRUE(e.panel->Lyjsj.timerEnabled());
    EXPECT_EQ(e.h.app->recorderState.editor.RecordSeconds, 2);
    const auto lines = e.h.log.take();
    EXPECT_EQ(lines.back(), "mci save NN " + (e.h.appDir / "没有/take.wav").string()) << "no close after it";
    // The save option stays chosen, so it takes another option before it
    // answers again; the stop keeps the take. Elsewhere it saves.
    e.panel->LUYINJI[3].userClick();
    EXPECT_TRUE(e.h.log.take().empty());
    e.panel->LUYINJI[1].userClick();
    e.dialogs.queueFileAnswer((e.h.appDir / "take.wav").string());
    e.panel->LUYINJI[3].userClick();
    EXPECT_FALSE(e.panel->Lyjsj.timerEnabled());
    EXPECT_TRUE(std::filesystem::exists(e.h.appDir / "take.wav"));
}

TEST(EditorRecorder, ComesAndGoesWithTheEditorsWindow) {
    EditorOpen e;
    Instrument& app = *e.h.app;
    e.panel->yinzi.userPick(2);
    e.panel->LUYINJI[2].userClick();
    e.h.loop.advance(2000);
    EXPECT_EQ(e.panel->LYSJ.caption(), "当前: 0:1");
    e.h.log.take();
    // Leaving unloads the window: its clock stops with it.
    app.YYBJ.commands().TUICHU.userClick();
    e.h.log.take();
    e.h.loop.advance(5000);
    EXPECT_TRUE(e.h.log.take().empty()) << "no poll of a closed window";
    // The next opening makes the controls afresh and its load sets the
    // quality back; the counters carry on from where they stood.
    app.form1.BJCK.userClick();
    EditorRecorderPanel& again = app.YYBJ.recorder();
    EXPECT_NE(&again, e.panel);
    EXPECT_EQ(again.yinzi.listIndex(), 1);
    EXPECT_EQ(app.recorderState.editor.RecordRate, "44100");
    EXPECT_FALSE(again.Lyjsj.timerEnabled());
    EXPECT_EQ(again.LYSJ.caption(), "当前: 00:00");
    e.h.log.take();
    again.LUYINJI[2].userClick();
    const auto lines = e.h.log.take();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "mci Set NN samplespersec 44100"), lines.end());
    e.h.loop.advance(1000);
    EXPECT_EQ(again.LYSJ.caption(), "当前: 0:2");
}

TEST(Recorders, DialogsAskWithTheirFiltersInTheScoresFolder) {
    Harness h;
    Instrument& app = *h.app;
    const std::string folder = app.state.AppDir + "演奏记录";
    auto asked = [&app] {
        const auto& request = app.unansweredDialogs.lastRequest();
        return request ? request->kind + " " + request->filter + " " + request->startFolder : std::string("none");
    };
    app.form1.recorderPanel.Image1[0].userClick();
    EXPECT_EQ(asked(), "open 音频文件(wav;mp3)|*.wav;*.mp3 " + folder);
    app.form1.recorderPanel.Image1[2].userClick();
    app.form1.recorderPanel.BcLY.userClick();
    EXPECT_EQ(asked(), "save 演奏录音(wav)|*.wav " + folder);
    app.form1.BJCK.userClick();
    EditorRecorderPanel& editor = app.YYBJ.recorder();
    editor.LUYINJI[0].userClick();
    EXPECT_EQ(asked(), "open 演奏录音(wav)|*.wav|音乐(mp3)|*.mp3 " + folder);
    editor.LUYINJI[3].userClick();
    EXPECT_EQ(asked(), "save 演奏录音(wav)|*.wav " + folder);
}
