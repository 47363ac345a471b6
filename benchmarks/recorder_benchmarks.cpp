// Figures of the recorder: how long a save takes per minute of take (it runs
// on the event thread), and what recording adds to one rendered period.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "platform/audio/AudioEngine.h"
#include "platform/audio/FrameRing.h"
#include "platform/audio/TakeExport.h"

using namespace tessaly;
using namespace tessaly::audio;

namespace {

std::filesystem::path benchFolder() {
    auto folder = std::filesystem::temp_directory_path() / ("tessaly-bench-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    return folder;
}

// A minute of take: a chord of three sines, as the recorder keeps it.
std::string writeMinuteTake(const std::filesystem::path& folder) {
    const std::string path = (folder / "take.raw").string();
    std::FILE* f = std::fopen(path.c_str(), "wb");
    std::vector<float> block(2 * 4800);
    for (int piece = 0; piece < 600; ++piece) {
        for (int i = 0; i < 4800; ++i) {
            const double t = (piece * 4800 + i) / 48000.0;
            const auto v = static_cast<float>(0.2 * (std::sin(2 * M_PI * 261.6 * t) + std::sin(2 * M_PI * 329.6 * t) +
                                                     std::sin(2 * M_PI * 392.0 * t)));
            block[static_cast<std::size_t>(i) * 2] = block[static_cast<std::size_t>(i) * 2 + 1] = v;
        }
        std::fwrite(block.data(), sizeof(float), block.size(), f);
    }
    std::fclose(f);
    return path;
}

// One minute of take saved at bits (arg 0) and rate (arg 1), stereo.
void BM_SaveMinuteOfTake(benchmark::State& state) {
    const auto folder = benchFolder();
    const std::string take = writeMinuteTake(folder);
    const MciWaveFormat format{static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), 2};
    for (auto _ : state)
        if (!exportTake(take, 60 * 48000, (folder / "out.wav").string(), format)) state.SkipWithError("save failed");
    std::filesystem::remove_all(folder);
}
BENCHMARK(BM_SaveMinuteOfTake)
    ->ArgNames({"bits", "rate"})
    ->Args({16, 44100})
    ->Args({8, 22050})
    ->Args({16, 48000})
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

// One period of 128 frames rendered by the mixer, with the recording tap
// attached (arg 1) or not (arg 0). The ring is emptied between periods.
void BM_RenderPeriodRecording(benchmark::State& state) {
    AudioEngine engine{{AudioOutput::Offline, 128}};
    FrameRing ring(1u << 18);
    if (state.range(0)) engine.mixer().captureTap().attach(ring);
    std::vector<float> out(2 * 128), drained(2 * 128);
    for (auto _ : state) {
        engine.renderFrames(out.data(), 128);
        benchmark::DoNotOptimize(out.data());
        state.PauseTiming();
        ring.read(drained.data(), 128);
        state.ResumeTiming();
    }
    engine.mixer().captureTap().detach();
}
BENCHMARK(BM_RenderPeriodRecording)->ArgName("recording")->Arg(0)->Arg(1);

}  // namespace
