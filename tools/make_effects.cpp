// Synthesises the six default sound effects into a folder: clapping, thunder,
// a gong, a bamboo flute phrase, a rising tide and a bell. Everything is made
// here from oscillators, noise, filters and envelopes, with a fixed seed, so
// every build writes the same files. 44.1 kHz, 16-bit, mono, each at the
// level of the instrument.
//
// usage: make_effects OUTPUT_FOLDER
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int kRate = 44100;
constexpr double kTwoPi = 2.0 * std::numbers::pi;

using Buffer = std::vector<double>;

Buffer silence(double seconds) { return Buffer(static_cast<std::size_t>(seconds * kRate), 0.0); }
double timeOf(std::size_t i) { return static_cast<double>(i) / kRate; }

// A small deterministic noise source.
class Noise {
public:
    explicit Noise(uint64_t seed) : state_(seed) {}
    double white() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return static_cast<double>(state_ >> 11) / static_cast<double>(1ull << 53) * 2.0 - 1.0;
    }
    double uniform(double low, double high) { return low + (white() + 1.0) * 0.5 * (high - low); }

private:
    uint64_t state_;
};

class OnePoleLowpass {
public:
    void setCutoff(double hz) { a_ = 1.0 - std::exp(-kTwoPi * hz / kRate); }
    double operator()(double x) { return y_ += a_ * (x - y_); }

private:
    double a_ = 1.0, y_ = 0.0;
};

// A band-pass biquad (constant peak gain).
class Bandpass {
public:
    Bandpass(double centreHz, double q) {
        double w = kTwoPi * centreHz / kRate, alpha = std::sin(w) / (2.0 * q), a0 = 1.0 + alpha;
        b0_ = alpha / a0;
        b2_ = -alpha / a0;
        a1_ = -2.0 * std::cos(w) / a0;
        a2_ = (1.0 - alpha) / a0;
    }
    double operator()(double x) {
        double y = b0_ * x + b2_ * x2_ - a1_ * y1_ - a2_ * y2_;
        x2_ = x1_;
        x1_ = x;
        y2_ = y1_;
        y1_ = y;
        return y;
    }

private:
    double b0_, b2_, a1_, a2_;
    double x1_ = 0, x2_ = 0, y1_ = 0, y2_ = 0;
};

void addAt(Buffer& out, const Buffer& sound, double startSeconds, double gain = 1.0) {
    auto start = static_cast<std::size_t>(startSeconds * kRate);
    for (std::size_t i = 0; i < sound.size() && start + i < out.size(); ++i) out[start + i] += gain * sound[i];
}

// Fades so nothing starts or stops with a click: a 2 ms fade-in that keeps
// the attack, and a fade-out of the given length.
void fadeEnds(Buffer& b, double tailSeconds = 0.01) {
    auto in = std::min(b.size() / 2, static_cast<std::size_t>(0.002 * kRate));
    auto out = std::min(b.size() / 2, static_cast<std::size_t>(tailSeconds * kRate));
    for (std::size_t i = 0; i < in; ++i) b[i] *= static_cast<double>(i) / static_cast<double>(in);
    for (std::size_t i = 0; i < out; ++i) b[b.size() - 1 - i] *= static_cast<double>(i) / static_cast<double>(out);
}

void normalise(Buffer& b, double peak) {
    double most = 0.0;
    for (double x : b) most = std::max(most, std::fabs(x));
    if (most > 0.0)
        for (double& x : b) x *= peak / most;
}

// A struck body: partials with their own level and decay; slightly detuned
// twins beat against each other as real plates and bells do.
struct Partial {
    double ratio, level, decaySeconds;
};

Buffer struck(double fundamental, const std::vector<Partial>& partials, double seconds, double glide,
              double glideSeconds, Noise& noise) {
    Buffer out = silence(seconds);
    for (const Partial& p : partials) {
        for (double detune : {0.0, 0.0021 * p.ratio}) {
            double phase = noise.uniform(0.0, kTwoPi);
            for (std::size_t i = 0; i < out.size(); ++i) {
                double t = timeOf(i);
                double bend = 1.0 + glide * (1.0 - std::exp(-t / glideSeconds));
                phase += kTwoPi * fundamental * (p.ratio + detune) * bend / kRate;
                out[i] += 0.5 * p.level * std::exp(-t / p.decaySeconds) * std::sin(phase);
            }
        }
    }
    // The mallet's knock.
    Bandpass knock(fundamental * 6.0, 0.8);
    for (std::size_t i = 0; i < out.size() && i < kRate / 20; ++i)
        out[i] += 0.25 * knock(noise.white()) * std::exp(-timeOf(i) / 0.008);
    fadeEnds(out, 0.3);
    return out;
}

// Claps: a few people clapping together, every clap a burst of band-passed
// noise with two or three quick reflections of the palms, then a short room tail.
Buffer clapping() {
    Noise noise(11);
    Buffer out = silence(3.2);
    const double beat = 0.36;
    const int claps = 8;
    for (int person = 0; person < 4; ++person) {
        double centre = noise.uniform(900.0, 1900.0);
        for (int c = 0; c < claps; ++c) {
            Bandpass body(centre * noise.uniform(0.92, 1.08), 1.6);
            Buffer clap = silence(0.25);
            int bursts = 2 + static_cast<int>(noise.uniform(0.0, 1.99));
            for (std::size_t i = 0; i < clap.size(); ++i) {
                double t = timeOf(i), env = 0.0;
                for (int b = 0; b < bursts; ++b) {
                    double start = b * 0.009;
                    if (t >= start) env += std::exp(-(t - start) / (b + 1 == bursts ? 0.045 : 0.004));
                }
                clap[i] = body(noise.white()) * env;
            }
            double when = 0.05 + c * beat + noise.uniform(0.0, 0.022);
            addAt(out, clap, when, noise.uniform(0.7, 1.0));
        }
    }
    // A little room: a few decaying echoes.
    Buffer dry = out;
    for (double delay : {0.031, 0.047, 0.071})
        addAt(out, dry, delay, 0.18);
    fadeEnds(out);
    normalise(out, 0.9);
    return out;
}

// Thunder: a sharp crack, then a long low rumble that rolls in waves and dies away.
Buffer thunder() {
    Noise noise(23);
    Buffer out = silence(5.5);
    OnePoleLowpass crackTone, rumbleTone1, rumbleTone2, rollShape;
    crackTone.setCutoff(3500.0);
    rumbleTone1.setCutoff(120.0);
    rumbleTone2.setCutoff(180.0);
    rollShape.setCutoff(2.5);
    double brown = 0.0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        double t = timeOf(i);
        double crack = 0.0;
        if (t >= 0.12) crack = crackTone(noise.white()) * std::exp(-(t - 0.12) / 0.09) * (1.0 - std::exp(-(t - 0.12) / 0.002));
        brown = 0.997 * brown + 0.03 * noise.white();
        double rumble = rumbleTone2(rumbleTone1(brown));
        // Rolls: slow random swells, with two later claps of the storm.
        double roll = 0.6 + 8.0 * std::fabs(rollShape(noise.white()));
        double swell = (1.0 - std::exp(-std::max(0.0, t - 0.1) / 0.25)) * std::exp(-t / 1.8);
        for (double later : {1.3, 2.4})
            if (t > later) swell += 0.6 * (1.0 - std::exp(-(t - later) / 0.12)) * std::exp(-(t - later) / 0.9);
        out[i] = 1.6 * crack + 14.0 * rumble * roll * swell;
    }
    fadeEnds(out, 0.4);
    normalise(out, 0.92);
    return out;
}

// A gong of the opera band: inharmonic partials, the upper ones blooming a
// moment after the stroke, and the pitch sliding upwards as it rings.
Buffer gong() {
    Noise noise(37);
    std::vector<Partial> partials = {{1.00, 1.00, 2.6}, {1.52, 0.70, 2.0}, {2.03, 0.55, 1.7}, {2.47, 0.45, 1.4},
                                     {3.11, 0.35, 1.1}, {3.73, 0.28, 0.9}, {4.40, 0.22, 0.7}, {5.21, 0.16, 0.5},
                                     {6.34, 0.12, 0.35}};
    Buffer out = struck(310.0, partials, 4.0, 0.07, 0.35, noise);
    // The shimmer that builds up after the stroke.
    Buffer bloom = struck(310.0, {{7.1, 0.2, 0.6}, {8.3, 0.15, 0.45}, {9.6, 0.1, 0.35}}, 4.0, 0.07, 0.35, noise);
    for (std::size_t i = 0; i < bloom.size(); ++i) out[i] += bloom[i] * (1.0 - std::exp(-timeOf(i) / 0.12));
    fadeEnds(out, 0.3);
    normalise(out, 0.9);
    return out;
}

// A phrase of the bamboo flute: a pentatonic tune, breathy, with the buzz of
// the flute's membrane, grace notes and a vibrato on the long notes.
Buffer flute() {
    Noise noise(41);
    struct Note {
        double hz, seconds;
        bool grace;
    };
    const double A5 = 880.0, B5 = 987.77, D6 = 1174.66, E6 = 1318.51, Fs6 = 1479.98, A6 = 1760.0;
    std::vector<Note> tune = {{A5, 0.30, false}, {B5, 0.15, false}, {D6, 0.45, true}, {E6, 0.15, false},
                              {D6, 0.15, false}, {B5, 0.30, false}, {A5, 0.30, true}, {D6, 0.30, false},
                              {E6, 0.15, false}, {Fs6, 0.15, false}, {A6, 0.45, true}, {Fs6, 0.15, false},
                              {E6, 0.15, false}, {D6, 1.10, false}};
    double total = 0.0;
    for (const Note& n : tune) total += n.seconds;
    Buffer out = silence(total + 0.5);
    OnePoleLowpass glide, breathTone, flutter;
    glide.setCutoff(60.0);
    breathTone.setCutoff(5000.0);
    flutter.setCutoff(150.0);
    double phase = 0.0, start = 0.1;
    std::size_t i = static_cast<std::size_t>(start * kRate);
    for (std::size_t n = 0; n < tune.size(); ++n) {
        const Note& note = tune[n];
        auto length = static_cast<std::size_t>(note.seconds * kRate);
        for (std::size_t k = 0; k < length && i < out.size(); ++k, ++i) {
            double t = timeOf(k);
            double target = note.hz;
            // A grace note: a flick to the note above before settling.
            if (note.grace && t < 0.045) target = note.hz * 1.125;
            double vibrato = t > 0.22 ? 0.006 * std::min(1.0, (t - 0.22) / 0.2) * std::sin(kTwoPi * 5.6 * t) : 0.0;
            double hz = glide(target) * (1.0 + vibrato);
            phase += kTwoPi * hz / kRate;
            double tone = std::sin(phase) + 0.45 * std::sin(2 * phase) + 0.22 * std::sin(3 * phase) +
                          0.10 * std::sin(4 * phase) + 0.05 * std::sin(5 * phase);
            // The membrane's buzz: bright upper harmonics that flutter with the breath.
            double buzz = 0.0;
            for (int h = 6; h <= 11; ++h) buzz += std::sin(h * phase) / h;
            buzz *= 0.35 * (1.0 + 4.0 * flutter(noise.white()));
            // Tonguing: each note starts with a short chiff, the phrase's last note fades.
            double attack = std::min(1.0, t / 0.03);
            double release = n + 1 == tune.size() ? std::exp(-std::max(0.0, t - 0.6) / 0.25) : 1.0;
            double chiff = std::exp(-t / 0.02);
            double breath = breathTone(noise.white()) * (0.025 + 0.15 * chiff);
            out[i] += (tone + buzz + breath) * attack * release;
        }
    }
    fadeEnds(out, 0.05);
    normalise(out, 0.85);
    return out;
}

// A rising tide: waves rolling in one after another, each a surge of
// brightening surf that breaks and hisses back, each a little bigger, over the
// steady roar of the sea.
Buffer tide() {
    Noise noise(53);
    Buffer out = silence(8.0);
    OnePoleLowpass sea1, sea2, surf1, surf2;
    sea1.setCutoff(250.0);
    sea2.setCutoff(250.0);
    const std::vector<double> crests = {0.9, 2.5, 4.0, 5.4, 6.8};
    for (std::size_t i = 0; i < out.size(); ++i) {
        double t = timeOf(i);
        double level = 0.0;
        for (std::size_t w = 0; w < crests.size(); ++w) {
            double d = t - crests[w];
            double size = 0.45 + 0.14 * static_cast<double>(w);
            // Slow build up to the crest, quick break, long wash back.
            double shape = d < 0 ? std::exp(-d * d / (2 * 0.45 * 0.45)) : std::exp(-d / 0.9);
            level += size * shape;
        }
        double cutoff = 200.0 + 2800.0 * std::min(level, 1.2);
        surf1.setCutoff(cutoff);
        surf2.setCutoff(cutoff);
        double roar = sea2(sea1(noise.white())) * (1.0 + 0.4 * t / 8.0);
        out[i] = surf2(surf1(noise.white())) * std::pow(level, 1.5) * 1.6 + roar;
    }
    fadeEnds(out, 0.5);
    normalise(out, 0.9);
    return out;
}

// A bell: the partials of a cast bell (hum, prime, minor third, fifth,
// nominal and above) with long decays, struck twice.
Buffer bell() {
    Noise noise(67);
    std::vector<Partial> partials = {{0.50, 0.45, 5.5}, {1.00, 0.60, 3.6}, {1.19, 0.45, 2.9}, {1.50, 0.22, 2.3},
                                     {2.00, 0.55, 2.1}, {2.51, 0.20, 1.3}, {2.66, 0.16, 1.1}, {3.01, 0.15, 0.9},
                                     {4.07, 0.08, 0.55}};
    Buffer strike = struck(392.0, partials, 5.5, 0.0, 1.0, noise);
    Buffer out = silence(6.0);
    addAt(out, strike, 0.02);
    addAt(out, strike, 2.6, 0.8);
    fadeEnds(out, 0.4);
    normalise(out, 0.9);
    return out;
}

// Every effect is heard at the level of the instrument: the RMS of its
// loudest second is that of a middle C played on the default instruments at
// the default volume, after the program's master volume.
constexpr double kLoudestSecondDb = -35.5;

void setLoudestSecond(Buffer& b, double targetDb) {
    const std::size_t window = kRate;
    double best = 0, sum = 0;
    for (std::size_t i = 0; i < b.size(); ++i) {
        sum += b[i] * b[i];
        if (i >= window) sum -= b[i - window] * b[i - window];
        best = std::max(best, sum / static_cast<double>(std::min(i + 1, window)));
    }
    if (best <= 0) return;
    const double gain = std::pow(10.0, targetDb / 20.0) / std::sqrt(best);
    for (double& x : b) x *= gain;
}

bool writeWav(const std::filesystem::path& path, const Buffer& samples) {
    SF_INFO info{};
    info.samplerate = kRate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) {
        std::fprintf(stderr, "make_effects: cannot write %s: %s\n", path.c_str(), sf_strerror(nullptr));
        return false;
    }
    std::vector<short> pcm(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i)
        pcm[i] = static_cast<short>(std::lround(std::clamp(samples[i], -1.0, 1.0) * 32767.0));
    bool ok = sf_write_short(file, pcm.data(), static_cast<sf_count_t>(pcm.size())) ==
              static_cast<sf_count_t>(pcm.size());
    sf_close(file);
    return ok;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_effects OUTPUT_FOLDER\n");
        return 2;
    }
    std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    struct Effect {
        const char* name;
        Buffer (*make)();
    };
    // The names are those the default settings refer to. The settings name the
    // bell with a trailing blank, which no file name keeps: it is stored
    // without, and the look-up finds it.
    const Effect effects[] = {{"拍手1.wav", clapping}, {"雷声3.WAV", thunder}, {"锣2.wav", gong},
                              {"民族笛子3.wav", flute}, {"涨潮.wav", tide},     {"钟声.wav", bell}};
    for (const Effect& effect : effects) {
        Buffer sound = effect.make();
        setLoudestSecond(sound, kLoudestSecondDb);
        if (!writeWav(folder / effect.name, sound)) return 1;
    }
    // Earlier builds wrote the bell under the name with the blank.
    std::error_code ignored;
    std::filesystem::remove(folder / "钟声.wav ", ignored);
    return 0;
}
