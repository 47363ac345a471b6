// The score import's scanner alone, at the speed a long run needs: arbitrary
// bytes scanned into one song kept across inputs, only the cells the last
// input touched put back. A scan ends by finishing or by the failure its
// design names; it never runs on past the text, and the melody it writes is
// the same on tracks 0 and 1. Anything else aborts the run.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "analysis/ImportState.h"
#include "analysis/ScoreScanner.h"
#include "editor/EditorState.h"
#include "editor/SongModel.h"
#include "runtime/FatalFailure.h"

namespace {

using namespace tessaly;

[[noreturn]] void fail() { std::abort(); }

struct Song {
    std::unique_ptr<EditorState> song = std::make_unique<EditorState>();
    ImportState import;
    long touched = -1;  // the highest slot the last input may have written

    void reset() {
        for (long slot = 0; slot <= touched && slot < 10000; ++slot)
            for (int track = 0; track < kMelodyTracks; ++track) {
                song->SlotTokens(slot, track).clear();
                song->SlotNotes(slot, track) = 0;
            }
        song->BarCount = 0;
        song->ImportCursor = 1;
        import.ImportSlot = 0;
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Song s;
    s.reset();
    const std::string text(reinterpret_cast<const char*>(data), size);
    const ScanText scanText(text);
    bool finished = false;
    try {
        scanMelody(scanText, *s.song, s.import);
        finishScan(*s.song, s.import);
        finished = true;
    } catch (const FatalFailure&) {
    }
    s.touched = s.import.ImportSlot + 1;
    // The cursor moves on by at least one a token and stops within reach of the end.
    if (s.song->ImportCursor < 1 || s.song->ImportCursor > scanText.length() + 4) fail();
    if (s.import.ImportDuration < 0 || s.import.ImportDuration > 99) fail();
    if (s.import.ImportSlot < 0 || s.import.ImportSlot > 9999 + 49) fail();
    const long reached = s.import.ImportSlot < 9999 ? s.import.ImportSlot : 9999;
    for (long slot = 0; slot <= reached; ++slot)
        if (s.song->SlotTokens(slot, 0) != s.song->SlotTokens(slot, 1)) fail();
    if (finished) {
        if (s.song->BarCount != s.import.ImportSlot / 16) fail();
        // The finish leaves no code 0 behind, an imported "LC" included.
        for (long slot = 0; slot <= reached; ++slot)
            if (s.song->SlotNotes(slot, 0) == 0) fail();
    } else if (s.song->BarCount != 0) {
        // The finish takes BarCount from the slot reached before its pass over
        // the slots; only a scan that reached past the tables fails in that pass.
        if (s.import.ImportSlot <= 9999 || s.song->BarCount != s.import.ImportSlot / 16) fail();
    }
    return 0;
}
