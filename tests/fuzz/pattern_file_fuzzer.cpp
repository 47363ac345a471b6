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

#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/VirtualEventLoop.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"
#include "runtime/TextFiles.h"
#include "shell/Instrument.h"

namespace {

using namespace tessaly;

[[noreturn]] void fail() { std::abort(); }

struct Program {
    VirtualEventLoop loop;
    EventLog log;
    RecordingMidiPort midi{loop};
    RecordingWaveOut wave{log};
    RecordingMessageBoxes boxes{log};
    Platform platform{loop, midi, wave, boxes};
    std::filesystem::path dir;
    std::unique_ptr<Instrument> app;
    int draws = 0;

    Program() {
        dir = std::filesystem::temp_directory_path() / ("tessaly-fuzz-patterns-" + std::to_string(getpid()));
        std::filesystem::create_directories(dir / "音效");
        app = std::make_unique<Instrument>(platform, dir.string());
        app->start();
        while (!app->activated() && !app->ended()) loop.advance(1);
        if (!app->activated()) fail();
        app->form1.Xxk[1].userClick();
        // Draws spread over the whole file, the same for every input.
        app->chordPageHandlers.draw.uniform = [this] {
            draws = (draws + 7919) % 1000;
            return draws / 1000.0;
        };
    }
    ~Program() {
        app.reset();
        std::error_code error;
        std::filesystem::remove_all(dir, error);
    }
};

long lineCount(const std::string& bytes) {
    std::optional<std::string> text = decodeText(bytes);
    return text ? static_cast<long>(splitLines(*text).size()) : 0;
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
