#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "performance/InputPortList.h"
#include "platform/EventLoop.h"

namespace tessaly {

class KeyboardPlay;
class MainWindow;
class MidiOut;
struct Platform;
struct SharedState;

// The small settings file beside the main one that remembers the keyboard.
constexpr const char* kKeyboardSettingsFileName = "tessaly-keyboard.ini";
// Our own MIDI client's name, whose ports are not keyboards.
constexpr const char* kOwnMidiClient = "tessaly";

// The keyboard named in that file's text, empty when none is.
std::string rememberedKeyboardIn(std::string_view text);
// The file's text that names the keyboard.
std::string rememberedKeyboardText(const std::string& name);

// A MIDI keyboard as a second typing keyboard. Its white keys C2..G6 are the
// 33 note keys and go through their handlers, so they sound, drive the
// rhythm and are written down exactly as typed; other keys only sound. The
// list "输入设备" (ComInput) chooses the keyboard; the port list is looked at
// every second, so keyboards come and go while the program runs.
class MidiKeyboard : private TimerClient {
public:
    MidiKeyboard(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form, KeyboardPlay& keys);
    ~MidiKeyboard() override;

    void wire();
    // Once the main window is up: the list is filled, the remembered keyboard
    // connected, and the port list watched.
    void start();
    // Handles every message that has arrived. The platform calls this on the
    // event thread as soon as one is there.
    void serve();
    // One message, packed as a short message.
    void handle(uint32_t message);
    // Looks at the ports now, as the watch does every second.
    void refreshPorts();

    void ComInput_Click();

    static constexpr int kPollMs = 1000;
    // The white keys from here to kHighestWritten are the note keys.
    static constexpr int kLowestWritten = 36, kHighestWritten = 91;

private:
    void timerDue() override { refreshPorts(); }
    void noteOn(int key, int velocity);
    void noteOff(int key);
    void controller(int number, int value);
    void pitchBend(int low, int high);
    void showList();
    void connect(const std::string& address);
    std::string settingsPath() const;
    void remember();

    Platform& platform_;
    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
    KeyboardPlay& keys_;
    InputPortList list_{kOwnMidiClient};
    bool started_ = false;
    // Set while the list is rebuilt in code: its clicks are not the user's.
    bool showingList_ = false;
    bool toldBlackKeys_ = false;
    // What each key that is not a note key sounds, -1 when it is up.
    std::array<int, 128> unwritten_;
};

}  // namespace tessaly
