// Figures of the numbered-notation layout: a score of 32 000 characters (a
// long take with odd durations, commands, ties over bar lines) read and laid
// out whole, and laid out again after one more note is written at its end,
// as the view does while the user plays.
#include <benchmark/benchmark.h>

#include <string>

#include "jianpu/JianpuSheet.h"

using namespace tessaly;

namespace {

std::string longTake(std::size_t characters) {
    static const char* const kPhrase[] = {"KC8", "KD6", "KE2", "HC10", "WG22", "XZ4", "KF7", "MD2", "LA16", "KG3"};
    std::string score;
    for (std::size_t i = 0; score.size() < characters - 8; ++i) {
        if (i % 97 == 96) score += "YD3";
        if (i % 211 == 210) score += "VS9";
        score += kPhrase[i % std::size(kPhrase)];
    }
    return score;
}

JianpuStart fourFour() {
    JianpuStart start;
    start.beatsPerBar = 4;
    return start;
}

void BM_JianpuLayoutWholeScore(benchmark::State& state) {
    const std::string score = longTake(32000);
    JianpuLayoutOptions options;
    options.width = 48;
    for (auto _ : state) {
        JianpuSheet sheet;
        const JianpuLayout& layout = sheet.update(score, fourFour(), options);
        benchmark::DoNotOptimize(layout.glyphs.data());
    }
    state.counters["characters"] = static_cast<double>(score.size());
}
BENCHMARK(BM_JianpuLayoutWholeScore)->Unit(benchmark::kMillisecond);

// The sheet already shows the take; the user plays one more note. The take
// starts over (untimed) before it outgrows the player's 16-bit length.
void BM_JianpuOneMoreNote(benchmark::State& state) {
    const std::string base = longTake(31000);
    JianpuLayoutOptions options;
    options.width = 48;
    JianpuSheet sheet;
    sheet.update(base, fourFour(), options);
    std::string text = base;
    for (auto _ : state) {
        text += "4KE";
        if (text.size() > 32700) {
            state.PauseTiming();
            text = base;
            sheet = JianpuSheet();
            sheet.update(base, fourFour(), options);
            text += "4KE";
            state.ResumeTiming();
        }
        const JianpuLayout& layout = sheet.update(text, fourFour(), options);
        benchmark::DoNotOptimize(layout.glyphs.data());
    }
}
BENCHMARK(BM_JianpuOneMoreNote)->Unit(benchmark::kMicrosecond);

}  // namespace
