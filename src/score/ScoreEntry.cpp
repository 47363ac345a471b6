#include "score/ScoreEntry.h"

#include <filesystem>

#include "forms/MainWindow.h"
#include "forms/ScoreEntryWindow.h"
#include "platform/Dialogs.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"
#include "runtime/TextFiles.h"
#include "score/ScorePanel.h"
#include "state/SharedState.h"

namespace tessaly {

std::string entrySaveName(const std::string& chosen) {
    std::string name = chosen;
    std::size_t length = charLength(name);
    if (length >= 4 && charSubstr(name, length - 4, 1) == ".") name = charSubstr(name, 0, length - 4);
    return name + ".txt";
}

void ScoreEntry::wire() {
    window_.onLoad = [this] { Form_Load(); };
    window_.onUnload = [this] { Form_Unload(); };
    window_.DKYP.onClick = [this] { DKYP_Click(); };
    window_.Command1.onClick = [this] { Command1_Click(); };
    window_.FANHUI.onClick = [this] { FANHUI_Click(); };
}

void ScoreEntry::Form_Load() {
    startFolder_ = state_.AppDir + "演奏记录";
    window_.Text1.makeSeeThrough(0, 0);
}

void ScoreEntry::Form_Unload() {
    // Closing by the close box brings the main window back as the button does;
    // nothing is saved and nothing is asked.
    if (!main_.visible()) main_.show();
}

void ScoreEntry::DKYP_Click() {
    window_.Text1.setText("");
    std::optional<std::string> path = dialogs_.openFile(kScoreFilter, startFolder_);
    if (!path) return;
    lastPath_ = *path;
    std::error_code error;
    if (path->empty() || !std::filesystem::is_regular_file(*path, error)) return;
    std::optional<std::string> text = readTextFile(*path);
    if (!text) return;
    window_.WJMC.setText(std::filesystem::path(*path).filename().string());
    // Unlike the main window's open, the lines stay lines here.
    window_.Text1.setText(*text);
}

void ScoreEntry::Command1_Click() {
    const std::string text = window_.Text1.text();
    std::optional<std::string> chosen = dialogs_.saveFile(kScoreFilter, startFolder_);
    if (!chosen) return;
    lastPath_ = *chosen;
    // Two characters are no score ("TZ" alone): nothing is written, and nothing said.
    if (charLength(text) <= 2) return;
    const std::string name = entrySaveName(*chosen);
    if (!replaceFile(name, text + "\r\n")) throw FatalFailure(FailureKind::InvalidCall, "无法写入文件：" + name);
}

void ScoreEntry::FANHUI_Click() {
    main_.show();
    window_.unload();
}

}  // namespace tessaly
