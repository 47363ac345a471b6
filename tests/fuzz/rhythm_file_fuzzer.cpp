// Feeds arbitrary bytes to the rhythm file loader, decoded as a file's bytes
// are. Each input must end in exactly one of: the message for a short file with
// the page unchanged, a pattern loaded that the page and StepTable agree on,
// or the program's own fatal failure (a list index past its list). Anything
// else aborts the run.
#include <cstdint>
#include <string>

#include "FuzzProgram.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"
#include "runtime/TextFiles.h"

namespace {

using namespace tessaly;
using tessaly::fuzz::fail;

struct Program : fuzz::Program {
    Program() : fuzz::Program("tessaly-rhythm-fuzz") {}

    RhythmPage& page() { return app->form1.rhythmPage; }

    // A known page before each input: 4/4, volume 100, every box clear.
    void reset() {
        page().Option1[2].setValue(true);
        app->form1.VsbVol.setListIndex(5);
        for (int k = 0; k < 3; ++k) {
            page().LblInst[k].setListIndex(k);
            for (int s = 0; s <= 16; ++s) page().track(k)[s].setValue(0);
        }
        log.take();
    }

    // What the page shows, to see that a refused text changed nothing.
    std::string snapshot() {
        std::string out = std::to_string(app->form1.VsbVol.listIndex()) + "/" + std::to_string(app->state.RhythmLastStep);
        for (int k = 0; k < 3; ++k) {
            out += "/" + std::to_string(page().LblInst[k].listIndex()) + ":";
            for (int s = 0; s <= 16; ++s) out += page().track(k)[s].value() == 1 ? '*' : '-';
        }
        return out;
    }

    // The loaded pattern: boxes as the text's stars, StepTable as the boxes.
    bool agreesWith(const std::string& text) {
        if (app->state.RhythmLastStep != (page().Option1[1].value() ? 11 : 15)) return false;
        if (app->form1.VsbVol.listIndex() != static_cast<int>(numericValue("&H" + charSubstr(text, 0, 2)))) return false;
        for (int i = 1; i <= 49; ++i) {
            const int k = i <= 16 ? 0 : i <= 32 ? 1 : 2;
            if ((page().track(k)[i - 1 - 16 * k].value() == 1) != (charSubstr(text, 11 + i, 1) == "*")) return false;
        }
        const int16_t volume = static_cast<int16_t>(numericValue(app->form1.VsbVol.text()));
        for (int s = 0; s <= app->state.RhythmLastStep; ++s) {
            const StepRecord& record = app->midi.StepTable[s];
            for (int k = 0; k < 3; ++k) {
                if ((record[k].On != 0) != (page().track(k)[s].value() == 1)) return false;
                const int key = page().LblInst[k].listIndex() + 35;
                if (record[k].Volume != volume || record[k].ShortMsg != MidiOut::percussionMessage(key, volume))
                    return false;
            }
            if (record[3].On || record[4].On) return false;
        }
        return true;
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Program program;
    program.reset();
    Instrument& app = *program.app;
    const std::string text = decodeText(std::string_view(reinterpret_cast<const char*>(data), size));
    const std::string before = program.snapshot();
    app.state.RhythmFileText = text;
    try {
        app.rhythmFiles.OpenJZwj();
    } catch (const FatalFailure&) {
        // A header naming an entry past a list: the list's own failure.
        return 0;
    }
    const bool message = !program.log.take().empty();
    if (charLength(text) < 62) {
        if (!message || program.snapshot() != before) fail();
    } else if (message || !program.agreesWith(text)) {
        fail();
    }
    return 0;
}
