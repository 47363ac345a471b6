#pragma once
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace tessaly {

struct LiveSnapshot;

// One export: what to play, where to write it, and where the program's files are.
struct ExportRequest {
    // A ".txt" score or a ".lnk" edit file; not used with a snapshot.
    std::string input;
    // The score box or the editor's song as the windows hold them.
    std::shared_ptr<const LiveSnapshot> live;
    // Its extension picks the format: .mid, .wav, .flac or .mp3.
    std::string output;
    // The data folder whose settings, rhythm files, chord figures and
    // SoundFonts count; it is only read.
    std::string dataFolder;
    std::string shippedData;
    std::string soundFont;  // empty: found as the program finds it
    uint32_t longestPlayMs = 3600 * 1000;
};

struct ExportResult {
    bool ok = false;
    std::string message;  // why it failed, in the words the user is told
    uint32_t playedMs = 0;
    std::size_t notes = 0;
};

enum class ExportStage { Playing, Synthesizing };
using ExportProgress = std::function<void(ExportStage stage, uint32_t doneMs, uint32_t totalMs)>;

// Plays the input in a program of its own in virtual time and writes what it
// sent as a MIDI file, or renders it on the built-in synthesizer into an
// audio file. The file is written beside its place and put there only when
// complete, so a failed export leaves what was there. Safe on any thread:
// it touches nothing outside its own program.
ExportResult runExport(const ExportRequest& request, const ExportProgress& progress = {},
                       const std::atomic<bool>* cancel = nullptr);

}  // namespace tessaly
