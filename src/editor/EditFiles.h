#pragma once
#include <optional>
#include <string>
#include <vector>

namespace tessaly {

class Editor;
struct EditorState;

// Edit files (".lnk"): thirteen lines an editor bar, its settings text then
// the texts of tracks 0..11. BCBJWJ writes the song, DkBianji_Click reads a
// file and DKBJ rebuilds the song from it.
class EditFiles {
public:
    explicit EditFiles(Editor& editor) : e_(editor) {}

    void BCBJ_Click() { BCBJWJ(); }
    void BCBJWJ();
    void DkBianji_Click();
    void DKBJ();

private:
    // Reads the lines of the file into FileLine and takes the song from them.
    void readInto(const std::string& path);

    Editor& e_;
};

extern const char* const kEditFileSaveFilter;
extern const char* const kEditFileOpenFilter;

// The path a chosen file name is saved under: a three-letter extension gives
// way to ".lnk", any other name gets ".lnk" behind it. Empty when the name is
// too short to have an extension.
std::optional<std::string> editFileSavePath(const std::string& chosen);

// A slot's token as it is written: one that sorts before "1" ("", "-", "--",
// "0...") becomes "--" on a melody track and "-" on a percussion track.
std::string writtenToken(const std::string& token, int track);

// The file's lines for bars 0..lastBar as the writer makes them from the
// song, without changing the song: a bar without its own settings is numbered.
std::vector<std::string> editFileLines(const EditorState& song, long lastBar);

}  // namespace tessaly
