// Feeds arbitrary bytes to the chord page as its pattern file HxJzMx.txt: the
// figures are drawn from it, expanded over the order and sounded for a bar.
// The run must either finish with every figure box holding at most 16
// characters of a line of the file, or, for a file of more than 1000 lines,
// end in the bounds failure. Anything else aborts the run.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

#include "FuzzProgram.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"
#include "runtime/TextFiles.h"
#include "shell/Instrument.h"

namespace {

using namespace tessaly;

using tessaly::fuzz::fail;

struct Program : fuzz::Program {
    int draws = 0;

    Program() : fuzz::Program("tessaly-fuzz-patterns") {
        app->form1.Xxk[1].userClick();
        // Draws spread over the whole file, the same for every input.
        app->chordPageHandlers.draw.uniform = [this] {
            draws = (draws + 7919) % 1000;
            return draws / 1000.0;
        };
    }
};

long lineCount(const std::string& bytes) {
    return static_cast<long>(splitLines(decodeText(bytes)).size());
}

// The box holds a drawn line as it stands, cut to the box's 16 characters. A
// draw from an empty file gives line 0 or 1, and the table keeps old lines.
bool holdsALine(const std::string& box, const ChordState& chords, long lines) {
    if (charLength(box) > 16) return false;
    for (long i = 0; i <= std::max(lines, 1L); ++i)
        if (charSubstr(chords.PatternLines[i], 0, 16) == box) return true;
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Program program;
    Instrument& app = *program.app;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::ofstream(program.dir / "HxJzMx.txt", std::ios::binary | std::ios::trunc) << bytes;
    const long lines = lineCount(bytes);
    ChordPage& page = app.form1.chordPage;
    try {
        app.chordPageHandlers.HXCSH();
        app.chords.HXYPSB();
        app.chords.HXJS();
        for (int16_t step = 0; step < app.state.StepsPerChord; ++step) {
            app.state.ChordStep = step;
            app.chords.BZHX();
            app.chords.BZHX2();
            app.chords.ZHHXJ();
        }
        app.chords.HX1K();
    } catch (const FatalFailure& failure) {
        if (failure.kind() != FailureKind::SubscriptOutOfRange || lines <= 1000) fail();
        return 0;
    }
    if (lines > 1000) fail();
    for (const TextBox* box : {&page.Text4, &page.Text5, &page.Text7})
        if (!holdsALine(box->text(), app.chordState, lines)) fail();
    program.midi.take();
    return 0;
}
