#pragma once

namespace tessaly::audio {

// The one format the engine mixes in: interleaved float stereo at 48 kHz.
inline constexpr int kSampleRate = 48000;
inline constexpr int kChannels = 2;
inline constexpr int kFramesPerMs = kSampleRate / 1000;

// Frames per rendered block. Small periods keep a key press close to its
// sound: 64 frames are 1.3 ms. A device that cannot keep up grows its period
// by itself up to kMaxFallbackPeriodFrames.
inline constexpr int kDefaultPeriodFrames = 64;
inline constexpr int kMaxFallbackPeriodFrames = 256;
inline constexpr int kMinPeriodFrames = 16;
inline constexpr int kMaxPeriodFrames = 256;

// How long a block of this many frames plays.
inline constexpr long long periodNs(int frames) { return frames * 1'000'000'000LL / kSampleRate; }

inline int clampPeriod(int frames) {
    return frames < kMinPeriodFrames ? kMinPeriodFrames : frames > kMaxPeriodFrames ? kMaxPeriodFrames : frames;
}

}  // namespace tessaly::audio
