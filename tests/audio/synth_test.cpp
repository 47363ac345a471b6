#include <gtest/gtest.h>

#include <fstream>

#include "AudioTestSupport.h"
#include "SignalAnalysis.h"
#include "platform/MidiErrors.h"
#include "platform/audio/SoundFontLocator.h"

using namespace tessaly;
using namespace tessaly::audio;
using namespace tessaly::audio::testing;

namespace {

// Pitch of the sustained part of a note, past its attack.
double pitchOf(const std::vector<float>& stereo) {
    return estimatePitchHz(channelOf(stereo, 0, 100 * kFramesPerMs), kSampleRate);
}

}  // namespace

TEST(BuiltInSynth, NotesSoundAtTheirEqualTemperedPitch) {
    for (auto [note, hz] : {std::pair{60, 261.63}, std::pair{62, 293.66}, std::pair{69, 440.0}}) {
        SynthRig rig;
        EXPECT_LT(peak(rig.render(50)), kSilentPeak) << "silence before any note";
        rig.send(0x90, note, 100);
        const double measured = pitchOf(rig.render(600));
        EXPECT_NEAR(measured, hz, hz * 0.01) << "note " << note;
    }
}

TEST(BuiltInSynth, PercussionChannelSoundsDrums) {
    SynthRig rig;
    rig.send(0x99, 38, 100);  // snare on channel 9
    EXPECT_GT(rms(rig.render(300)), 0.01);
}

TEST(BuiltInSynth, NoteOffsAndAllNotesOffDecayToSilence) {
    SynthRig rig;
    rig.send(0x90, 60, 100);
    rig.send(0x90, 64, 0);  // note-on with velocity 0 is an off
    EXPECT_GT(rms(rig.render(300)), 0.01);
    rig.send(0x80, 60, 0);
    std::vector<float> tail = rig.render(4000);
    EXPECT_LT(peak(channelOf(tail, 0, 3800 * kFramesPerMs)), kSilentPeak);

    // Strings sustain for as long as they are held.
    rig.send(0xC1, 48, 0);
    for (int note : {48, 55, 64, 67}) rig.send(0x91, note, 100);
    rig.render(500);
    EXPECT_GT(rms(channelOf(rig.render(500), 0)), 0.01);
    rig.send(0xB1, 123, 0);
    tail = rig.render(5000);
    EXPECT_LT(peak(channelOf(tail, 0, 4800 * kFramesPerMs)), kSilentPeak);
}

TEST(BuiltInSynth, DataBytesAbove127AreDroppedAndLaterNotesStillSound) {
    SynthRig rig;
    rig.send(0xC0, 255, 255);   // a program of -1
    rig.send(0x90, 60, 200);    // velocity beyond range
    rig.send(0x90, 200, 100);   // note beyond range
    rig.send(0xE0, 255, 255);   // pitch bend beyond range
    rig.send(0xB0, 7, 255);     // volume beyond range
    rig.send(0x3C, 0x45, 0);    // no status byte at all
    EXPECT_LT(peak(rig.render(300)), kSilentPeak) << "a malformed note must not sound";

    rig.send(0x90, 60, 100);
    const std::vector<float> out = rig.render(600);
    EXPECT_GT(rms(out), 0.01);
    EXPECT_NEAR(pitchOf(out), 261.63, 2.6) << "the bad bend must not have been applied";
}

TEST(BuiltInSynth, ControllersAndPitchBendChangeTheSound) {
    SynthRig plain, bent, panned;
    bent.send(0xE0, 0, 96);                 // +1 semitone of the default 2-semitone range
    panned.send(0xB0, 10, 0);               // hard left
    for (SynthRig* rig : {&plain, &bent, &panned}) rig->send(0x90, 60, 100);
    const std::vector<float> p = plain.render(600), b = bent.render(600), l = panned.render(600);
    EXPECT_NEAR(pitchOf(b), 277.18, 2.8);
    EXPECT_LT(rms(channelOf(l, 1)), 0.35 * rms(channelOf(l, 0)));
    EXPECT_NEAR(rms(channelOf(p, 1)), rms(channelOf(p, 0)), 0.35 * rms(channelOf(p, 0)));
}

TEST(BuiltInSynth, VolumeWordScalesEachSide) {
    SynthRig full, rightHalf, rightOff;
    rightHalf.engine.mixer().setVolumeWord(0x7FFFFFFF);
    rightOff.engine.mixer().setVolumeWord(0x0000FFFF);
    for (SynthRig* rig : {&full, &rightHalf, &rightOff}) rig->send(0x90, 60, 100);
    const std::vector<float> f = full.render(300), h = rightHalf.render(300), o = rightOff.render(300);

    EXPECT_DOUBLE_EQ(rms(channelOf(h, 0)), rms(channelOf(f, 0)));
    EXPECT_NEAR(rms(channelOf(h, 1)) / rms(channelOf(f, 1)), 0.5, 0.001);
    EXPECT_DOUBLE_EQ(rms(channelOf(o, 0)), rms(channelOf(f, 0)));
    EXPECT_EQ(rms(channelOf(o, 1)), 0.0);
}

TEST(BuiltInSynth, MissingOrBrokenSoundFontFailsToOpen) {
    TempFolder folder;
    const std::string notASoundFont = folder.file("broken.sf2");
    std::ofstream(notASoundFont) << "not a SoundFont";
    for (const std::string& path : {folder.file("missing.sf2"), notASoundFont}) {
        AudioEngine engine{{AudioOutput::Offline}};
        SystemMidiPort port(engine, {"", path});
        uint32_t handle = 0;
        EXPECT_EQ(port.open(SystemMidiPort::kSynthId, handle), kMidiSoundFontMissing) << path;
        EXPECT_EQ(port.shortMessage(handle, pack(0x90, 60, 100)), kMidiInvalidHandle);
        EXPECT_EQ(port.errorText(kMidiSoundFontMissing), midiErrorText(kMidiSoundFontMissing));
    }
}

TEST(SoundFontLocator, PrefersTheUsersFolderThenTheSystemsInOrder) {
    TempFolder appDir;
    const std::vector<std::string> fallbacks{appDir.file("none.sf2"), kTestSoundFont};
    EXPECT_EQ(locateSoundFont({appDir.path().string(), ""}, fallbacks), kTestSoundFont);
    EXPECT_EQ(locateSoundFont({appDir.path().string(), ""}, {appDir.file("none.sf2")}), "");

    std::filesystem::create_directories(appDir.path() / "音源");
    for (const char* name : {"b.sf2", "a.SF2", "0-readme.txt"}) std::ofstream((appDir.path() / "音源" / name).string()) << "x";
    EXPECT_EQ(locateSoundFont({appDir.path().string(), ""}, fallbacks), (appDir.path() / "音源" / "a.SF2").string());
    EXPECT_EQ(locateSoundFont({appDir.path().string(), "/chosen.sf2"}, fallbacks), "/chosen.sf2");
}
