#pragma once

namespace tessaly::audio {

// The one format the engine mixes in: interleaved float stereo at 48 kHz.
inline constexpr int kSampleRate = 48000;
inline constexpr int kChannels = 2;
inline constexpr int kFramesPerMs = kSampleRate / 1000;

// Frames per rendered block. Small periods keep a key press close to its sound.
inline constexpr int kDefaultPeriodFrames = 128;
inline constexpr int kMinPeriodFrames = 16;
inline constexpr int kMaxPeriodFrames = 256;

inline int clampPeriod(int frames) {
    return frames < kMinPeriodFrames ? kMinPeriodFrames : frames > kMaxPeriodFrames ? kMaxPeriodFrames : frames;
}

}  // namespace tessaly::audio
