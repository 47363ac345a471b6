#include "BenchmarkSong.h"

#include <algorithm>
#include <fstream>

#include "platform/audio/ShortMessage.h"

namespace tessaly::bench {

namespace {

uint32_t pack(int status, int data1, int data2) {
    return static_cast<uint32_t>(status) | static_cast<uint32_t>(data1) << 8 | static_cast<uint32_t>(data2) << 16;
}

void appendVariableLength(std::vector<uint8_t>& out, uint32_t value) {
    uint8_t groups[5];
    int count = 0;
    do {
        groups[count++] = static_cast<uint8_t>(value & 0x7F);
        value >>= 7;
    } while (value != 0);
    while (count > 1) out.push_back(static_cast<uint8_t>(groups[--count] | 0x80));
    out.push_back(groups[0]);
}

void appendBigEndian(std::vector<uint8_t>& out, uint32_t value, int bytes) {
    for (int i = bytes - 1; i >= 0; --i) out.push_back(static_cast<uint8_t>((value >> (8 * i)) & 0xFF));
}

}  // namespace

std::vector<TimedMessage> benchmarkSong(int seconds) {
    std::vector<TimedMessage> song{{0, pack(0xC0, 0, 0)}, {0, pack(0xC3, 48, 0)}};
    const int scale[8] = {60, 62, 64, 65, 67, 69, 71, 72};
    const int chords[4][3] = {{48, 52, 55}, {53, 57, 60}, {55, 59, 62}, {48, 52, 55}};
    const auto end = static_cast<uint32_t>(seconds) * 1000;
    for (uint32_t t = 0, i = 0; t < end; t += 250, ++i) {
        const int note = scale[(i * 3) % 8];
        song.push_back({t, pack(0x90, note, 96)});
        song.push_back({t + 240, pack(0x80, note, 0)});
        song.push_back({t, pack(0x99, 42, 70)});  // closed hi-hat on every eighth
        if (i % 2 == 0) song.push_back({t, pack(0x99, (i / 2) % 2 == 0 ? 36 : 38, 100)});
        if (t % 2000 == 0) {
            for (int n : chords[(t / 2000) % 4]) {
                song.push_back({t, pack(0x93, n, 70)});
                song.push_back({t + 1990, pack(0x83, n, 0)});
            }
        }
    }
    std::stable_sort(song.begin(), song.end(), [](const TimedMessage& a, const TimedMessage& b) { return a.timeMs < b.timeMs; });
    return song;
}

bool writeStandardMidiFile(const std::string& path, const std::vector<TimedMessage>& messages) {
    std::vector<uint8_t> track;
    // 500 000 microseconds a quarter at 500 ticks a quarter: one tick is 1 ms.
    track.insert(track.end(), {0x00, 0xFF, 0x51, 0x03});
    appendBigEndian(track, 500000, 3);
    uint32_t now = 0;
    for (const TimedMessage& m : messages) {
        const audio::ShortMessage parts = audio::ShortMessage::unpack(m.message);
        appendVariableLength(track, m.timeMs - now);
        now = m.timeMs;
        const uint8_t bytes[3] = {parts.status, parts.data1, parts.data2};
        track.insert(track.end(), bytes, bytes + parts.length());
    }
    track.insert(track.end(), {0x00, 0xFF, 0x2F, 0x00});

    std::vector<uint8_t> file{'M', 'T', 'h', 'd'};
    appendBigEndian(file, 6, 4);
    appendBigEndian(file, 0, 2);    // format 0
    appendBigEndian(file, 1, 2);    // one track
    appendBigEndian(file, 500, 2);  // ticks per quarter
    file.insert(file.end(), {'M', 'T', 'r', 'k'});
    appendBigEndian(file, static_cast<uint32_t>(track.size()), 4);
    file.insert(file.end(), track.begin(), track.end());

    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
    return static_cast<bool>(out);
}

}  // namespace tessaly::bench
