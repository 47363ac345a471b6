#pragma once
#include <functional>
#include <cstdint>
#include <string>

namespace tessaly {

class ControlSystem;
class MainWindow;
struct Platform;

// The main window's own state: the small window, the unfolded key map and
// the running credit line.
struct WindowShellState {
    int16_t MiniWindow = 0;
    int16_t KeyMapUnfolded = 0;
    std::string CreditLine;
};

// The shell of the main window: the once-a-second clock, the small window, the
// key map picture and the two web buttons.
class MainWindowShell {
public:
    MainWindowShell(Platform& platform, MainWindow& form);

    void wire();
    // Makes the state readable by name: MiniWindow, KeyMapUnfolded, CreditLine.
    void registerVariables(ControlSystem& controls);

    // The date and time, the recorder's poll, the credit line.
    void Timer2_Timer();
    std::function<void()> pollRecorder;
    void Form_Click();
    void Image3_Click();
    void Command2_Click(int Index);

    WindowShellState state;

private:
    // The date and time, and the credit line one character further on.
    void rotateCreditLine();

    Platform& platform_;
    MainWindow& form_;
};

extern const char* const kCreditLine;
extern const char* const kShowcaseAddress;
extern const char* const kSoundFontAddress;

}  // namespace tessaly
