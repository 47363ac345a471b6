#include "recorder/RecorderState.h"

#include "forms/VariableAccessors.h"

namespace tessaly {

void registerRecorderState(ControlSystem& controls, RecorderState& state) {
    MainRecorderState& m = state.main;
    controls.registerVariable("RecordingFlag", scalar(m.RecordingFlag));
    controls.registerVariable("PlayingFlag", scalar(m.PlayingFlag));
    controls.registerVariable("TimingFlag", scalar(m.TimingFlag));
    controls.registerVariable("RecordStartTime", scalar(m.RecordStartTime));
    controls.registerVariable("RecordFileName", scalar(m.RecordFileName));
    EditorRecorderState& e = state.editor;
    controls.registerVariable("RecordBits", scalar(e.RecordBits));
    controls.registerVariable("RecordRate", scalar(e.RecordRate));
    controls.registerVariable("RecordMinutes", scalar(e.RecordMinutes));
    controls.registerVariable("RecordSeconds", scalar(e.RecordSeconds));
    controls.registerVariable("EditorRecordFileName", scalar(e.EditorRecordFileName));
}

}  // namespace tessaly
