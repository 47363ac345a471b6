#pragma once
#include <cstdint>
#include <string>

namespace tessaly {

class ControlSystem;

// The main window's recorder. Truth values are 16 bits, true is -1.
struct MainRecorderState {
    int16_t RecordingFlag = 0;     // from "RECORD NN" until stop or save
    int16_t PlayingFlag = 0;       // from "PLAY NN FROM 0" until stop or the end of play
    int16_t TimingFlag = 0;        // the elapsed time shows and the mode is polled
    uint32_t RecordStartTime = 0;  // the clock's milliseconds at the last start
    std::string RecordFileName;    // the last file chosen
};

// The editor's recorder: the quality as text, as it goes into the commands,
// and the minutes and seconds shown while it runs.
struct EditorRecorderState {
    std::string RecordBits = "8";
    std::string RecordRate = "44100";
    int16_t RecordMinutes = 0;
    int16_t RecordSeconds = 0;
    std::string EditorRecordFileName;
};

struct RecorderState {
    MainRecorderState main;
    EditorRecorderState editor;
};

// Makes the recorders' variables readable and settable by name.
void registerRecorderState(ControlSystem& controls, RecorderState& state);

}  // namespace tessaly
