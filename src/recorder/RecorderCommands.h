#pragma once
#include <exception>
#include <functional>
#include <string>

namespace tessaly {

class Dialogs;
class MciCommands;

extern const char* const kMainPlayFilter;    // the main window's open dialog
extern const char* const kEditorPlayFilter;  // the editor's open dialog
extern const char* const kTakeFilter;        // both save dialogs

// A file dialog the user cancelled: like any failure, it ends the event.
struct DialogCancelled : std::exception {
    const char* what() const noexcept override { return "cancelled"; }
};

// The command strings both recorders send, in their order.
class RecorderCommands {
public:
    RecorderCommands(MciCommands& mci, Dialogs& dialogs) : mci_(mci), dialogs_(dialogs) {}

    // A new PCM recording of the given bits and rate, two channels, started.
    void record(const std::string& bits, const std::string& rate);
    // Closes the device, asks for a file and plays it. Returns the name
    // chosen; an empty one stops before anything is opened.
    std::string play(const std::string& filter, const std::string& startFolder);
    // The save dialog's answer as it stands.
    std::string askSaveName(const std::string& startFolder);
    // Stops, saves and closes. A take the device could not write is kept:
    // the save fails as a run-time failure, before the close.
    void save(const std::string& path);
    // Stops recording or playing; the device stays open.
    void stop();
    // What the polls send when the mode answers "stopped".
    void closeAfterEnd();
    // The mode as the polls read it, from a reply buffer of 64 characters.
    std::string mode();

private:
    MciCommands& mci_;
    Dialogs& dialogs_;
};

// The device type by the last three characters of the name, with their case:
// "wav" WaveAudio, "mp3" MPEGVideo, anything else none.
std::string deviceTypeOf(const std::string& name);

// The main window's save name: a three-letter ending is replaced by ".wav",
// anything else gets ".wav" behind it. A name shorter than four characters
// is a run-time failure, as taking the fourth from its end would be.
std::string mainWindowTakeName(const std::string& name);

// Runs one event of a recorder under its failure trap: a cancelled dialog or
// a run-time failure ends the event silently where it stands.
void underTrap(const std::function<void()>& event);

}  // namespace tessaly
