#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"
#include "platform/testing/RecordingPlatform.h"
#include "runtime/Text.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

TEST(SystemMidiPort, ListsTheSynthAsMapperWhateverTheSequencer) {
    AudioEngine engine{{AudioOutput::Offline}};
    SystemMidiPort port(engine, {"", kTestSoundFont});
    std::string name;
    ASSERT_TRUE(port.deviceName(-1, name));
    EXPECT_EQ(name, RecordingMidiPort::kMapperName);
    EXPECT_LE(charLength(name), SystemMidiPort::kMaxNameChars);

    // Without an ALSA sequencer there are no ports; with one, each has a name.
    const int ports = port.deviceCount();
    ASSERT_GE(ports, 0);
    for (int id = 0; id < ports; ++id) {
        EXPECT_TRUE(port.deviceName(id, name));
        EXPECT_LE(charLength(name), SystemMidiPort::kMaxNameChars);
    }
    EXPECT_FALSE(port.deviceName(ports, name));
    EXPECT_FALSE(port.deviceName(-2, name));
    uint32_t handle = 0;
    const int beyond = port.open(ports, handle);
    EXPECT_TRUE(beyond == kMidiBadDeviceId || beyond == kMidiNoDriver) << beyond;
    EXPECT_EQ(port.open(-2, handle), kMidiBadDeviceId);
}

TEST(SystemMidiPort, HandlesFollowOpenAndClose) {
    AudioEngine engine{{AudioOutput::Offline}};
    SystemMidiPort port(engine, {"", kTestSoundFont});
    uint32_t first = 0, second = 0;
    ASSERT_EQ(port.open(-1, first), kMidiOk);
    EXPECT_NE(first, 0u);
    EXPECT_EQ(port.soundFontPath(), kTestSoundFont);
    EXPECT_EQ(port.open(-1, second), kMidiAllocated);
    EXPECT_EQ(port.shortMessage(first + 1, pack(0x90, 60, 100)), kMidiInvalidHandle);
    EXPECT_EQ(port.shortMessage(first, pack(0x90, 60, 100)), kMidiOk);
    EXPECT_GT(rms(SynthRig::renderEngine(engine, 200)), 0.01);

    // Closing takes the synth away from the mix at once.
    EXPECT_EQ(port.close(first), kMidiOk);
    EXPECT_EQ(rms(SynthRig::renderEngine(engine, 50)), 0.0) << "no synth, nothing at all";
    EXPECT_EQ(port.close(first), kMidiInvalidHandle);
    EXPECT_EQ(port.close(0), kMidiInvalidHandle);
    EXPECT_EQ(port.shortMessage(first, pack(0x90, 60, 100)), kMidiInvalidHandle);
    ASSERT_EQ(port.open(-1, second), kMidiOk);
    EXPECT_NE(second, first) << "a stale handle must not reach the reopened device";
}

TEST(SystemMidiPort, MessagesQueuedWhileDetachedNeverReachTheNextSynth) {
    AudioEngine engine{{AudioOutput::Offline}};
    SystemMidiPort port(engine, {"", kTestSoundFont});
    uint32_t handle = 0;
    ASSERT_EQ(port.open(-1, handle), kMidiOk);
    EXPECT_EQ(port.shortMessage(handle, pack(0x90, 60, 100)), kMidiOk);  // never rendered
    EXPECT_EQ(port.close(handle), kMidiOk);
    ASSERT_EQ(port.open(-1, handle), kMidiOk);
    EXPECT_LT(peak(SynthRig::renderEngine(engine, 200)), kSilentPeak);
}

// The SoundFont loaded while the splash is up serves the first opening; a
// preload that found nothing fails that opening as a load on the spot would.
TEST(SystemMidiPort, APreloadedSynthServesTheFirstOpening) {
    AudioEngine engine{{AudioOutput::Offline}};
    SystemMidiPort port(engine, {"", kTestSoundFont});
    port.preloadSynth();
    port.preloadSynth();  // once only
    uint32_t handle = 0;
    ASSERT_EQ(port.open(-1, handle), kMidiOk);
    EXPECT_EQ(port.soundFontPath(), kTestSoundFont);
    EXPECT_EQ(port.shortMessage(handle, pack(0x90, 60, 100)), kMidiOk);
    EXPECT_GT(rms(SynthRig::renderEngine(engine, 200)), 0.01);

    SystemMidiPort missing(engine, {"", "/nonexistent/none.sf2"});
    missing.preloadSynth();
    EXPECT_EQ(missing.open(-1, handle), kMidiSoundFontMissing);
}

// Choosing the synthesizer again takes the closed one back, reset, when its
// SoundFont is the same unchanged file; a SoundFont changed on disk loads anew.
TEST(SystemMidiPort, ReopeningKeepsTheSoundFontUnlessItsFileChanged) {
    TempFolder folder;
    const std::string copy = folder.file("gm.sf2");
    std::filesystem::copy_file(kTestSoundFont, copy);
    AudioEngine engine{{AudioOutput::Offline}};
    SystemMidiPort port(engine, {"", copy});
    uint32_t handle = 0;
    ASSERT_EQ(port.open(-1, handle), kMidiOk);
    EXPECT_EQ(port.shortMessage(handle, pack(0xC0, 40, 0)), kMidiOk);  // a violin, held
    EXPECT_EQ(port.shortMessage(handle, pack(0x90, 60, 100)), kMidiOk);
    SynthRig::renderEngine(engine, 100);
    EXPECT_EQ(port.close(handle), kMidiOk);

    ASSERT_EQ(port.open(-1, handle), kMidiOk);
    EXPECT_EQ(port.soundFontLoads(), 1);
    EXPECT_LT(peak(SynthRig::renderEngine(engine, 200)), kSilentPeak) << "the held note is gone";
    // Programs are back at the piano: the same note sounds as from a fresh load.
    EXPECT_EQ(port.shortMessage(handle, pack(0x90, 60, 100)), kMidiOk);
    const std::vector<float> reused = SynthRig::renderEngine(engine, 300);
    EXPECT_EQ(port.close(handle), kMidiOk);

    std::filesystem::last_write_time(copy, std::filesystem::last_write_time(copy) + std::chrono::seconds(5));
    ASSERT_EQ(port.open(-1, handle), kMidiOk);
    EXPECT_EQ(port.soundFontLoads(), 2);
    EXPECT_EQ(port.shortMessage(handle, pack(0x90, 60, 100)), kMidiOk);
    const std::vector<float> loaded = SynthRig::renderEngine(engine, 300);
    ASSERT_EQ(reused.size(), loaded.size());
    EXPECT_GT(rms(loaded), 0.01);
    EXPECT_NEAR(rms(reused), rms(loaded), 0.05 * rms(loaded));
}
