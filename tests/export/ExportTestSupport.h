#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tessaly::testing {

inline const std::string kTestSoundFont = "/usr/share/sounds/sf2/TimGM6mb.sf2";

// A fresh folder, removed at the end, with a data folder "app" in it where
// the program has started once, so that it holds what a first start writes
// (the settings, the chord figures), as a user's data folder does.
class ExportFolder {
public:
    ExportFolder();
    ~ExportFolder();
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    std::string appDir() const { return file("app"); }
    // A file in the data folder's scores folder.
    std::string score(const std::string& name) const { return (path_ / "app" / "演奏记录" / name).string(); }
    void write(const std::string& path, const std::string& text) const;

private:
    std::filesystem::path path_;
};

// One short MIDI message with its time in ms.
struct LoggedMessage {
    double ms;
    int status, data1, data2;
};

// Runs the driver script setup, then play, on the recording platform in the
// folder's data folder, and returns the MIDI messages sent during play, with
// times from the first of them.
std::vector<LoggedMessage> scriptMidiLog(const ExportFolder& folder, const std::string& setup,
                                         const std::string& play);

// A settings file whose F1 set is the piano alone on the first channel.
std::string pianoOnF1Settings();

}  // namespace tessaly::testing
