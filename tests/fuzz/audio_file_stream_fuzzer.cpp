// Feeds arbitrary bytes to the player's file reader as a file to play and
// reads it to its end in pieces of changing size. Every read must end, give
// samples that are finite and within full scale, and give the same again
// after a rewind; what opens as a wave file must open as any sound too.
// Anything else aborts.
// The seeds are tiny sine files of each format, written with libsndfile.
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/audio/AudioFileStream.h"

namespace {

using tessaly::audio::AudioFileStream;

[[noreturn]] void fail() { std::abort(); }

// Far more than any input of the fuzzer's length can decode to.
constexpr std::size_t kMostFrames = 20'000'000;

// In memory where the system has a folder for it: the reader takes a path.
const std::string& inputPath() {
    static const std::string path = [] {
        std::error_code error;
        std::filesystem::path folder =
            std::filesystem::is_directory("/dev/shm", error) ? "/dev/shm" : std::filesystem::temp_directory_path();
        return (folder / ("tessaly-fuzz-audio-" + std::to_string(getpid()))).string();
    }();
    return path;
}

struct Reading {
    std::size_t frames = 0;
    uint64_t hash = 14695981039346656037ull;  // of the samples' bits
    bool operator==(const Reading&) const = default;
};

Reading readAll(AudioFileStream& stream, const uint8_t* data, size_t size) {
    static std::vector<float> piece(2 * 5000);
    Reading reading;
    for (std::size_t turn = 0;; ++turn) {
        // Piece sizes from the input's own bytes: 1 to 5000 frames.
        const std::size_t want = 1 + (size ? data[turn % size] * 19u + turn : turn) % 5000;
        const std::size_t got = stream.read(piece.data(), want);
        if (got > want) fail();
        for (std::size_t i = 0; i < got * 2; ++i) {
            if (!std::isfinite(piece[i]) || std::fabs(piece[i]) > 1.0f) fail();
            uint32_t bits = 0;
            std::memcpy(&bits, &piece[i], sizeof bits);
            reading.hash = (reading.hash ^ bits) * 1099511628211ull;
        }
        reading.frames += got;
        if (got < want) break;
        if (reading.frames > kMostFrames) fail();
    }
    if (!stream.ended() || stream.read(piece.data(), 10) != 0) fail();
    return reading;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    {
        std::ofstream out(inputPath(), std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    // One stream for every input, as the player keeps one for every file.
    static AudioFileStream stream;
    const bool wave = stream.open(inputPath(), AudioFileStream::Accept::WaveOnly);
    if (!stream.open(inputPath(), AudioFileStream::Accept::AnyAudio)) {
        if (wave) fail();
        return 0;
    }
    if (stream.sourceRate() < AudioFileStream::kMinRate || stream.sourceRate() > AudioFileStream::kMaxRate) fail();
    const Reading first = readAll(stream, data, size);
    if (!stream.rewind()) fail();
    if (readAll(stream, data, size) != first) fail();
    return 0;
}
