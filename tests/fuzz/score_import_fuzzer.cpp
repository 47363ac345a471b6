// Feeds arbitrary bytes to the music editor's score import as a text file,
// chosen in the dialog of DRYP as a user chooses one, in the time signature
// that the first byte picks. The import must end inside its own trap whatever
// the bytes, and what it leaves must be a melody: the same tokens on tracks 0
// and 1, nothing but notes, rests, stops and holds there, the song's extent
// taken from the slot the scan reached, the bar on show in the boxes.
// Anything else aborts the run.
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "FuzzProgram.h"
#include "analysis/ImportState.h"
#include "editor/SongModel.h"
#include "runtime/FatalFailure.h"
#include "shell/Instrument.h"

namespace {

using namespace tessaly;
using tessaly::fuzz::fail;

bool melodyToken(std::string_view token) {
    // "MA" is a note of the scan that has no code of its own.
    if (token.empty() || token == "--" || token == "XZ" || token == "TZ" || token == "MA") return true;
    return token.size() == 2 && SYYPSB(token) != 255 && SYYPSB(token) < 56;
}

struct Program : fuzz::Program {
    std::string path;

    Program() : fuzz::Program("tessaly-import-fuzz") {
        app->form1.BJCK.userClick();
        path = (dir / "演奏记录" / "fuzz.txt").string();
    }

    // The editor in the asked time signature with bars 0 and 1 emptied: the
    // clearing of the import then leaves nothing of the input before.
    void reset(int signature) {
        EditorState& s = app->editor.s;
        if (s.SlotsPerBarMinusOne != 15 + 8 * signature) app->editor.barEditing.JPFL_Click(signature);
        s.BarCount = 1;
        QKYP(s);
        s.BarCount = 1;
        midi.take();
        log.take();
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Program program;
    if (size < 1) return 0;
    program.reset(data[0] % 3);
    {
        std::ofstream file(program.path, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(data + 1), static_cast<std::streamsize>(size - 1));
    }
    Instrument& app = *program.app;
    EditorState& s = app.editor.s;
    const ImportState& import = app.editor.scoreImport.state();
    app.unansweredDialogs.queueFileAnswer(program.path);
    try {
        app.YYBJ.commands().DRYP.userClick();
    } catch (...) {
        fail();  // every failure of an import ends in its trap
    }
    if (!program.log.lines().empty()) fail();  // an import says nothing
    if (import.ImportDuration < 0 || import.ImportDuration > 99) fail();
    if (import.ImportSlot < 0 || import.ImportSlot > 9999 + 49) fail();
    const long reached = import.ImportSlot < 9999 ? import.ImportSlot : 9999;
    for (long slot = 0; slot <= reached; ++slot) {
        const std::string& token = s.SlotTokens(slot, 0);
        if (token != s.SlotTokens(slot, 1) || !melodyToken(token)) fail();
    }
    // The clearing set BarCount to 0: anything else came from a finished scan,
    // which takes BarCount and LastSlotIndex from the slot reached first.
    const long slotsPerBar = s.slotsPerBar();
    if (s.BarCount != 0) {
        if (s.BarCount != import.ImportSlot / slotsPerBar) fail();
        if (s.LastSlotIndex != slotsPerBar * s.BarCount + slotsPerBar - 1) fail();
        // A scan that reached the slot past the tables fails in the pass over
        // the slots that follows: the scroll bar and the bars stay as they were.
        if (import.ImportSlot > 9999) return 0;
        if (app.YYBJ.bar().HScroll1.max() != s.BarCount) fail();
        if (static_cast<long>(s.BarStrings(0, 0).size()) != 2 * slotsPerBar) fail();
        if (app.YYBJ.bar().YF1[0].text() != s.BarStrings(s.CurrentBar, 0)) fail();
    }
    return 0;
}
