#include "export/MidiFileWriter.h"

// glib first: smf.h includes it inside extern "C", which C++ headers refuse.
#include <glib.h>
#include <smf.h>

#include <array>
#include <cerrno>
#include <memory>
#include <mutex>
#include <optional>

#include "export/TempoMap.h"
#include "notation/Catalogue.h"
#include "runtime/FileAccess.h"

namespace tessaly {

namespace {

constexpr int kPercussionChannel = 9;

struct SmfDeleter {
    void operator()(smf_t* smf) const { smf_delete(smf); }
};

// The bytes of a channel message: 2 for a program or channel pressure, 3 for
// the others; nothing for what is not a channel message or has a data byte
// out of range.
int channelMessageLength(uint32_t message) {
    const int status = statusOf(message);
    if (status < 0x80 || status >= 0xF0 || data1Of(message) > 127) return 0;
    const int kind = status & 0xF0;
    if (kind == 0xC0 || kind == 0xD0) return 2;
    return data2Of(message) > 127 ? 0 : 3;
}

void addMeta(smf_track_t* track, int pulse, std::initializer_list<unsigned char> bytes) {
    std::array<unsigned char, 8> buffer{};
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    smf_event_t* event = smf_event_new_from_pointer(buffer.data(), static_cast<int>(bytes.size()));
    if (event) smf_track_add_event_pulses(track, event, pulse);
}

void addText(smf_track_t* track, int type, const std::string& text) {
    smf_event_t* event = smf_event_new_textual(type, text.c_str());
    if (event) smf_track_add_event_pulses(track, event, 0);
}

void addTempo(smf_track_t* track, int pulse, uint32_t quarter) {
    addMeta(track, pulse,
            {0xFF, 0x51, 0x03, static_cast<unsigned char>(quarter >> 16), static_cast<unsigned char>(quarter >> 8),
             static_cast<unsigned char>(quarter)});
}

// The library reports a file it cannot open on standard error; the export
// tells the user itself.
void quietLibraryMessages() {
    static std::once_flag once;
    std::call_once(once, [] {
        g_log_set_handler("libsmf", static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL | G_LOG_FLAG_RECURSION),
                          [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
    });
}

std::string trackName(int channel, std::optional<int> program) {
    if (channel == kPercussionChannel) return "打击乐";
    if (program && *program + 1 < kInstrumentCount) return instrumentName(*program + 1);
    return "通道 " + std::to_string(channel + 1);
}

}  // namespace

void writeMidiFile(const CapturedPlay& play, const std::string& path, const std::string& title) {
    quietLibraryMessages();
    std::unique_ptr<smf_t, SmfDeleter> smf(smf_new());
    if (!smf || smf_set_format(smf.get(), 1) != 0 || smf_set_ppqn(smf.get(), TempoMap::kPulsesPerQuarter) != 0)
        throw ExportFailure("无法生成 MIDI 文件");
    const TempoMap tempo(play.tempo);

    smf_track_t* conductor = smf_track_new();
    smf_add_track(smf.get(), conductor);
    if (!title.empty()) addText(conductor, 0x03, title);
    if (play.beatsPerBar > 0)
        addMeta(conductor, 0, {0xFF, 0x58, 0x04, static_cast<unsigned char>(play.beatsPerBar), 2, 24, 8});
    for (const TempoMap::Segment& segment : tempo.segments()) addTempo(conductor, segment.pulse, segment.microsecondsPerQuarter);

    // Which channels the play uses, and the first program each one has.
    std::array<bool, 16> used{};
    std::array<std::optional<int>, 16> program{};
    for (const TimedMessage& m : play.messages) {
        if (!channelMessageLength(m.message)) continue;
        const int channel = statusOf(m.message) & 0x0F;
        used[channel] = true;
        if ((statusOf(m.message) & 0xF0) == 0xC0 && !program[channel]) program[channel] = data1Of(m.message);
    }
    std::array<smf_track_t*, 16> tracks{};
    for (int channel = 0; channel < 16; ++channel) {
        if (!used[channel]) continue;
        tracks[channel] = smf_track_new();
        smf_add_track(smf.get(), tracks[channel]);
        addText(tracks[channel], 0x03, trackName(channel, program[channel]));
    }

    for (const TimedMessage& m : play.messages) {
        const int length = channelMessageLength(m.message);
        if (!length) continue;
        smf_event_t* event = length == 2
                                 ? smf_event_new_from_bytes(statusOf(m.message), data1Of(m.message), -1)
                                 : smf_event_new_from_bytes(statusOf(m.message), data1Of(m.message), data2Of(m.message));
        if (!event) throw ExportFailure("无法生成 MIDI 文件");
        smf_track_add_event_pulses(tracks[statusOf(m.message) & 0x0F], event, tempo.pulseAt(m.ms));
    }

    // Every track ends where the play ended.
    const int end = tempo.pulseAt(play.endMs);
    for (int number = 1; number <= smf.get()->number_of_tracks; ++number) {
        smf_track_t* track = smf_get_track_by_number(smf.get(), number);
        smf_event_t* last = smf_track_get_last_event(track);
        const int lastPulse = last ? last->time_pulses : 0;
        if (smf_track_add_eot_pulses(track, std::max(end, lastPulse)) != 0)
            throw ExportFailure("无法生成 MIDI 文件");
    }
    PendingFile file(finalTarget(path));
    if (!file.create()) throw ExportFailure(exportFailureText(path, file.error()));
    // libsmf opens a file by its name: this name is the temporary file's own
    // descriptor, so nothing can be put in its way.
    errno = 0;
    const std::string self = "/proc/self/fd/" + std::to_string(file.fd());
    if (smf_save(smf.get(), self.c_str()) != 0) file.fail(errno != 0 ? errno : EIO);
    // A standard MIDI file holds at least its header and one track header.
    if (!file.commit(14 + 8)) throw ExportFailure(exportFailureText(path, file.error()));
}

}  // namespace tessaly
