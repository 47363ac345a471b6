#include "editor/EditFiles.h"

#include <cmath>
#include <filesystem>

#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "editor/TextSlicer.h"
#include "platform/Dialogs.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"
#include "runtime/TextFiles.h"

namespace tessaly {

const char* const kEditFileSaveFilter = "乐谱编辑|*.lnk";
const char* const kEditFileOpenFilter = "编辑记录|*.lnk";

namespace {
constexpr int kLinesPerBar = 13;
}  // namespace

std::optional<std::string> editFileSavePath(const std::string& chosen) {
    const std::size_t length = charLength(chosen);
    if (length < 4) return std::nullopt;
    if (charSubstr(chosen, length - 4, 1) == ".") return charSubstr(chosen, 0, length - 4) + ".lnk";
    return chosen + ".lnk";
}

std::string writtenToken(const std::string& token, int track) {
    if (token.compare("1") >= 0) return token;
    return isMelodyTrack(track) ? "--" : "-";
}

std::vector<std::string> editFileLines(const EditorState& song, long lastBar) {
    std::vector<std::string> lines;
    const int16_t slots = song.slotsPerBar();
    for (long bar = 0; bar <= lastBar; ++bar) {
        const std::string& head = song.BarHead[bar];
        lines.push_back(charLength(head) < 5 ? zeroFilled(bar, 4) : head);
        for (int t = 0; t < kTracks; ++t) {
            std::string text;
            for (long slot = 0; slot < slots; ++slot) text += writtenToken(song.SlotTokens(slots * bar + slot, t), t);
            lines.push_back(std::move(text));
        }
    }
    return lines;
}

void EditFiles::BCBJWJ() {
    EditorState& s = e_.s;
    const int16_t slots = s.slotsPerBar();
    // Before the dialog, so that they stand even when the user cancels.
    for (long bar = 0; bar <= s.BarCount; ++bar)
        for (int t = 0; t < kTracks; ++t)
            for (long slot = 0; slot < slots; ++slot) {
                std::string& token = s.SlotTokens(slots * bar + slot, t);
                token = writtenToken(token, t);
            }
    for (long bar = 0; bar <= s.BarCount; ++bar)
        for (int t = 0; t < kTracks; ++t) {
            std::string& text = s.BarStrings(bar, t);
            text.clear();
            for (long slot = 0; slot < slots; ++slot) text += s.SlotTokens(slots * bar + slot, t);
        }
    for (long bar = 0; bar <= s.BarCount; ++bar)
        if (charLength(s.BarHead[bar]) < 5) s.BarHead[bar] = zeroFilled(bar, 4);

    // From the dialog on, a failure, cancel included, ends the save without a word.
    try {
        std::optional<std::string> chosen = e_.dialogs.saveFile(kEditFileSaveFilter, s.DialogFolder);
        if (!chosen) return;
        s.DialogFileName = *chosen;
        std::optional<std::string> path = editFileSavePath(*chosen);
        if (!path) return;
        s.EditFilePath = *path;
        std::vector<std::string> lines;
        for (long bar = 0; bar <= s.BarCount; ++bar) {
            lines.push_back(s.BarHead[bar]);
            for (int t = 0; t < kTracks; ++t) lines.push_back(s.BarStrings(bar, t));
        }
        // Written whole and renamed over the old file: a failed write leaves it as it was.
        replaceFile(*path, joinLines(lines));
    } catch (const FatalFailure&) {
    }
}

void EditFiles::DkBianji_Click() {
    EditorState& s = e_.s;
    // Cleared before the dialog: a cancelled open does not bring the song back.
    QKYP(s);
    try {
        // A cancelled open goes on with the name the dialog still holds.
        if (std::optional<std::string> chosen = e_.dialogs.openFile(kEditFileOpenFilter, s.DialogFolder))
            s.DialogFileName = *chosen;
        s.EditFilePath = s.DialogFileName;
        readInto(s.EditFilePath);
    } catch (const FatalFailure&) {
        // Any failure of the open ends it silently, the song as far as it came.
    }
}

void EditFiles::readInto(const std::string& path) {
    EditorState& s = e_.s;
    std::error_code error;
    if (path.empty() || !std::filesystem::is_regular_file(path, error)) return;
    std::optional<std::string> text = readTextFile(path);
    if (!text) return;
    long n = 0;
    for (std::string& line : splitLines(*text)) {
        s.FileLine[n] = std::move(line);  // line 10001 has no room: the read fails there
        ++n;
    }
    s.BarCount = toInt32(n - 1);
    for (long i = 0; i <= n - 1; i += kLinesPerBar) {
        const long bar = i / kLinesPerBar;
        s.BarHead[bar] = s.FileLine[i];
        for (int t = 0; t < kTracks; ++t) s.BarStrings(bar, t) = s.FileLine[i + 1 + t];
    }
    s.BarCount = static_cast<int32_t>(std::floor(static_cast<double>(n - 1) / kLinesPerBar));
    s.LoadedSlots = toInt16(static_cast<long long>(charLength(s.BarStrings(0, 0)) / 2));
    DKBJ();
}

void EditFiles::DKBJ() {
    EditorState& s = e_.s;
    const long loaded = s.LoadedSlots;
    for (long bar = 0; bar <= s.BarCount; ++bar)
        for (int t = 0; t < kTracks; ++t) {
            const TextSlicer text(s.BarStrings(bar, t));
            for (long slot = 1; slot <= loaded; ++slot) {
                const long row = loaded * bar + slot - 1;
                if (!isMelodyTrack(t)) {
                    // A percussion gap stays empty, unlike a melody gap.
                    s.SlotTokens(row, t) = text.mid(slot, 1);
                    continue;
                }
                std::string token = text.mid(2 * slot - 1, 2);
                if (token.empty()) token = "--";
                s.SlotNotes(row, t) = SYYPSB(token);
                s.SlotTokens(row, t) = std::move(token);
            }
        }
    const long shownBar = s.CurrentBar;
    for (auto& [t, box] : e_.bar().YF1) {
        box->setMaxLength(static_cast<int>(2 * loaded));
        box->setText("");
    }
    // The boxes show the bar that was on show until bar 0 takes its place below.
    for (int t = 0; t < kMelodyTracks; ++t) e_.bar().YF1[t].setText(s.BarStrings(shownBar, t));
    s.SlotsPerBarMinusOne = toInt16(loaded - 1);
    e_.window.DKJZWJ();
    EditorBarPanel& b = e_.bar();
    b.HScroll1.setMax(s.BarCount);
    s.CurrentBar = 0;
    b.XJZS.setText("0");
    b.HScroll1.setValue(0);
    if (charLength(s.BarHead[0]) > 4) e_.barSettings.CXTSB();
    for (int t = 0; t < kMelodyTracks; ++t) b.YF1[t].setText(s.BarStrings(0, t));
    e_.barEditing.showPercussion(0);
    e_.barEditing.showBarLabel(0);
    s.LastSlotIndex = s.lastSlotOfSong();
}

}  // namespace tessaly
