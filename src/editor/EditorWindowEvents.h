#pragma once
#include <cstdint>

namespace tessaly {

class Editor;

// The editor's window as a whole: its opening and first start, the percussion
// grid, the output device, help, and leaving it for the main window.
class EditorWindowEvents {
public:
    explicit EditorWindowEvents(Editor& editor) : e_(editor) {}

    void Form_Load();
    void Form_Activate();
    void BJQD();
    // Loads boxes 1..SlotsPerBarMinusOne of the five rows, placed and coloured by beat.
    void JZXSGC();
    // Unloads boxes 1..ShownSlotsMinusOne of the five rows.
    void unloadSteps();
    // The screen for the time signature of a file just opened.
    void DKJZWJ();
    void ComDevies_Click();
    void TUICHU_Click();
    void Form_Unload();
    void ReturnFromEditor();
    void BZWJ_Click();

private:
    Editor& e_;
};

// The classic sixteen colours (0 black .. 15 bright white) as RGB values.
int32_t classicColor(int index);

}  // namespace tessaly
