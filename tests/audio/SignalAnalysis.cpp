#include "SignalAnalysis.h"

#include <algorithm>
#include <cmath>

namespace tessaly::audio::testing {

std::vector<float> channelOf(const std::vector<float>& stereo, int channel, std::size_t fromFrame, std::size_t toFrame) {
    toFrame = std::min(toFrame, stereo.size() / 2);
    std::vector<float> out;
    for (std::size_t f = fromFrame; f < toFrame; ++f) out.push_back(stereo[f * 2 + static_cast<std::size_t>(channel)]);
    return out;
}

double rms(const std::vector<float>& samples) {
    if (samples.empty()) return 0.0;
    double sum = 0.0;
    for (float s : samples) sum += static_cast<double>(s) * s;
    return std::sqrt(sum / static_cast<double>(samples.size()));
}

std::vector<std::size_t> sineBreaks(const std::vector<float>& mono, double hz, int sampleRate, double tolerance) {
    const double twoCos = 2.0 * std::cos(2.0 * 3.14159265358979323846 * hz / sampleRate);
    std::vector<std::size_t> breaks;
    for (std::size_t n = 1; n + 1 < mono.size(); ++n) {
        const double residual = static_cast<double>(mono[n - 1]) + mono[n + 1] - twoCos * mono[n];
        if (std::fabs(residual) > tolerance) breaks.push_back(n);
    }
    return breaks;
}

float peak(const std::vector<float>& samples) {
    float p = 0.0f;
    for (float s : samples) p = std::max(p, std::fabs(s));
    return p;
}

namespace {

// The period in samples of one window, refined between lags; 0 if none.
double yinPeriod(const float* x, std::size_t window, std::size_t minLag, std::size_t maxLag) {
    std::vector<double> d(maxLag + 1, 0.0);
    for (std::size_t tau = 1; tau <= maxLag; ++tau) {
        double sum = 0.0;
        for (std::size_t j = 0; j < window; ++j) {
            const double diff = static_cast<double>(x[j]) - x[j + tau];
            sum += diff * diff;
        }
        d[tau] = sum;
    }
    // Cumulative mean normalised difference: dips toward 0 at the period and
    // keeps the dips at multiples of it from winning.
    std::vector<double> cmnd(maxLag + 1, 1.0);
    double running = 0.0;
    for (std::size_t tau = 1; tau <= maxLag; ++tau) {
        running += d[tau];
        cmnd[tau] = running > 0.0 ? d[tau] * static_cast<double>(tau) / running : 1.0;
    }
    std::size_t best = 0;
    for (std::size_t tau = minLag; tau < maxLag; ++tau) {
        if (cmnd[tau] < 0.15) {
            while (tau + 1 < maxLag && cmnd[tau + 1] < cmnd[tau]) ++tau;
            best = tau;
            break;
        }
    }
    if (best == 0) return 0.0;
    const double a = cmnd[best - 1], b = cmnd[best], c = cmnd[best + 1];
    const double denom = a - 2 * b + c;
    const double shift = denom != 0.0 ? 0.5 * (a - c) / denom : 0.0;
    return static_cast<double>(best) + shift;
}

}  // namespace

double estimatePitchHz(const std::vector<float>& mono, int sampleRate) {
    const std::size_t window = 4096;
    const auto maxLag = static_cast<std::size_t>(sampleRate / 50);
    const auto minLag = static_cast<std::size_t>(sampleRate / 2000);
    std::vector<double> periods;
    for (std::size_t start = 0; start + window + maxLag + 1 <= mono.size(); start += window) {
        const double period = yinPeriod(mono.data() + start, window, minLag, maxLag);
        if (period > 0.0) periods.push_back(period);
    }
    if (periods.empty()) return 0.0;
    std::sort(periods.begin(), periods.end());
    return sampleRate / periods[periods.size() / 2];
}

std::vector<int> onsetsMs(const std::vector<float>& mono, int rate) {
    const std::size_t hop = static_cast<std::size_t>(rate) / 200;  // 5 ms
    std::vector<double> energy;
    for (std::size_t start = 1; start + hop <= mono.size(); start += hop) {
        double sum = 0;
        for (std::size_t i = start; i < start + hop; ++i) {
            double d = mono[i] - mono[i - 1];
            sum += d * d;
        }
        energy.push_back(sum);
    }
    double loudest = *std::max_element(energy.begin(), energy.end());
    std::vector<int> onsets;
    for (std::size_t i = 4; i < energy.size(); ++i) {
        double before = energy[i - 4] + 1e-12;
        bool rises = energy[i] > 0.02 * loudest && energy[i] > 6 * before;
        int ms = static_cast<int>(i * 5);
        if (rises && (onsets.empty() || ms - onsets.back() > 150)) onsets.push_back(ms);
    }
    return onsets;
}

}  // namespace tessaly::audio::testing
