// Figures of the sound layer: key to sound, cost of a period, SoundFont load
// and offline render speed beside the fluidsynth command-line renderer.
#include <benchmark/benchmark.h>
#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "BenchmarkSong.h"
#include "CpuClocks.h"
#include "platform/audio/AudioEngine.h"
#include "platform/audio/BuiltInSynth.h"
#include "platform/audio/OfflineRenderer.h"
#include "platform/audio/SoundFileWriter.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::bench;
using Clock = std::chrono::steady_clock;

namespace {

const char* const kSoundFonts[] = {"/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2"};
const char* const kSoundFontLabels[] = {"TimGM6mb", "FluidR3_GM"};
constexpr int kSongSeconds = 30;

uint32_t pack(int status, int data1, int data2) {
    return static_cast<uint32_t>(status) | static_cast<uint32_t>(data1) << 8 | static_cast<uint32_t>(data2) << 16;
}

double seconds(Clock::duration d) {
    return std::chrono::duration<double>(d).count();
}

std::string scratchPath(const std::string& name) {
    return (std::filesystem::temp_directory_path() / ("tessaly-bench-" + std::to_string(getpid()) + "-" + name)).string();
}

float blockPeak(const std::vector<float>& block) {
    float p = 0.0f;
    for (float s : block) p = std::max(p, std::fabs(s));
    return p;
}

// An offline engine playing a loaded synthesizer.
struct Rig {
    AudioEngine engine;
    BuiltInSynth synth;
    std::vector<float> block;

    Rig(int period, int soundFont) : engine({AudioOutput::Offline, period}), block(static_cast<std::size_t>(engine.periodFrames()) * kChannels) {
        if (!synth.loadSoundFont(kSoundFonts[soundFont])) std::abort();
        engine.mixer().attachSynth(&synth);
    }
    ~Rig() { engine.mixer().detachSynth(); }
    void renderBlock() { engine.renderFrames(block.data(), engine.periodFrames()); }
};

// Frames from a note-on handed to the engine between two blocks to the first
// sample above -100 dBFS and above -60 dBFS in the rendered stream.
void BM_NoteOnToFirstSound(benchmark::State& state) {
    const int period = static_cast<int>(state.range(0));
    Rig rig(period, 0);
    for (int i = 0; i < 10; ++i) rig.renderBlock();
    double audible = 0, loud = 0;
    for (auto _ : state) {
        rig.engine.mixer().postMidi(pack(0x90, 60, 100));
        long frames = 0, firstAudible = -1, firstLoud = -1;
        while (firstLoud < 0 && frames < kSampleRate) {
            rig.renderBlock();
            for (std::size_t i = 0; i < rig.block.size(); ++i) {
                const float s = std::fabs(rig.block[i]);
                const long at = frames + static_cast<long>(i / kChannels);
                if (firstAudible < 0 && s > 1e-5f) firstAudible = at;
                if (firstLoud < 0 && s > 1e-3f) firstLoud = at;
            }
            frames += period;
        }
        audible += static_cast<double>(firstAudible);
        loud += static_cast<double>(firstLoud);
        // Back to silence, reverb tail included, before the next note.
        rig.engine.mixer().postMidi(pack(0x80, 60, 0));
        rig.engine.mixer().postMidi(pack(0xB0, 120, 0));
        for (int i = 0; i < 3 * kSampleRate / period; ++i) {
            rig.renderBlock();
            if (blockPeak(rig.block) < 1e-5f) break;
        }
    }
    const double n = static_cast<double>(state.iterations());
    state.counters["period_ms"] = period * 1000.0 / kSampleRate;
    state.counters["frames_to_-100dB"] = audible / n;
    state.counters["ms_to_-100dB"] = audible / n * 1000.0 / kSampleRate;
    state.counters["frames_to_-60dB"] = loud / n;
    state.counters["ms_to_-60dB"] = loud / n * 1000.0 / kSampleRate;
}
BENCHMARK(BM_NoteOnToFirstSound)->ArgName("period")->Arg(64)->Arg(128)->Arg(256)->Iterations(30);

// CPU time of one period with 16 held string notes on 8 channels.
void BM_RenderPeriodWith16Notes(benchmark::State& state) {
    const int period = static_cast<int>(state.range(0));
    Rig rig(period, static_cast<int>(state.range(1)));
    for (int ch = 0; ch < 8; ++ch) {
        rig.engine.mixer().postMidi(pack(0xC0 | ch, 48, 0));
        rig.engine.mixer().postMidi(pack(0x90 | ch, 48 + ch * 3, 90));
        rig.engine.mixer().postMidi(pack(0x90 | ch, 60 + ch * 3, 90));
    }
    for (int i = 0; i < kSampleRate / 5 / period; ++i) rig.renderBlock();  // past the attacks

    std::vector<double> cpuMicros, wallMicros;
    cpuMicros.reserve(static_cast<std::size_t>(state.max_iterations));
    wallMicros.reserve(static_cast<std::size_t>(state.max_iterations));
    for (auto _ : state) {
        const Clock::time_point wallStart = Clock::now();
        const double cpuStart = threadCpuSeconds();
        rig.renderBlock();
        const double cpu = threadCpuSeconds() - cpuStart;
        const double wall = seconds(Clock::now() - wallStart);
        state.SetIterationTime(cpu);
        cpuMicros.push_back(cpu * 1e6);
        wallMicros.push_back(wall * 1e6);
    }
    std::sort(cpuMicros.begin(), cpuMicros.end());
    std::sort(wallMicros.begin(), wallMicros.end());
    const double periodMicros = period * 1e6 / kSampleRate;
    const double median = cpuMicros[cpuMicros.size() / 2];
    const double p99 = cpuMicros[cpuMicros.size() * 99 / 100];
    state.counters["cpu_median_us"] = median;
    state.counters["cpu_p99_us"] = p99;
    state.counters["median_share_%"] = 100.0 * median / periodMicros;
    state.counters["p99_share_%"] = 100.0 * p99 / periodMicros;
    state.counters["wall_p99_us"] = wallMicros[wallMicros.size() * 99 / 100];
    state.counters["fluid_voices_at_end"] = rig.synth.activeVoices();
    state.SetLabel(kSoundFontLabels[state.range(1)]);
}
BENCHMARK(BM_RenderPeriodWith16Notes)
    ->ArgNames({"period", "sf"})
    ->Args({64, 0})
    ->Args({128, 0})
    ->Args({256, 0})
    ->Args({128, 1})
    ->Iterations(10000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

// Creating the synthesizer and loading a SoundFont, as opening the device does.
void BM_LoadSoundFont(benchmark::State& state) {
    for (auto _ : state) {
        BuiltInSynth synth;
        if (!synth.loadSoundFont(kSoundFonts[state.range(0)])) state.SkipWithError("SoundFont missing");
    }
    state.SetLabel(kSoundFontLabels[state.range(0)]);
}
BENCHMARK(BM_LoadSoundFont)->ArgName("sf")->Arg(0)->Arg(1)->Iterations(5)->Unit(benchmark::kMillisecond);

// The whole job the command-line renderer does: load the SoundFont, play the
// song into a 16-bit WAV file.
void BM_OfflineRenderSong(benchmark::State& state) {
    const std::vector<bench::TimedMessage> song = bench::benchmarkSong(kSongSeconds);
    const std::string wav = scratchPath("engine.wav");
    double renderWall = 0, renderCpu = 0, totalCpu = 0, audio = 0;
    for (auto _ : state) {
        const double loadCpu = threadCpuSeconds();
        Rig rig(kDefaultPeriodFrames, static_cast<int>(state.range(0)));
        const Clock::time_point start = Clock::now();
        const double startCpu = threadCpuSeconds();
        SoundFileWriter writer;
        writer.open(wav);
        OfflineRenderer renderer(rig.engine, &writer);
        for (const bench::TimedMessage& m : song) {
            renderer.renderUntilMs(m.timeMs);
            rig.engine.mixer().postMidi(m.message);
        }
        renderer.renderUntilMs(kSongSeconds * 1000);
        writer.close();
        renderWall += seconds(Clock::now() - start);
        renderCpu += threadCpuSeconds() - startCpu;
        totalCpu += threadCpuSeconds() - loadCpu;
        audio += static_cast<double>(renderer.renderedFrames()) / kSampleRate;
    }
    state.counters["audio_s"] = audio / static_cast<double>(state.iterations());
    state.counters["x_realtime_render_wall"] = audio / renderWall;
    state.counters["x_realtime_render_cpu"] = audio / renderCpu;
    state.counters["x_realtime_total_cpu"] = audio / totalCpu;
    state.SetLabel(kSoundFontLabels[state.range(0)]);
    std::filesystem::remove(wav);
}
BENCHMARK(BM_OfflineRenderSong)->ArgName("sf")->Arg(0)->Arg(1)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);

// The same song written as a standard MIDI file, rendered by
// fluidsynth -ni -F out.wav -r 48000 SF2 file.mid, timed from the outside.
// Beside it the command renders an empty MIDI file: the process, the
// SoundFont load and the file, without the song. The difference is the
// command's render-only speed, the figure to set beside the engine's.
double framesIn(const std::string& wav) {
    SF_INFO info{};
    SNDFILE* file = sf_open(wav.c_str(), SFM_READ, &info);
    if (!file) return -1;
    sf_close(file);
    return static_cast<double>(info.frames) / info.samplerate;
}

void BM_FluidsynthCommandLine(benchmark::State& state) {
    const std::string mid = scratchPath("song.mid");
    const std::string empty = scratchPath("empty.mid");
    const std::string wav = scratchPath("cli.wav");
    if (!bench::writeStandardMidiFile(mid, bench::benchmarkSong(kSongSeconds)) ||
        !bench::writeStandardMidiFile(empty, {})) {
        state.SkipWithError("cannot write the MIDI files");
        return;
    }
    auto command = [&](const std::string& file) {
        return "fluidsynth -ni -F " + wav + " -r 48000 " + kSoundFonts[state.range(0)] + " " + file + " >/dev/null 2>&1";
    };
    double cpu = 0, wall = 0, emptyCpu = 0, emptyWall = 0, audio = 0, emptyAudio = 0;
    for (auto _ : state) {
        double cpuStart = childCpuSeconds();
        Clock::time_point start = Clock::now();
        if (std::system(command(mid).c_str()) != 0) {
            state.SkipWithError("fluidsynth failed");
            break;
        }
        wall += seconds(Clock::now() - start);
        cpu += childCpuSeconds() - cpuStart;
        audio += framesIn(wav);
        state.PauseTiming();
        cpuStart = childCpuSeconds();
        start = Clock::now();
        if (std::system(command(empty).c_str()) != 0) {
            state.SkipWithError("fluidsynth failed on the empty file");
            break;
        }
        emptyWall += seconds(Clock::now() - start);
        emptyCpu += childCpuSeconds() - cpuStart;
        emptyAudio += framesIn(wav);
        state.ResumeTiming();
    }
    state.counters["audio_s"] = audio / static_cast<double>(state.iterations());
    state.counters["x_realtime_total_wall"] = audio / wall;
    state.counters["x_realtime_total_cpu"] = audio / cpu;
    state.counters["fixed_cost_cpu_s"] = emptyCpu / static_cast<double>(state.iterations());
    state.counters["x_realtime_render_cpu"] = (audio - emptyAudio) / (cpu - emptyCpu);
    state.counters["x_realtime_render_wall"] = (audio - emptyAudio) / (wall - emptyWall);
    state.SetLabel(kSoundFontLabels[state.range(0)]);
    std::filesystem::remove(mid);
    std::filesystem::remove(empty);
    std::filesystem::remove(wav);
}
BENCHMARK(BM_FluidsynthCommandLine)->ArgName("sf")->Arg(0)->Arg(1)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
