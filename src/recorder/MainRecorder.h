#pragma once
#include <string>

#include "recorder/RecorderCommands.h"

namespace tessaly {

class EventLoop;
class MainWindow;
struct MainRecorderState;
struct SharedState;
struct Platform;

// The main window's recorder: play, stop and record on the three images,
// save on BcLY, and its share of Timer2, which shows the time and notices
// the end of play.
class MainRecorder {
public:
    MainRecorder(Platform& platform, SharedState& shared, MainRecorderState& state, MainWindow& form, Dialogs& dialogs);

    void wire();
    void Image1_Click(int Index);
    void BcLY_Click();
    // Called by Timer2 every second.
    void Timer2_Timer();

private:
    void playImage();
    void stopImage();
    void recordImage();
    void startTiming();
    std::string dialogFolder() const;

    EventLoop& loop_;
    SharedState& shared_;
    MainRecorderState& state_;
    MainWindow& form_;
    RecorderCommands commands_;
};

// Elapsed milliseconds as "hh:mm:ss", the hours going round at 24.
std::string elapsedClockText(uint32_t ms);

}  // namespace tessaly
