#include "shell/StartFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "shell/Instrument.h"

namespace tessaly {

namespace fs = std::filesystem;

StartFileKind startFileKind(const std::string& path) {
    std::string extension = fs::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extension == ".txt") return StartFileKind::Score;
    if (extension == ".lnk") return StartFileKind::EditFile;
    if (extension == ".bin") return StartFileKind::Rhythm;
    return StartFileKind::Other;
}

std::optional<std::string> PresetOpenDialog::openFile(const std::string& filter, const std::string& startFolder) {
    if (preset_) {
        std::optional<std::string> answer = std::move(preset_);
        preset_.reset();
        wentTo(*answer);
        return answer;
    }
    std::optional<std::string> answer = asked_.openFile(filter, startFolder);
    wentWhere(asked_);
    return answer;
}

std::optional<std::string> PresetOpenDialog::saveFile(const std::string& filter, const std::string& startFolder) {
    std::optional<std::string> answer = asked_.saveFile(filter, startFolder);
    wentWhere(asked_);
    return answer;
}

std::optional<std::string> PresetOpenDialog::saveFileOfType(const std::string& filter, const std::string& startFolder,
                                                            int& chosenType, const std::string& suggestedName) {
    std::optional<std::string> answer = asked_.saveFileOfType(filter, startFolder, chosenType, suggestedName);
    wentWhere(asked_);
    return answer;
}

std::optional<std::string> PresetOpenDialog::inputBox(const std::string& prompt, const std::string& title,
                                                      const std::string& defaultText) {
    return asked_.inputBox(prompt, title, defaultText);
}

namespace {

// The entry of the rhythm list that names this file, or -1.
int rhythmListEntry(FileListBox& list, const fs::path& file) {
    std::error_code error;
    if (!fs::equivalent(fs::path(list.path()), file.parent_path(), error)) return -1;
    for (int i = 0; i < list.listCount(); ++i)
        if (list.item(i) == file.filename().string()) return i;
    return -1;
}

}  // namespace

void openStartFile(Instrument& instrument, PresetOpenDialog& dialogs, const std::string& path) {
    // The dialogs take a full path, as a file chosen in them is.
    std::error_code error;
    const fs::path file = fs::absolute(path, error);
    MainWindow& form = instrument.form1;
    switch (startFileKind(path)) {
    case StartFileKind::Score:
        dialogs.answerNextOpen(file.string());
        form.Yuepu[2].userClick();
        return;
    case StartFileKind::EditFile:
        form.BJCK.userClick();
        dialogs.answerNextOpen(file.string());
        instrument.YYBJ.commands().DkBianji.userClick();
        return;
    case StartFileKind::Rhythm:
        if (const int entry = rhythmListEntry(form.File1, file); entry >= 0) {
            form.File1.userPick(entry);
            return;
        }
        form.FJWZ.setCaption("节奏文件要放在“演奏记录”文件夹中才能使用：" + path);
        return;
    case StartFileKind::Other:
        form.FJWZ.setCaption("无法打开这种文件：" + path);
        return;
    }
}

}  // namespace tessaly
