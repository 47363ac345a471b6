// Figures of the export: a demonstration score with its accompaniment
// rendered to WAV by our whole export (a program of its own started in
// virtual time, the play, the SoundFont loaded, the offline render, the file
// written), and in the same iterations the `fluidsynth -F` command line
// rendering the MIDI file we export of the same score with the same
// SoundFont. The two take turns, so that a load on the machine falls on both.
#include <benchmark/benchmark.h>
#include <sndfile.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "CpuClocks.h"
#include "export/Exporter.h"

using namespace tessaly;
using namespace tessaly::bench;
using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

namespace {

const char* const kSoundFonts[] = {"/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2"};
const char* const kSoundFontLabels[] = {"TimGM6mb", "FluidR3_GM"};
// The demonstration score with a rhythm (JP1) under its melody.
const std::string kScore = std::string(TESSALY_BUILD_DATA_DIR) + "/演奏记录/茉莉花.txt";

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double audioSeconds(const std::string& wav) {
    SF_INFO info{};
    SNDFILE* file = sf_open(wav.c_str(), SFM_READ, &info);
    if (!file) return 0;
    sf_close(file);
    return static_cast<double>(info.frames) / info.samplerate;
}

class ScratchFolder {
public:
    ScratchFolder() : path_(fs::temp_directory_path() / ("tessaly-export-bench-" + std::to_string(getpid()))) {
        fs::create_directories(path_ / "app");
    }
    ~ScratchFolder() {
        std::error_code error;
        fs::remove_all(path_, error);
    }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    fs::path path_;
};

ExportResult exportScore(const ScratchFolder& folder, const std::string& output, const std::string& soundFont) {
    ExportRequest request;
    request.input = kScore;
    request.output = output;
    request.dataFolder = folder.file("app");
    request.shippedData = TESSALY_BUILD_DATA_DIR;
    request.soundFont = soundFont;
    return runExport(request);
}

void BM_ExportScoreToWavBesideFluidsynth(benchmark::State& state) {
    const std::string soundFont = kSoundFonts[state.range(0)];
    ScratchFolder folder;
    const std::string mid = folder.file("score.mid"), ours = folder.file("ours.wav"), theirs = folder.file("cli.wav");
    if (const ExportResult made = exportScore(folder, mid, soundFont); !made.ok) {
        state.SkipWithError(made.message.c_str());
        return;
    }
    const std::string command = "fluidsynth -ni -F '" + theirs + "' -r 48000 '" + soundFont + "' '" + mid +
                                "' >/dev/null 2>&1";
    double oursWall = 0, oursCpu = 0, theirsWall = 0, theirsCpu = 0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        const double cpu = threadCpuSeconds();
        const ExportResult result = exportScore(folder, ours, soundFont);
        oursCpu += threadCpuSeconds() - cpu;
        oursWall += secondsSince(start);
        if (!result.ok) {
            state.SkipWithError(result.message.c_str());
            return;
        }

        const Clock::time_point cliStart = Clock::now();
        const double cliCpu = childCpuSeconds();
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("fluidsynth failed");
            return;
        }
        theirsCpu += childCpuSeconds() - cliCpu;
        theirsWall += secondsSince(cliStart);
    }
    const auto runs = static_cast<double>(state.iterations());
    const double oursAudio = audioSeconds(ours), theirsAudio = audioSeconds(theirs);
    state.counters["ours_audio_s"] = oursAudio;
    state.counters["ours_wall_ms"] = 1000 * oursWall / runs;
    state.counters["ours_cpu_ms"] = 1000 * oursCpu / runs;
    state.counters["fluidsynth_audio_s"] = theirsAudio;
    state.counters["fluidsynth_wall_ms"] = 1000 * theirsWall / runs;
    state.counters["fluidsynth_cpu_ms"] = 1000 * theirsCpu / runs;
    // Above 1: ours is the faster, per second of sound produced (the two
    // ring out their last notes for different lengths).
    state.counters["speed_ratio_wall"] = (oursAudio / oursWall) / (theirsAudio / theirsWall);
    state.counters["speed_ratio_cpu"] = (oursAudio / oursCpu) / (theirsAudio / theirsCpu);
    state.SetLabel(kSoundFontLabels[state.range(0)]);
}
BENCHMARK(BM_ExportScoreToWavBesideFluidsynth)
    ->ArgName("sf")
    ->Arg(0)
    ->Arg(1)
    ->Iterations(5)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// The play alone: the program started in virtual time, the score played and
// written as a MIDI file, no synthesizer.
void BM_ExportScoreToMidi(benchmark::State& state) {
    ScratchFolder folder;
    const std::string mid = folder.file("score.mid");
    for (auto _ : state) {
        if (const ExportResult result = exportScore(folder, mid, {}); !result.ok) {
            state.SkipWithError(result.message.c_str());
            return;
        }
    }
}
BENCHMARK(BM_ExportScoreToMidi)->Iterations(10)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
