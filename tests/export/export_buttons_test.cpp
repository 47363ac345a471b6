// The export buttons of the windows on a live program: the export runs on a
// worker with a program of its own while the live one plays on.
#include "export/ExportButtons.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "ExportTestSupport.h"
#include "MidiFileReading.h"
#include "export/RenderProgram.h"
#include "shell/Instrument.h"

using namespace tessaly;
using namespace tessaly::testing;

namespace {

// A live program on the recording platform with the export buttons on it.
struct Live {
    explicit Live(const ExportFolder& folder) : program({TESSALY_BUILD_DATA_DIR, folder.appDir()}) {
        program.midi.take();
        program.log.take();
    }
    Instrument& app() { return program.instrument(); }
    std::string caption() { return app().form1.FJWZ.caption(); }
    // Lets the live program run on until the export has been taken back.
    void waitForExport() {
        const auto giveUp = std::chrono::steady_clock::now() + std::chrono::minutes(2);
        while (buttons.busy() && std::chrono::steady_clock::now() < giveUp) {
            program.loop.advance(ExportButtons::kPollMs);
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        ASSERT_FALSE(buttons.busy()) << "the export never came back";
    }

    RenderProgram program;
    ExportButtons buttons{program.instrument(), ExportButtons::Threading::Worker, kTestSoundFont};
};

std::vector<double> noteOnsMs(const MidiFileContents& file, int channel) {
    std::vector<double> times;
    for (const FileEvent& e : file.channelEvents)
        if (e.status == (0x90 | channel) && e.data2 > 0) times.push_back(e.ms);
    return times;
}

}  // namespace

// What the score box holds is played with what the window shows (tempo 75, a
// tick of 100 ms; the piano on the first channel), by a program of its own:
// the live box keeps its lower-case text, and the live program sends nothing.
TEST(ExportButtons, TheScorePanelExportsTheScoreBoxWithTheWindowsSettings) {
    ExportFolder folder;
    Live live(folder);
    live.app().controls.set("Form1.SD.ListIndex", "7");
    live.app().controls.set("Form1.ComSounds(0).ListIndex", "1");
    live.app().form1.Text3.setText("kc8kdkevs3kc8tz");
    live.program.midi.take();
    live.program.dialogs.queueFileAnswer(folder.file("窗口"));

    live.app().form1.DCYP.userClick();
    EXPECT_EQ(live.caption(), "正在导出乐谱。。。");
    EXPECT_FALSE(live.app().form1.DCYP.enabled());
    EXPECT_EQ(live.program.dialogs.lastRequest()->filter, "MIDI 文件|*.mid|WAV 音频|*.wav|MP3 音频|*.mp3");
    live.waitForExport();
    EXPECT_EQ(live.caption(), "成功导出乐谱。。。");
    EXPECT_TRUE(live.app().form1.DCYP.enabled());
    EXPECT_EQ(live.app().form1.Text3.text(), "kc8kdkevs3kc8tz");
    EXPECT_TRUE(live.program.midi.take().empty());

    // A name chosen without an extension is a MIDI file.
    MidiFileContents file = readMidiFile(folder.file("窗口.mid"));
    ASSERT_EQ(file.format, 1);
    ASSERT_EQ(file.tempo.size(), 2u);
    EXPECT_EQ(file.tempo[0].second, 8 * 100 * 1000);
    EXPECT_EQ(file.tempo[1].second, 8 * 150 * 1000);  // VS3: 50 beats a minute
    EXPECT_EQ(file.trackNames[2], "1.明亮钢琴");
    const std::vector<double> onsets = noteOnsMs(file, 0);
    ASSERT_EQ(onsets.size(), 4u);
    // VS3 is read at KE's last tick (2400 ms): the new tempo times the wait for KC.
    const double expected[] = {100, 900, 1700, 2550};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(onsets[i], expected[i], 1.0) << "note " << i;
}

// The song of the editor, as the editor holds it, notes typed in its boxes
// and the tempo chosen in its list (100: a slot of 150 ms).
TEST(ExportButtons, TheEditorExportsItsSong) {
    ExportFolder folder;
    Live live(folder);
    ControlSystem& controls = live.app().controls;
    live.app().form1.BJCK.userClick();
    controls.set("YYBJ.DQSUDU.ListIndex", "12");
    controls.findControl("YYBJ.YF1(0)")->setFocus();
    controls.set("YYBJ.YF1(0).Text", "KC----XZKEXZKGXZ");
    controls.findControl("YYBJ.XJZS")->setFocus();  // the notes reach the song as the box loses the focus
    live.program.dialogs.queueFileAnswer(folder.file("歌.mid"));

    controls.findControl("YYBJ.DCBJ")->userClick();
    EXPECT_EQ(live.caption(), "正在导出乐曲。。。");
    live.waitForExport();
    EXPECT_EQ(live.caption(), "成功导出乐曲。。。");
    MidiFileContents file = readMidiFile(folder.file("歌.mid"));
    ASSERT_EQ(file.format, 1);
    EXPECT_EQ(file.tempo[0].second, 4 * 150 * 1000);
    const std::vector<double> onsets = noteOnsMs(file, 0);
    ASSERT_EQ(onsets.size(), 3u);
    const double expected[] = {0, 4 * 150, 6 * 150};
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(onsets[i], expected[i], 1.0) << "note " << i;
}

// A score that never ends (a note of no length) is exported while the live
// program plays the same score: the click returns at once, the live program
// goes on sending its ticks while the worker plays, and when the program
// ends the export is cancelled and leaves no file.
TEST(ExportButtons, TheLiveProgramPlaysOnDuringAnExportThatEndingTheProgramCancels) {
    ExportFolder folder;
    auto live = std::make_unique<Live>(folder);
    live->app().form1.Text3.setText("KC0TZ");
    live->app().form1.Yuepu[0].userClick();
    live->program.dialogs.queueFileAnswer(folder.file("无尽.wav"));
    live->app().form1.DCYP.userClick();
    live->program.midi.take();
    for (int ms = 0; ms < 5000; ms += ExportButtons::kPollMs) live->program.loop.advance(ExportButtons::kPollMs);
    // The accent sweep of every tick of 107 ms went on meanwhile.
    EXPECT_GE(live->program.midi.take().size(), 3u * 46);
    EXPECT_TRUE(live->buttons.busy());
    EXPECT_FALSE(live->app().form1.DCYP.enabled());
    live.reset();
    for (const auto& entry : std::filesystem::directory_iterator(folder.file("")))
        EXPECT_TRUE(entry.is_directory()) << entry.path();
}

// A score the player stops at shows its own message, and the status line
// says the export failed; a cancelled dialog exports nothing.
TEST(ExportButtons, AFailedExportSaysWhyAndACancelledDialogDoesNothing) {
    ExportFolder folder;
    Live live(folder);
    live.app().form1.Text3.setText("KC8KDXX8TZ");
    live.app().form1.FJWZ.setCaption("");
    live.app().form1.DCYP.userClick();  // no answer: the dialog is cancelled
    EXPECT_FALSE(live.buttons.busy());
    EXPECT_EQ(live.caption(), "");

    live.program.dialogs.queueFileAnswer(folder.file("错.mid"));
    live.app().form1.DCYP.userClick();
    live.waitForExport();
    EXPECT_EQ(live.caption(), "导出失败。。。");
    EXPECT_EQ(live.program.log.take(), std::vector<std::string>{"box 提示|乐谱中出现错误，请修改！"});
    EXPECT_FALSE(std::filesystem::exists(folder.file("错.mid")));
}
