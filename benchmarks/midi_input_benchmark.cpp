// What a message from a MIDI keyboard costs until its note-on reaches the
// MIDI output: the whole program (headless, the recording platform) with the
// real input's lock-free queue and eventfd.
//   queue_to_midi_out: the message waits in the queue; the time runs from the
//     event thread's taking it to the note-on's MidiOut call (the first of the
//     three melody channels), the note key's whole handler on the way.
//   thread_to_midi_out: a second thread, standing in for RtMidi's, hands the
//     message over; the event thread sleeps in poll() on the eventfd until then.
// Each reports the median and the 99th percentile in microseconds.
//   ./build/benchmarks/tessaly_midi_input_benchmark
#include <benchmark/benchmark.h>
#include <poll.h>
#include <stdlib.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>
#include <vector>

#include "platform/audio/SystemMidiInput.h"
#include "platform/testing/RecordingPlatform.h"
#include "platform/testing/VirtualEventLoop.h"
#include "shell/Instrument.h"

using namespace tessaly;

namespace {

using Clock = std::chrono::steady_clock;

// An output that notes the moment the first note-on of a key arrives.
class TimingMidiPort : public MidiPort {
public:
    int deviceCount() override { return 0; }
    bool deviceName(int, std::string& name) override {
        name = "timing";
        return true;
    }
    int open(int, uint32_t& handle) override {
        handle = 1;
        return kMidiOk;
    }
    int close(uint32_t) override { return kMidiOk; }
    int shortMessage(uint32_t, uint32_t message) override {
        if ((message & 0xF0) == 0x90 && ((message >> 16) & 0x7F) > 0 && !noteOnSeen) {
            noteOnAt = Clock::now();
            noteOnSeen = true;
        }
        return kMidiOk;
    }
    std::string errorText(int) override { return {}; }

    Clock::time_point noteOnAt;
    bool noteOnSeen = false;
};

struct Program {
    VirtualEventLoop loop;
    EventLog log;
    TimingMidiPort midi;
    RecordingWaveOut wave{log};
    RecordingMessageBoxes boxes{log};
    audio::SystemMidiInput input;
    Platform platform{.loop = loop, .midi = midi, .wave = wave, .boxes = boxes, .midiIn = input};
    std::filesystem::path dir;
    std::unique_ptr<Instrument> app;

    Program() {
        std::string name = (std::filesystem::temp_directory_path() / "tessaly-midi-in-bench-XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        dir = name;
        std::filesystem::create_directories(dir / "音效");
        app = std::make_unique<Instrument>(platform, dir.string());
        app->start();
        while (!app->activated() && !app->ended()) loop.advance(1);
    }
    ~Program() {
        app.reset();
        std::error_code error;
        std::filesystem::remove_all(dir, error);
    }

    void send(unsigned char status, unsigned char key, unsigned char velocity) {
        const unsigned char bytes[3] = {status, key, velocity};
        input.arrived(bytes, 3);
    }
    void serve() {
        input.acknowledgeWake();
        app->midiKeyboard.serve();
    }
    // Lifts the key, and keeps the score short now and then.
    void lift(unsigned char key, int played) {
        send(0x80, key, 0);
        serve();
        if (played % 64 == 63) app->form1.Text3.setText("");
    }
};

double microseconds(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double, std::micro>(to - from).count();
}

void report(benchmark::State& state, std::vector<double>& samples) {
    std::sort(samples.begin(), samples.end());
    state.counters["median_us"] = samples[samples.size() / 2];
    state.counters["p99_us"] = samples[samples.size() * 99 / 100];
}

// A white key of C4..B4 in turn: each one a note key with its handler.
unsigned char keyFor(int i) {
    static const unsigned char keys[] = {60, 62, 64, 65, 67, 69, 71};
    return keys[i % 7];
}

void BM_QueueToMidiOut(benchmark::State& state) {
    Program program;
    std::vector<double> samples;
    int played = 0;
    for (auto _ : state) {
        const unsigned char key = keyFor(played);
        program.send(0x90, key, 100);
        program.midi.noteOnSeen = false;
        const Clock::time_point start = Clock::now();
        program.serve();
        const double us = microseconds(start, program.midi.noteOnAt);
        state.SetIterationTime(us / 1e6);
        samples.push_back(us);
        program.lift(key, played++);
    }
    report(state, samples);
}
BENCHMARK(BM_QueueToMidiOut)->Iterations(5000)->UseManualTime()->Unit(benchmark::kMicrosecond);

void BM_ThreadToMidiOut(benchmark::State& state) {
    Program program;
    std::vector<double> samples;
    std::atomic<Clock::time_point> sentAt{};
    std::atomic<int> pending{-1};
    std::atomic<bool> done{false};
    // RtMidi's thread: sends the note when told, then waits a little.
    std::thread keyboard([&] {
        while (!done.load()) {
            const int key = pending.exchange(-1);
            if (key < 0) {
                std::this_thread::yield();
                continue;
            }
            sentAt.store(Clock::now());
            program.send(0x90, static_cast<unsigned char>(key), 100);
        }
    });
    int played = 0;
    for (auto _ : state) {
        const unsigned char key = keyFor(played);
        program.midi.noteOnSeen = false;
        pending.store(key);
        pollfd wait{program.input.wakeFd(), POLLIN, 0};
        while (::poll(&wait, 1, 1000) != 1) {
        }
        program.serve();
        const double us = microseconds(sentAt.load(), program.midi.noteOnAt);
        state.SetIterationTime(us / 1e6);
        samples.push_back(us);
        program.lift(key, played++);
    }
    done.store(true);
    keyboard.join();
    report(state, samples);
}
BENCHMARK(BM_ThreadToMidiOut)->Iterations(2000)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
