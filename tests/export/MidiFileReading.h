#pragma once
// glib first: smf.h includes it inside extern "C", which C++ headers refuse.
#include <glib.h>
#include <smf.h>

#include <string>
#include <vector>

namespace tessaly::testing {

// A channel message of a MIDI file read back with libsmf: where a reader puts
// it in ms, and how long one pulse lasts there.
struct FileEvent {
    double ms;
    double pulseMs;
    int track;
    int status, data1, data2;
};

struct MidiFileContents {
    int format = -1, tracks = 0, ppqn = 0;
    std::vector<FileEvent> channelEvents;
    std::vector<std::string> trackNames;      // by track, from 1
    std::vector<std::pair<double, int>> tempo;  // ms, microseconds per quarter
};

inline MidiFileContents readMidiFile(const std::string& path) {
    MidiFileContents contents;
    smf_t* smf = smf_load(path.c_str());
    if (!smf) return contents;
    contents.format = smf->format;
    contents.tracks = smf->number_of_tracks;
    contents.ppqn = smf->ppqn;
    contents.trackNames.resize(static_cast<std::size_t>(contents.tracks) + 1);
    while (smf_event_t* event = smf_get_next_event(smf)) {
        const unsigned char* b = event->midi_buffer;
        const double ms = event->time_seconds * 1000.0;
        if (smf_event_is_metadata(event)) {
            if (b[1] == 0x51) contents.tempo.emplace_back(ms, b[3] << 16 | b[4] << 8 | b[5]);
            if (b[1] == 0x03) {
                char* text = smf_event_extract_text(event);
                if (text) contents.trackNames[static_cast<std::size_t>(event->track_number)] = text;
                free(text);
            }
            continue;
        }
        const smf_tempo_t* tempo = smf_get_tempo_by_pulses(smf, event->time_pulses);
        const double pulseMs = tempo->microseconds_per_quarter_note / 1000.0 / smf->ppqn;
        contents.channelEvents.push_back({ms, pulseMs, event->track_number, b[0], event->midi_buffer_length > 1 ? b[1] : -1,
                                          event->midi_buffer_length > 2 ? b[2] : -1});
    }
    smf_delete(smf);
    return contents;
}

}  // namespace tessaly::testing
