#pragma once
#include <cstddef>
#include <optional>
#include <string>

namespace tessaly {

class Dialogs;
class MainWindow;
class MidiOut;
struct Platform;
struct SharedState;

// The filter of the rhythm page's save dialog.
extern const char* const kRhythmFilter;
// The message for a text too short to be a rhythm file.
extern const char* const kRhythmFileError;

// The most of a rhythm file that is read: its one line of 77 characters,
// with room to spare for what may follow it.
inline constexpr std::size_t kLongestRhythmFile = 1u << 20;
// A rhythm file's whole text, decoded as the program reads every text file
// (UTF-8, else GB18030); nullopt when the file cannot be read, with the cause
// in `error`.
std::optional<std::string> readRhythmFile(const std::string& path, int* error = nullptr);

// Rhythm files: one line of 77 characters that holds the volume, the metre,
// the three instruments and the grid of the rhythm page. The list File1
// offers the files of the folder "演奏记录"; Label11 names the current one.
class RhythmFiles {
public:
    RhythmFiles(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form, Dialogs& dialogs);

    void wire();

    // Takes RhythmFileText into the page's controls and StepTable.
    void OpenJZwj();
    // Writes the page to the file FilePathInUse, named in its last 16 characters.
    void SaveJZwj();

    void File1_Click();
    void Cmdcill_Click(int Index);
    // The pointer over Label11 brings up the list; over the bare page it goes.
    void Label11_MouseMove();
    void Jiezhou_MouseMove(int Index);

    // At start: the list goes to the rhythm folder and its first file is taken in.
    void loadFirstFileAtStart();

    // The line SaveJZwj writes for a file of this title, without its line end.
    std::string patternLine(const std::string& title) const;

private:
    std::string selectedFilePath() const;
    void deleteSelectedFile();
    void saveWithDialog();

    Platform& platform_;
    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
    Dialogs& dialogs_;
};

}  // namespace tessaly
