#pragma once
#include <cstddef>
#include <vector>

namespace tessaly::audio::testing {

// One channel (0 left, 1 right) of interleaved stereo frames [from, to).
std::vector<float> channelOf(const std::vector<float>& stereo, int channel, std::size_t fromFrame = 0,
                             std::size_t toFrame = static_cast<std::size_t>(-1));

double rms(const std::vector<float>& samples);

// Where a steady sine of hz breaks its course: the frames n at which
// x[n-1] + x[n+1] - 2 cos(w) x[n] strays beyond tolerance. A dropped or
// repeated piece of the sound shows there; a clean sine gives none.
std::vector<std::size_t> sineBreaks(const std::vector<float>& mono, double hz, int sampleRate, double tolerance);
float peak(const std::vector<float>& samples);

// Fundamental frequency by the YIN difference function, averaged over
// consecutive windows; 0 when the signal has no clear period in 50..2000 Hz.
double estimatePitchHz(const std::vector<float>& mono, int sampleRate);

// Note onsets: where the energy of the signal's first difference (which
// stresses the attack of a note over its sustain) jumps up, at most one per
// 150 ms. Times in ms from the start of `mono`.
std::vector<int> onsetsMs(const std::vector<float>& mono, int rate);

}  // namespace tessaly::audio::testing
