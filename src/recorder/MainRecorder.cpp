#include "recorder/MainRecorder.h"

#include <cstdio>

#include "forms/MainWindow.h"
#include "platform/Platform.h"
#include "recorder/RecorderState.h"
#include "runtime/Arithmetic.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {
constexpr const char* kStoppedStatus = "录音机已停止。。。";
}

MainRecorder::MainRecorder(Platform& platform, SharedState& shared, MainRecorderState& state, MainWindow& form,
                           Dialogs& dialogs)
    : loop_(platform.loop), shared_(shared), state_(state), form_(form), commands_(platform.mci, dialogs) {}

void MainRecorder::wire() {
    MainRecorderPanel& panel = form_.recorderPanel;
    for (int i = 0; i < 3; ++i) panel.Image1[i].onClick = [this, i] { Image1_Click(i); };
    panel.BcLY.onClick = [this] { BcLY_Click(); };
}

std::string MainRecorder::dialogFolder() const { return shared_.AppDir + "演奏记录"; }

void MainRecorder::startTiming() {
    state_.RecordStartTime = loop_.nowMs();
    state_.TimingFlag = kTrue;
}

void MainRecorder::Image1_Click(int Index) {
    underTrap([&] {
        if (Index == 0) playImage();
        else if (Index == 1) stopImage();
        else if (Index == 2) recordImage();
    });
}

void MainRecorder::playImage() {
    MainRecorderPanel& panel = form_.recorderPanel;
    if (state_.RecordingFlag) {
        panel.showNormal(0);
        return;
    }
    panel.showPressed(0);
    panel.showNormal(1);
    std::string name = commands_.play(kMainPlayFilter, dialogFolder());
    state_.RecordFileName = name;
    if (name.empty()) return;
    state_.PlayingFlag = kTrue;
    form_.XSWB.setCaption("当录音重放无声时请按帮助文档中的方法设置系统音量属性！");
    form_.FJWZ.setCaption("正在播放录音。。。");
    panel.BcLY.setEnabled(false);
    startTiming();
}

void MainRecorder::stopImage() {
    form_.recorderPanel.showAllNormal();
    // The device stays open, so that a take can still be saved.
    commands_.stop();
    state_.RecordingFlag = kFalse;
    state_.PlayingFlag = kFalse;
    state_.TimingFlag = kFalse;
    form_.FJWZ.setCaption(kStoppedStatus);
}

void MainRecorder::recordImage() {
    MainRecorderPanel& panel = form_.recorderPanel;
    if (state_.PlayingFlag) {
        panel.showNormal(2);
        return;
    }
    panel.showPressed(2);
    panel.showNormal(1);
    commands_.record("16", "44100");
    state_.RecordingFlag = kTrue;
    form_.XSWB.setCaption("当录音重放出现沙哑杂音失真等情况时请适当调整系统音量中的各音源音量大小！");
    form_.FJWZ.setCaption("录音中,请安静。。");
    panel.BcLY.setEnabled(true);
    startTiming();
}

void MainRecorder::BcLY_Click() {
    underTrap([&] {
        std::string name = commands_.askSaveName(dialogFolder());
        state_.RecordFileName = name;
        // Recording may still run: the save commands stop it first.
        commands_.save(mainWindowTakeName(name));
        MainRecorderPanel& panel = form_.recorderPanel;
        form_.FJWZ.setCaption("成功保存录音。。。");
        panel.BcLY.setEnabled(false);
        panel.showNormal(0);
        panel.showNormal(2);
        state_.RecordingFlag = kFalse;
        state_.PlayingFlag = kFalse;
    });
}

void MainRecorder::Timer2_Timer() {
    Label& clock = form_.recorderPanel.Label12;
    if (!state_.TimingFlag) {
        clock.setCaption("00:00:00");
        return;
    }
    clock.setCaption(elapsedClockText(loop_.nowMs() - state_.RecordStartTime));
    // The end of a file is noticed here, up to a second late.
    if (commands_.mode().starts_with("stopped")) {
        commands_.closeAfterEnd();
        form_.recorderPanel.showAllNormal();
        state_.RecordingFlag = kFalse;
        state_.PlayingFlag = kFalse;
        form_.FJWZ.setCaption(kStoppedStatus);
        state_.TimingFlag = kFalse;
    }
}

std::string elapsedClockText(uint32_t ms) {
    const uint32_t seconds = ms / 1000;
    char text[16];
    std::snprintf(text, sizeof text, "%02u:%02u:%02u", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
    return text;
}

}  // namespace tessaly
