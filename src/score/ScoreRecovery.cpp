#include "score/ScoreRecovery.h"

#include <filesystem>

#include "forms/MainWindow.h"
#include "score/ScoreFiles.h"
#include "state/SharedState.h"

namespace tessaly {

std::optional<FatalEndSaves::Saved> saveScoreForRecovery(const SharedState& state, const MainWindow& form) {
    const std::string& text = form.Text3.text();
    if (text.empty()) return std::nullopt;
    const std::string folder = state.AppDir + "演奏记录/";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const std::string path = freeRecoveryPath(folder, "恢复的乐谱", ".txt");
    if (!writeScoreFile(path, text)) return std::nullopt;
    return FatalEndSaves::Saved{"乐谱框中的乐谱", path};
}

}  // namespace tessaly
