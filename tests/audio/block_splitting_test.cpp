#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "platform/audio/AudioFormat.h"
#include "platform/audio/BlockClock.h"
#include "platform/audio/Mixer.h"
#include "platform/audio/MidiSynth.h"

using namespace tessaly::audio;

namespace {

// Sounds a click in the left channel at the first frame it renders after a
// note-on, and silence otherwise: where the click lands is where the message
// was applied.
struct ClickSynth : MidiSynth {
    int pending = 0;
    void apply(uint32_t packed) override {
        if ((packed & 0xF0) == 0x90) ++pending;
    }
    void render(float* out, int frames) override {
        for (int i = 0; i < frames * kChannels; ++i) out[i] = 0.0f;
        if (pending > 0 && frames > 0) out[0] = 0.5f * static_cast<float>(pending);
        pending = 0;
    }
};

constexpr uint32_t kNoteOn = 0x90 | (60 << 8) | (100 << 16);
constexpr int64_t kSpanStart = 1'000'000'000;
constexpr int kBlock = 128;

int64_t sentAtFrame(double frame) {
    return kSpanStart + static_cast<int64_t>(frame * 1e9 / kSampleRate);
}

std::vector<int> clicks(const std::vector<float>& block) {
    std::vector<int> frames;
    for (std::size_t i = 0; i < block.size(); i += kChannels)
        if (block[i] != 0.0f) frames.push_back(static_cast<int>(i / kChannels));
    return frames;
}

struct Rig {
    ClickSynth synth;
    Mixer mixer;
    Rig() { mixer.attachSynth(&synth); }
    ~Rig() { mixer.detachSynth(); }
    std::vector<float> renderSpan(int64_t start) {
        std::vector<float> block(kBlock * kChannels);
        mixer.render(block.data(), kBlock, {start, start + periodNs(kBlock)});
        return block;
    }
};

}  // namespace

TEST(BlockSplitting, TwoNoteOnsThirtySevenFramesApartInOneBlockSoundThirtySevenFramesApart) {
    Rig rig;
    rig.mixer.postMidi(kNoteOn, sentAtFrame(10.2));
    rig.mixer.postMidi(kNoteOn, sentAtFrame(47.2));
    EXPECT_EQ(clicks(rig.renderSpan(kSpanStart)), (std::vector<int>{10, 47}));
}

TEST(BlockSplitting, LateMessagesGoFirstAndEarlyOnesWaitForTheirBlock) {
    Rig rig;
    rig.mixer.postMidi(kNoteOn, sentAtFrame(-500));     // older than the block: at once
    rig.mixer.postMidi(kNoteOn, sentAtFrame(kBlock + 5));  // belongs to the next block
    EXPECT_EQ(clicks(rig.renderSpan(kSpanStart)), (std::vector<int>{0}));
    EXPECT_EQ(clicks(rig.renderSpan(kSpanStart + periodNs(kBlock))), (std::vector<int>{5}));
}

TEST(BlockSplitting, UntimedBlocksAndMessagesApplyAtTheStart) {
    Rig rig;
    rig.mixer.postMidi(kNoteOn, sentAtFrame(60));
    rig.mixer.postMidi(kNoteOn);  // no time
    std::vector<float> block(kBlock * kChannels);
    rig.mixer.render(block.data(), kBlock);  // offline: the caller rendered up to the message
    EXPECT_EQ(clicks(block), (std::vector<int>{0}));
    EXPECT_FLOAT_EQ(block[0], 1.0f) << "both messages in the first frame";
}

// Requests that jitter around a steady period give contiguous spans whose
// length settles on the period; a long stall starts the clock afresh.
TEST(BlockClock, SpansAreContiguousAndFollowTheDevicesPeriod) {
    BlockClock clock;
    const int64_t nominal = periodNs(64);
    const int64_t real = nominal * 1001 / 1000;  // the device runs a little slow
    int64_t previousEnd = 0;
    BlockSpan span;
    for (int i = 0; i < 20000; ++i) {
        const int64_t jitter = (i % 7 - 3) * 60'000;  // up to ±0.18 ms
        span = clock.next(kSpanStart + i * real + jitter, nominal);
        if (i > 0) {
            ASSERT_EQ(span.startNs, previousEnd) << i;
        }
        previousEnd = span.endNs;
    }
    EXPECT_NEAR(static_cast<double>(span.endNs - span.startNs), static_cast<double>(real), 2'000.0);
    const int64_t lastRequest = kSpanStart + 19999 * real;
    EXPECT_NEAR(static_cast<double>(span.endNs), static_cast<double>(lastRequest), 100'000.0);

    const int64_t afterStall = lastRequest + 50 * nominal;
    span = clock.next(afterStall, nominal);
    EXPECT_EQ(span.endNs, afterStall);
    EXPECT_EQ(span.startNs, afterStall - nominal);
}
