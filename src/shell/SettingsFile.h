#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tessaly {

class MainWindow;
class MidiOut;
struct Platform;
struct SharedState;

constexpr const char* kSettingsFileName = "tessaly.ini";
constexpr const char* kBrokenSettingsFileName = "tessaly.ini.bad";
constexpr int kSettingsLineCount = 53;

// The 53 values of the settings file, in the order of its lines.
struct Settings {
    std::array<std::array<int16_t, 3>, 12> instrumentSets{};  // F1..F12, channels 0..2
    std::array<int16_t, 10> keypad{};                          // keypad digits 0..9
    std::array<std::string, 6> effects;                        // Insert, Home, PageUp, Delete, End, PageDown
    int16_t check1 = 0;
};

// The settings the program ships with.
Settings defaultSettings();
// The file's lines: numbers as " 89 " (blank for the sign, blank after),
// file names as they are.
std::vector<std::string> settingsLines(const Settings& settings);
// The default file: the saved form of the defaults, but its first line has
// no leading blank.
std::string defaultSettingsText();

// Reads the lines of a settings file. Throws FatalFailure when a line is
// missing or a number will not convert; lines past the 53rd are not read.
Settings parseSettings(const std::vector<std::string>& lines);
// A line's number: blanks around it are ignored, anything else that is not
// part of the number makes it fail; a fraction rounds half to even.
int16_t settingsNumber(const std::string& line);

// "tessaly.ini" in the program's folder: written at the first start, read at
// every activation of the main window, saved by the shortcut page.
class SettingsFile {
public:
    SettingsFile(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form)
        : platform_(platform), state_(state), midi_(midi), form_(form) {}

    std::string path() const;
    // Start-up: the defaults are written when there is no file yet.
    void writeDefaultsIfMissing();
    // Reads and applies the file, if there is one. False when it could not be
    // read or applied: the defaults have then replaced it, the user has been
    // told, and the program must end.
    bool readAtActivation();
    // The save button of the shortcut page.
    void BCSZ_Click();

private:
    void apply(const Settings& settings);
    void errorPath();
    // A file that cannot be written is a fatal failure, as nothing traps it.
    void write(const std::string& text);

    Platform& platform_;
    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
};

}  // namespace tessaly
