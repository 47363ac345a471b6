// Figures of the music editor: the preparing pass over a song that fills the
// tables, the largest edit files written and read, and one slot with all
// seven melody tracks sounding. Times are CPU time of the running thread.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "editor/EditFiles.h"
#include "platform/testing/ScriptedDialogs.h"
#include "shell/HeadlessProgram.h"

using namespace tessaly;

namespace {

// The program in virtual time on the recording platform, with the editor open.
struct OpenEditor : HeadlessProgram {
    OpenEditor() : HeadlessProgram(Options{.name = "tessaly-editor-bench"}) { app->form1.BJCK.userClick(); }
    EditorState& song() { return app->editor.s; }
    std::string file(const std::string& name) const { return (dir / "演奏记录" / name).string(); }

    // Bars 0..lastBar in 2/4 with a note on every slot of every melody track
    // and a hit on every other slot of every percussion track.
    void fill(long lastBar) {
        static const char* const notes[] = {"KC", "KD", "KE", "KF", "KG", "KA", "KB", "HC"};
        EditorState& s = song();
        s.BarCount = static_cast<int32_t>(lastBar);
        for (long slot = 0; slot < 16 * (lastBar + 1); ++slot)
            for (int t = 0; t < 12; ++t) s.SlotTokens(slot, t) = t < 7 ? notes[(slot + t) % 8] : (slot % 2 ? "-" : "O");
    }
};

void BM_PreparingPassFullSong(benchmark::State& state) {
    OpenEditor editor;
    editor.fill(624);  // 625 bars of 2/4: slots 0..9999
    for (auto _ : state) editor.app->editor.sequencer.prepare();
    state.counters["slots"] = 10000;
}
BENCHMARK(BM_PreparingPassFullSong)->Unit(benchmark::kMillisecond);

// The writer on the largest song the tables hold in 2/4: gaps filled, texts
// rebuilt from the slots, 8125 lines written through a rename.
void BM_WriteEditFile625Bars(benchmark::State& state) {
    OpenEditor editor;
    editor.fill(624);
    for (auto _ : state) {
        editor.app->unansweredDialogs.queueFileAnswer(editor.file("大.lnk"));
        editor.app->editor.files.BCBJWJ();
    }
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(editor.file("大.lnk")));
}
BENCHMARK(BM_WriteEditFile625Bars)->Unit(benchmark::kMillisecond);

// The largest file the reader takes: 769 bars, 9997 lines. Every line is
// read and every bar's texts taken; the slots are rebuilt up to the end of
// the tables (bar 624), where the open ends in its trap.
void BM_ReadEditFile769Bars(benchmark::State& state) {
    OpenEditor editor;
    {
        std::ofstream out(editor.file("最大.lnk"), std::ios::binary);
        for (int bar = 0; bar < 769; ++bar) {
            out << "0000005031504E505250223C183C043C0150035004502950113C20000046\r\n";
            for (int t = 0; t < 7; ++t) out << "KCKDKEKFKGKAKBHCKCKDKEKFKGKAKBHC\r\n";
            for (int t = 0; t < 5; ++t) out << "O-O-O-O-O-O-O-O-\r\n";
        }
    }
    for (auto _ : state) {
        editor.song().BarCount = 0;  // the clearing before an open would otherwise pass the tables
        editor.app->unansweredDialogs.queueFileAnswer(editor.file("最大.lnk"));
        editor.app->editor.files.DkBianji_Click();
    }
    state.counters["bars"] = editor.song().BarCount + 1;
}
BENCHMARK(BM_ReadEditFile769Bars)->Unit(benchmark::kMillisecond);

// One slot of a play: expression, controllers, the percussion messages of the
// slot and a new note on each of the seven melody tracks.
void BM_OneSlotSevenTracks(benchmark::State& state) {
    OpenEditor editor;
    editor.fill(0);
    EditorState& s = editor.song();
    editor.app->editor.sequencer.prepare();
    s.LastSlotIndex = 9999;
    int16_t& step = editor.app->state.RhythmStep;
    for (auto _ : state) {
        step = static_cast<int16_t>(step % 16);
        editor.app->editor.sequencer.YYSB();
        state.PauseTiming();
        editor.midi.take();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OneSlotSevenTracks)->Unit(benchmark::kMicrosecond);

}  // namespace

