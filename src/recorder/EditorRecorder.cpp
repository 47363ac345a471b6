#include "recorder/EditorRecorder.h"

#include "forms/EditorRecorderPanel.h"
#include "platform/Platform.h"
#include "recorder/RecorderState.h"
#include "runtime/Arithmetic.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

struct Quality {
    const char* bits;
    const char* rate;
};
constexpr Quality kQualities[] = {{"16", "44100"}, {"8", "44100"}, {"8", "22050"}};

constexpr const char* kTimeAtZero = "当前: 00:00";

}  // namespace

EditorRecorder::EditorRecorder(Platform& platform, SharedState& shared, EditorRecorderState& state, Dialogs& dialogs)
    : shared_(shared), state_(state), commands_(platform.mci, dialogs) {}

void EditorRecorder::wire(EditorRecorderPanel& panel) {
    panel_ = &panel;
    for (int i = 0; i < 4; ++i) panel.LUYINJI[i].onClick = [this, i] { LUYINJI_Click(i); };
    panel.yinzi.onClick = [this] { yinzi_Click(); };
    panel.Lyjsj.onTimer = [this] { Lyjsj_Timer(); };
}

void EditorRecorder::Form_Load() {
    state_.RecordBits = "8";
    state_.RecordRate = "44100";
    panel_->yinzi.setListIndex(1);
}

std::string EditorRecorder::dialogFolder() const { return shared_.AppDir + "演奏记录"; }

void EditorRecorder::yinzi_Click() {
    const int index = panel_->yinzi.listIndex();
    if (index < 0 || index > 2) return;
    state_.RecordBits = kQualities[index].bits;
    state_.RecordRate = kQualities[index].rate;
}

void EditorRecorder::LUYINJI_Click(int Index) {
    underTrap([&] {
        if (Index == 0) play();
        else if (Index == 1) stop();
        else if (Index == 2) record();
        else if (Index == 3) save();
    });
}

void EditorRecorder::resetTime() {
    state_.RecordMinutes = 0;
    state_.RecordSeconds = 0;
}

void EditorRecorder::play() {
    std::string name = commands_.play(kEditorPlayFilter, dialogFolder());
    state_.EditorRecordFileName = name;
    if (name.empty()) return;
    resetTime();
    panel_->Lyjsj.setTimerEnabled(true);
}

void EditorRecorder::stop() {
    commands_.stop();
    panel_->Lyjsj.setTimerEnabled(false);
    resetTime();
    panel_->LYSJ.setCaption(kTimeAtZero);
}

void EditorRecorder::record() {
    // The counters go on from what they hold.
    commands_.record(state_.RecordBits, state_.RecordRate);
    panel_->Lyjsj.setTimerEnabled(true);
}

void EditorRecorder::save() {
    std::string name = commands_.askSaveName(dialogFolder());
    state_.EditorRecordFileName = name;
    commands_.save(name);
    panel_->Lyjsj.setTimerEnabled(false);
    panel_->LYSJ.setCaption(kTimeAtZero);
    resetTime();
    for (int i : {0, 2, 3}) panel_->LUYINJI[i].setValue(false);
}

void EditorRecorder::Lyjsj_Timer() {
    panel_->LYSJ.setCaption("当前: " + std::to_string(state_.RecordMinutes) + ":" + std::to_string(state_.RecordSeconds));
    if (commands_.mode().starts_with("stopped")) {
        commands_.closeAfterEnd();
        panel_->Lyjsj.setTimerEnabled(false);
        panel_->LYSJ.setCaption(kTimeAtZero);
        resetTime();
        panel_->LUYINJI[0].setValue(false);
    }
    // Counted after the reset too: after the end of play the seconds stand at 1.
    if (state_.RecordSeconds < 59) {
        state_.RecordSeconds = toInt16(state_.RecordSeconds + 1);
    } else {
        state_.RecordMinutes = toInt16(state_.RecordMinutes + 1);
        state_.RecordSeconds = 0;
    }
}

}  // namespace tessaly
