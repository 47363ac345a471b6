// The song kept as an edit file when the program ends by a run-time failure.
#include <algorithm>

#include "editor/EditFiles.h"
#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "runtime/TextFiles.h"

namespace tessaly {

namespace {

constexpr const char* kRecoveredName = "恢复的编辑记录";

// The last bar whose every slot lies inside the tables: a song stretched
// beyond them (the failure may be just that) is kept up to there.
long lastBarInTables(const EditorState& s) {
    const long slots = s.slotsPerBar();
    long last = 9999;
    if (slots > 0) last = std::min(last, (9999 - (slots - 1)) / slots);
    return last;
}

bool barHoldsAnything(const EditorState& s, long bar) {
    const long slots = std::max<long>(s.slotsPerBar(), 0);
    if (!s.BarHead[bar].empty()) return true;
    for (int t = 0; t < kTracks; ++t) {
        if (!s.BarStrings(bar, t).empty()) return true;
        for (long slot = 0; slot < slots; ++slot)
            if (!s.SlotTokens(slots * bar + slot, t).empty()) return true;
    }
    return false;
}

// The last bar to keep: BarCount, or further where a bar beyond it holds
// anything, since BarCount can be set to any number (even -1) by the user.
long lastBarToKeep(const EditorState& s) {
    const long inTables = lastBarInTables(s);
    long last = std::min<long>(s.BarCount, inTables);
    for (long bar = inTables; bar > last; --bar)
        if (barHoldsAnything(s, bar)) return bar;
    return last;
}

bool holdsAnything(const EditorState& s, long lastBar) {
    for (long bar = 0; bar <= lastBar; ++bar)
        if (barHoldsAnything(s, bar)) return true;
    return false;
}

}  // namespace

std::optional<FatalEndSaves::Saved> Editor::saveForRecovery(const std::vector<std::string>& folders) {
    const long lastBar = lastBarToKeep(s);
    if (lastBar < 0 || !holdsAnything(s, lastBar)) return std::nullopt;
    return keepRecovered(folders, "编辑器中的乐曲", kRecoveredName, ".lnk", joinLines(editFileLines(s, lastBar)));
}

}  // namespace tessaly
