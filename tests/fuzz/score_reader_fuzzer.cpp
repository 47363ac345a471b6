// A score file of arbitrary bytes, opened from the score panel as a user opens
// one (decoded as UTF-8 or GB18030, its lines joined), at a tempo and in a
// tonality drawn from its last two bytes, then read to its end item by item and played
// in virtual time. Every read ends in exactly one of: an item that plays, the
// stop, the error message; and the only fatal failures are the reader's own:
// a single digit at the very end, an instrument set that does not exist, a
// text longer than a 16-bit length. Anything else aborts the run.
#include <cstdint>
#include <fstream>
#include <string>

#include "FuzzProgram.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"

namespace {

using namespace tessaly;
using tessaly::fuzz::fail;

bool namedFailure(const FatalFailure& failure, const std::string& text) {
    switch (failure.kind()) {
    case FailureKind::InvalidCall: return std::string(failure.what()).find("乐谱末尾的时值之后没有字符") != std::string::npos;
    case FailureKind::SubscriptOutOfRange: return text.find("YQ") != std::string::npos;
    case FailureKind::Overflow: return charLength(text) > 32767;
    default: return false;
    }
}

void stopPlaying(fuzz::Program& program) {
    MainWindow& f = program.app->form1;
    f.Timer3.setTimerEnabled(false);
    f.Timer1.setTimerEnabled(false);
    f.BZDS.setTimerEnabled(false);
    f.Check5.setValue(0);
    SharedState& s = program.app->state;
    s.ScorePos = 1;
    s.ScoreTick = 0;
    s.NoteDuration = 0;
    s.PendingNote = 0;
    s.AutoPlaying = 0;
    program.midi.take();
    program.log.take();
}

// Reads the whole text as the player's ticks would, without waiting for them.
void readToTheEnd(fuzz::Program& program) {
    Instrument& app = *program.app;
    for (int read = 0; read < 40000; ++read) {
        app.scorePlayer.YSCX();
        bool message = !program.log.take().empty();
        bool stopped = app.state.PendingNote == 255 && !app.form1.Timer3.timerEnabled();
        bool plays = (app.state.PendingNote < 64 || app.state.PendingNote == 254) && app.form1.Timer3.timerEnabled();
        if (int(message) + int(stopped) + int(plays) != 1) fail();
        if (!plays) return;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static fuzz::Program program("tessaly-score-fuzz");
    if (size < 2) return 0;
    stopPlaying(program);
    Instrument& app = *program.app;
    app.form1.SD.setListIndex(data[size - 2] % app.form1.SD.listCount());
    app.form1.YD.setListIndex(data[size - 1] % app.form1.YD.listCount());
    const std::string path = (program.dir / "演奏记录" / "fuzz.txt").string();
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    try {
        // Open plays at once: a minute of virtual time, the ticks with it.
        program.dialogs().queueFileAnswer(path);
        app.form1.Yuepu[2].press();
        program.loop.advance(60000);
        stopPlaying(program);
        readToTheEnd(program);
    } catch (const FatalFailure& failure) {
        if (!namedFailure(failure, app.state.ScoreText)) fail();
    }
    return 0;
}
