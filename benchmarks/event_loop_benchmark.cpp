// How well the real event loop keeps a score in time: a long score at tempo
// 140 (54 ms ticks) played by the whole program on QtEventLoop, its MIDI port
// replaced by a sink that stamps every message with the steady clock. Every
// tick starts with the accent sweep (controller 11 on channel 3), so each
// tick's stamp is compared with its place on the grid that starts one tick
// after the click on "试听". Real time: the default score lasts 10 minutes;
// $TESSALY_BENCH_SCORE_MINUTES makes it shorter or longer.
//   ./build/benchmarks/tessaly_event_loop_benchmark
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/qt/QtEventLoop.h"
#include "platform/testing/RecordingPlatform.h"
#include "shell/Instrument.h"

using namespace tessaly;

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kTempo = 140;
constexpr int64_t kTickNs = 54'000'000;  // 7500 / 140, rounded

int64_t nowNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch()).count();
}

// The device: one synthesizer whose messages are only stamped and kept.
class StampingMidiPort : public MidiPort {
public:
    struct Stamped {
        int64_t ns;
        uint32_t message;
    };
    StampingMidiPort() { sent.reserve(2'000'000); }
    int deviceCount() override { return 0; }
    bool deviceName(int deviceId, std::string& name) override {
        if (deviceId != -1) return false;
        name = "内置 GM 合成器";
        return true;
    }
    int open(int, uint32_t& handle) override {
        handle = 1;
        return 0;
    }
    int close(uint32_t) override { return 0; }
    int shortMessage(uint32_t, uint32_t message) override {
        sent.push_back({nowNs(), message});
        return 0;
    }
    std::string errorText(int) override { return {}; }

    std::vector<Stamped> sent;
};

// The first two lines of a children's song (256 ticks), repeated to fill the time.
std::string scoreOf(double minutes) {
    const std::string phrase = "KC8KCKGKGKAKAKG16KF8KFKEKEKDKDKC16KG8KGKFKFKEKEKD16KG8KGKFKFKEKEKD16";
    const auto phrases = static_cast<int>(minutes * 60'000'000'000.0 / (256.0 * kTickNs)) + 1;
    std::string score;
    for (int i = 0; i < phrases; ++i) score += phrase;
    return score + "TZ";
}

double percentile(std::vector<int64_t> values, double p) {
    std::sort(values.begin(), values.end());
    return static_cast<double>(values[static_cast<std::size_t>(p * static_cast<double>(values.size() - 1))]);
}

void BM_ScoreTicksOnTheRealLoop(benchmark::State& state) {
    const char* asked = std::getenv("TESSALY_BENCH_SCORE_MINUTES");
    const double minutes = asked ? std::atof(asked) : 10.0;
    const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("tessaly-loop-bench-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir / "音效");
    std::filesystem::create_directories(dir / "演奏记录");

    for (auto _ : state) {
        QtEventLoop loop;
        StampingMidiPort midi;
        EventLog log;
        RecordingWaveOut wave{log};
        RecordingMessageBoxes boxes{log};
        Platform platform{loop, midi, wave, boxes};
        Instrument app(platform, dir.string());
        app.start();
        while (!app.activated() && !app.ended()) loop.idleUntil(loop.nowMs() + 10);

        app.form1.SD.setText(std::to_string(kTempo));
        app.form1.Text3.setText(scoreOf(minutes));
        midi.sent.clear();
        const int64_t clickNs = nowNs();
        app.form1.Yuepu[0].userClick();
        while (app.form1.Timer3.timerEnabled()) loop.idleUntil(loop.nowMs() + 100);

        // Errors against the grid, in microseconds; ticks are late, never early.
        std::vector<int64_t> errors;
        int64_t lastNote = 0;
        const int64_t origin = clickNs + kTickNs;
        auto gridError = [&](int64_t ns) {
            const int64_t tick = (ns - origin + kTickNs / 2) / kTickNs;
            return (ns - origin - tick * kTickNs) / 1000;
        };
        for (const auto& m : midi.sent) {
            if ((m.message & 0xFFFF) == 0x0BB3) errors.push_back(gridError(m.ns));
            if ((m.message & 0xFF) == 0x90 && (m.message >> 16 & 0xFF) != 0) lastNote = m.ns;
        }
        state.counters["ticks"] = static_cast<double>(errors.size());
        state.counters["p50_us"] = percentile(errors, 0.50);
        state.counters["p99_us"] = percentile(errors, 0.99);
        state.counters["worst_us"] = static_cast<double>(*std::max_element(errors.begin(), errors.end()));
        state.counters["last_note_drift_us"] = static_cast<double>(gridError(lastNote));
        state.counters["played_s"] = static_cast<double>(lastNote - clickNs) / 1e9;
        app.close();
        while (!app.ended()) loop.idleUntil(loop.nowMs() + 100);
    }
    std::filesystem::remove_all(dir);
}
BENCHMARK(BM_ScoreTicksOnTheRealLoop)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
