#pragma once
#include <optional>
#include <string>

#include "platform/Dialogs.h"

namespace tessaly {

class Instrument;

// A file named on the command line, by its extension in any case.
enum class StartFileKind { Score, EditFile, Rhythm, Other };
StartFileKind startFileKind(const std::string& path);

// The program's file dialogs with one answer given in advance: the next open
// dialog returns it without showing; everything else is asked of the real
// dialogs.
class PresetOpenDialog : public Dialogs {
public:
    explicit PresetOpenDialog(Dialogs& asked) : asked_(asked) {}

    void answerNextOpen(std::string path) { preset_ = std::move(path); }

    std::optional<std::string> openFile(const std::string& filter, const std::string& startFolder) override;
    std::optional<std::string> saveFile(const std::string& filter, const std::string& startFolder) override;
    std::optional<std::string> saveFileOfType(const std::string& filter, const std::string& startFolder,
                                              int& chosenType, const std::string& suggestedName) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;

private:
    Dialogs& asked_;
    std::optional<std::string> preset_;
};

// Opens a file named on the command line once the main window is up, by the
// same clicks a user would make with the file chosen in the dialog: a score
// by the score panel's "打开" (it goes into the score box and plays), an edit
// file by "编辑窗口" and the editor's "打开编辑". A rhythm file of the
// folder "演奏记录" is picked from the rhythm page's list. Anything else is
// left alone, with a word in the status line.
void openStartFile(Instrument& instrument, PresetOpenDialog& dialogs, const std::string& path);

}  // namespace tessaly
