// Figures of the score reader: a whole score of 32 000 characters (the 16-bit
// length allows 32 767) read end to end by the
// player, as one run of commands (all read inside one tick) and as notes.
#include <benchmark/benchmark.h>

#include <string>

#include "shell/HeadlessProgram.h"

using namespace tessaly;

namespace {

struct Program : HeadlessProgram {
    // Reads the score from its start as the player does, item after item,
    // until the stop; returns the number of reads.
    int readWhole(const std::string& score) {
        SharedState& s = app->state;
        s.ScoreText = score;
        s.ScorePos = 1;
        s.NoteDuration = 0;
        int reads = 0;
        do {
            app->scorePlayer.YSCX();
            ++reads;
            midi.take();
        } while (s.PendingNote != 255);
        app->form1.Timer3.setTimerEnabled(false);
        return reads;
    }
};

std::string repeated(const std::string& unit, std::size_t bytes, const std::string& end) {
    std::string text;
    while (text.size() + unit.size() + end.size() <= bytes) text += unit;
    return text + end;
}

// 10 665 tempo commands and one note: every command is read inside one call.
void BM_ReadScoreOfCommands32KB(benchmark::State& state) {
    Program program;
    const std::string score = repeated("VS5", 32000, "KC8TZ");
    for (auto _ : state) benchmark::DoNotOptimize(program.readWhole(score));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * score.size()));
}
BENCHMARK(BM_ReadScoreOfCommands32KB)->Unit(benchmark::kMillisecond);

// 10 665 notes: one call a note, as the ticks of a playing score make them.
void BM_ReadScoreOfNotes32KB(benchmark::State& state) {
    Program program;
    const std::string score = repeated("KC8", 32000, "KCTZ");
    for (auto _ : state) benchmark::DoNotOptimize(program.readWhole(score));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * score.size()));
}
BENCHMARK(BM_ReadScoreOfNotes32KB)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
