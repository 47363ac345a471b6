#include "score/ScoreRecovery.h"

#include "forms/MainWindow.h"
#include "forms/ScoreEntryWindow.h"

namespace tessaly {

std::optional<FatalEndSaves::Saved> saveScoreForRecovery(const MainWindow& form, const std::vector<std::string>& folders) {
    const std::string& text = form.Text3.text();
    if (text.empty()) return std::nullopt;
    // As a score file is saved: the text and one line end.
    return keepRecovered(folders, "乐谱框中的乐谱", "恢复的乐谱", ".txt", text + "\r\n");
}

std::optional<FatalEndSaves::Saved> saveEntryForRecovery(const ScoreEntryWindow& form,
                                                         const std::vector<std::string>& folders) {
    const std::string& text = form.Text1.text();
    if (text.empty()) return std::nullopt;
    return keepRecovered(folders, "乐谱录入窗口中的文字", "恢复的乐谱录入", ".txt", text);
}

}  // namespace tessaly
