// Feeds arbitrary bytes to the score reader as ScoreText and reads item after
// item as the player does. Each read must end in exactly one of: an item that
// plays (a note or rest, with Timer3 running), the stop, the error message, or
// the program's own fatal failure. Anything else aborts the run.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/VirtualEventLoop.h"
#include "runtime/FatalFailure.h"
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
    std::unique_ptr<Instrument> app;

    Program() {
        auto dir = std::filesystem::temp_directory_path() / "tessaly-fuzz";
        std::filesystem::create_directories(dir / "音效");
        app = std::make_unique<Instrument>(platform, dir.string());
        app->start();
        // The main window is ready once the splash has handed over.
        while (!app->activated() && !app->ended()) loop.advance(1);
        if (!app->activated()) fail();
    }

    void reset() {
        MainWindow& f = app->form1;
        f.Timer3.setTimerEnabled(false);
        f.SD.setListIndex(6);
        f.YD.setListIndex(0);
        f.Check5.setValue(0);
        SharedState& s = app->state;
        s.ScorePos = 1;
        s.ScoreTick = 0;
        s.NoteDuration = 0;
        s.PendingNote = 0;
        s.AutoPlaying = 0;
        midi.take();
        log.take();
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Program program;
    program.reset();
    Instrument& app = *program.app;
    app.state.ScoreText.assign(reinterpret_cast<const char*>(data), size);
    try {
        for (int read = 0; read < 4000; ++read) {
            app.scorePlayer.YSCX();
            bool message = !program.log.take().empty();
            bool stopped = app.state.PendingNote == 255 && !app.form1.Timer3.timerEnabled();
            bool plays = (app.state.PendingNote < 64 || app.state.PendingNote == 254) && app.form1.Timer3.timerEnabled();
            if (int(message) + int(stopped) + int(plays) != 1) fail();
            if (!plays) break;
        }
    } catch (const FatalFailure&) {
        // The reader's controlled failure: a malformed end or a missing instrument set.
    }
    return 0;
}
