// Feeds arbitrary bytes to the editor as an edit file, opened as the user
// opens one (DkBianji_Click, which reads and rebuilds the song by DKBJ). The
// open must end inside its own trap whatever the bytes: no failure may escape
// it, and the song must be what the file's lines make of it. Anything else
// aborts the run.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "FuzzProgram.h"
#include "runtime/FatalFailure.h"
#include "runtime/TextFiles.h"
#include "shell/Instrument.h"

namespace {

using namespace tessaly;

using tessaly::fuzz::fail;

struct Program : fuzz::Program {
    std::string path;

    Program() : fuzz::Program("tessaly-edit-fuzz") {
        app->form1.BJCK.userClick();
        path = (dir / "演奏记录" / "fuzz.lnk").string();
    }

    // Back to a song of one bar in 2/4 on bar 0, as choosing "2/4" and the
    // first bar leaves it; the editor is opened afresh only when that fails.
    void reset() {
        EditorState& s = app->editor.s;
        s.BarCount = 0;
        try {
            if (s.SlotsPerBarMinusOne != 15 || s.ShownSlotsMinusOne != 15) app->editor.barEditing.JPFL_Click(0);
            app->YYBJ.bar().HScroll1.setMax(200);
            app->YYBJ.bar().HScroll1.setValue(0);
        } catch (const FatalFailure&) {
            s.BarCount = 0;
            app->YYBJ.commands().TUICHU.userClick();
            app->form1.BJCK.userClick();
        }
        midi.take();
        log.take();
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Program program;
    program.reset();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    {
        std::ofstream file(program.path, std::ios::binary | std::ios::trunc);
        file << bytes;
    }
    Instrument& app = *program.app;
    EditorState& s = app.editor.s;
    app.unansweredDialogs.queueFileAnswer(program.path);
    try {
        app.YYBJ.commands().DkBianji.userClick();
    } catch (...) {
        fail();  // every failure of an open ends in its trap
    }
    // What the reader must have made of the lines.
    std::optional<std::string> text = decodeText(bytes);
    const long n = text ? static_cast<long>(splitLines(*text).size()) : -1;
    if (n < 0 || n > 10000) {
        if (s.BarCount != 0) fail();  // unreadable or too long: the song stays cleared
    } else if (n >= 9998) {
        if (s.BarCount != n - 1) fail();  // the last block reaches past the buffer
    } else {
        if (s.BarCount != static_cast<long>(std::floor(static_cast<double>(n - 1) / 13.0))) fail();
        for (long bar = 0; bar * 13 < n; ++bar)
            if (s.BarHead[bar] != s.FileLine[bar * 13]) fail();
    }
    if (!program.log.lines().empty()) fail();  // an open says nothing
    return 0;
}
