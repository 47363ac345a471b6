// The song kept as an edit file when the program ends by a run-time failure.
#include <algorithm>
#include <filesystem>

#include "editor/EditFiles.h"
#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "runtime/TextFiles.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

constexpr const char* kRecoveredName = "恢复的编辑记录";

// The last bar whose every slot lies inside the tables: a song stretched
// beyond them (the failure may be just that) is kept up to there.
long lastKeepableBar(const EditorState& s) {
    const long slots = s.slotsPerBar();
    long last = std::min<long>(s.BarCount, 9999);
    if (slots > 0) last = std::min(last, (9999 - (slots - 1)) / slots);
    return last;
}

bool holdsAnything(const EditorState& s, long lastBar) {
    const long slots = std::max<long>(s.slotsPerBar(), 0);
    for (long bar = 0; bar <= lastBar; ++bar) {
        if (!s.BarHead[bar].empty()) return true;
        for (int t = 0; t < kTracks; ++t) {
            if (!s.BarStrings(bar, t).empty()) return true;
            for (long slot = 0; slot < slots; ++slot)
                if (!s.SlotTokens(slots * bar + slot, t).empty()) return true;
        }
    }
    return false;
}

}  // namespace

std::optional<FatalEndSaves::Saved> Editor::saveForRecovery() {
    const long lastBar = lastKeepableBar(s);
    if (lastBar < 0 || !holdsAnything(s, lastBar)) return std::nullopt;
    const std::string folder = shared.AppDir + "演奏记录/";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const std::string path = freeRecoveryPath(folder, kRecoveredName, ".lnk");
    if (!replaceFile(path, joinLines(editFileLines(s, lastBar)))) return std::nullopt;
    return FatalEndSaves::Saved{"编辑器中的乐曲", path};
}

}  // namespace tessaly
