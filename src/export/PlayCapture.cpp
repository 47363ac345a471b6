#include "export/PlayCapture.h"

#include <algorithm>
#include <map>

#include "export/RenderProgram.h"
#include "forms/Controls.h"
#include "runtime/FatalFailure.h"

namespace tessaly {

namespace {

// Virtual time runs on in steps this long between the checks of the play.
constexpr uint64_t kStepMs = 20;

bool isNoteOn(uint32_t message) { return (statusOf(message) & 0xF0) == 0x90 && data2Of(message) > 0; }

// The last program and the last value of every controller on each channel,
// in channel order, controllers before the program, so that a bank select
// comes before its program. Channel mode messages (120 and up) are moments,
// not state.
std::vector<TimedMessage> channelStateOf(const std::vector<RecordedMidi>& setup) {
    std::map<int, std::map<int, uint32_t>> controllers;
    std::map<int, uint32_t> programs;
    for (const RecordedMidi& m : setup) {
        const int status = statusOf(m.message), channel = status & 0x0F;
        if ((status & 0xF0) == 0xB0 && data1Of(m.message) < 120) controllers[channel][data1Of(m.message)] = m.message;
        if ((status & 0xF0) == 0xC0) programs[channel] = m.message;
    }
    std::vector<TimedMessage> state;
    for (int channel = 0; channel < 16; ++channel) {
        for (const auto& [controller, message] : controllers[channel]) state.push_back({0, message});
        if (auto found = programs.find(channel); found != programs.end()) state.push_back({0, found->second});
    }
    return state;
}

// The text of the first message box the program showed, if any.
std::optional<std::string> firstBox(const std::vector<std::string>& log) {
    for (const std::string& line : log)
        if (line.rfind("box ", 0) == 0) return line.substr(line.find('|') + 1);
    return std::nullopt;
}

std::string minutes(uint32_t ms) { return std::to_string(ms / 60000); }

}  // namespace

std::size_t CapturedPlay::noteCount() const {
    return static_cast<std::size_t>(
        std::count_if(messages.begin(), messages.end(), [](const TimedMessage& m) { return isNoteOn(m.message); }));
}

CapturedPlay capturePlay(RenderProgram& program, const PlayStart& start, const CaptureOptions& options) {
    VirtualEventLoop& loop = program.loop;
    CapturedPlay play;
    play.messages = channelStateOf(program.midi.take());
    play.volumeWord = program.wave.volume();
    play.beatsPerBar = start.beatsPerBar;
    program.log.take();

    const uint64_t t0 = loop.now();
    auto noteTempo = [&] {
        const int interval = start.beat->interval();
        if (interval <= 0) return;
        const auto quarter = static_cast<uint32_t>(interval * start.ticksPerQuarter * 1000);
        const auto ms = static_cast<uint32_t>(loop.now() - t0);
        if (!play.tempo.empty() && play.tempo.back().microsecondsPerQuarter == quarter) return;
        if (!play.tempo.empty() && play.tempo.back().ms == ms) play.tempo.back().microsecondsPerQuarter = quarter;
        else play.tempo.push_back({ms, quarter});
    };
    struct Observation {
        TimerControl& timer;
        int id;
        ~Observation() { timer.unobserve(id); }
    } observation{*start.beat, start.beat->observe([&](Control&, Prop prop) {
                      if (prop == Prop::Timer) noteTempo();
                  })};

    try {
        start.start();
        while (start.beat->timerEnabled()) {
            const auto played = static_cast<uint32_t>(loop.now() - t0);
            if (played >= options.longestPlayMs)
                throw ExportFailure("演奏超过 " + minutes(options.longestPlayMs) + " 分钟仍未结束，没有导出。");
            if (options.cancel && options.cancel->load()) throw ExportFailure("导出已取消。");
            if (options.progress) options.progress(played);
            loop.advance(kStepMs);
        }
    } catch (const FatalFailure& failure) {
        throw ExportFailure(std::string("运行时错误：") + failure.what());
    }
    if (std::optional<std::string> told = firstBox(program.log.take())) throw ExportFailure(*told);

    for (const RecordedMidi& m : program.midi.take()) {
        play.messages.push_back({static_cast<uint32_t>(m.timeMs - static_cast<uint32_t>(t0)), m.message});
        play.endMs = play.messages.back().ms;
    }
    if (play.noteCount() == 0) throw ExportFailure("没有演奏出任何音符，没有导出。");
    // The play's first tempo holds from its start.
    if (play.tempo.empty()) play.tempo.push_back({0, 500000});
    play.tempo.front().ms = 0;
    return play;
}

}  // namespace tessaly
