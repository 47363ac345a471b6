#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/MciCommandParser.h"
#include "platform/MciInterpreter.h"

using namespace tessaly;

namespace {

// A backend that notes what it was asked to do.
struct NotingBackend : MciBackend {
    std::vector<std::string> calls;
    bool fileOpens = true;
    bool saveWorks = true;
    bool playing = false;

    bool openFile(const std::string& path, bool waveOnly) override {
        calls.push_back(std::string("openFile ") + path + (waveOnly ? " wave" : " any"));
        return fileOpens;
    }
    void closeFile() override { calls.push_back("closeFile"); }
    void play(std::optional<long> from) override {
        calls.push_back("play " + (from ? std::to_string(*from) : std::string("on")));
        playing = true;
    }
    void stopPlaying() override {
        calls.push_back("stopPlaying");
        playing = false;
    }
    void seek(long ms) override { calls.push_back("seek " + std::to_string(ms)); }
    bool stillPlaying() override { return playing; }
    void startRecording() override { calls.push_back("startRecording"); }
    void stopRecording() override { calls.push_back("stopRecording"); }
    bool saveTake(const std::string& path, const MciWaveFormat& f) override {
        calls.push_back("saveTake " + path + " " + std::to_string(f.bits) + " " + std::to_string(f.rate) + " " +
                        std::to_string(f.channels));
        return saveWorks;
    }
    void discardTake() override { calls.push_back("discardTake"); }

    std::vector<std::string> take() { return std::exchange(calls, {}); }
};

struct Device {
    NotingBackend backend;
    MciInterpreter mci{backend};
    int run(const std::string& command) { return mci.execute(command).error; }
    std::string mode() { return mci.execute("status NN mode").reply; }
};

using Calls = std::vector<std::string>;

}  // namespace

TEST(MciInterpreter, RecordingStringsInTheRecordersOrder) {
    Device d;
    EXPECT_EQ(d.run("CLOSE NN"), kMciNotOpen) << "closing a device that is not open fails quietly";
    for (const char* command : {"OPEN NEW TYPE WaveAudio ALIAS NN", "Set NN assemble record off",
                                "Set NN file format tag pcm", "Set NN algorithm pcm", "Set NN bitspersample 16",
                                "Set NN samplespersec 44100", "Set NN channels 2"})
        EXPECT_EQ(d.run(command), kMciOk) << command;
    EXPECT_EQ(d.mode(), "stopped");
    EXPECT_EQ(d.run("RECORD NN"), kMciOk);
    EXPECT_EQ(d.mode(), "recording");
    // Formats are fixed while a take runs.
    EXPECT_EQ(d.run("Set NN samplespersec 8000"), kMciWrongDevice);
    EXPECT_EQ(d.run("stop NN"), kMciOk);
    EXPECT_EQ(d.mode(), "stopped");
    EXPECT_EQ(d.run("RECORD NN"), kMciOk) << "a held take goes on";
    EXPECT_EQ(d.run("save NN /home/me/演奏记录/my take.wav"), kMciOk) << "a save path may hold blanks";
    EXPECT_EQ(d.mode(), "stopped");
    EXPECT_EQ(d.run("close NN"), kMciOk);
    EXPECT_EQ(d.backend.take(), (Calls{"startRecording", "stopRecording", "startRecording", "stopRecording",
                                       "saveTake /home/me/演奏记录/my take.wav 16 44100 2", "discardTake"}));
    EXPECT_EQ(d.mci.execute("status NN mode").reply, "") << "a closed alias answers nothing";
    EXPECT_EQ(d.mci.execute("status NN mode").error, kMciNotOpen);
}

TEST(MciInterpreter, PlayingStringsAndTheEndOfTheFile) {
    Device d;
    EXPECT_EQ(d.run("OPEN /music/song.mp3 TYPE MPEGVideo ALIAS NN"), kMciOk);
    EXPECT_EQ(d.run("seek NN to start"), kMciOk);
    EXPECT_EQ(d.run("PLAY NN FROM 0"), kMciOk);
    EXPECT_EQ(d.run("CLOSE ANIMATION"), kMciOk) << "accepted and ignored";
    EXPECT_EQ(d.mode(), "playing");
    d.backend.playing = false;  // the file has been heard to its end
    EXPECT_EQ(d.mode(), "stopped");
    EXPECT_EQ(d.run("STOP NN"), kMciOk);
    EXPECT_EQ(d.run("Close NN"), kMciOk);
    EXPECT_EQ(d.backend.take(), (Calls{"openFile /music/song.mp3 any", "seek 0", "play 0", "stopPlaying",
                                       "closeFile"}));
    // A WAV opens as waveaudio: only a WAV file will do.
    EXPECT_EQ(d.run("OPEN /music/take.wav TYPE WaveAudio ALIAS NN"), kMciOk);
    EXPECT_EQ(d.backend.take(), Calls{"openFile /music/take.wav wave"});
    EXPECT_EQ(d.run("OPEN /music/other.wav TYPE WaveAudio ALIAS NN"), kMciAliasInUse);
    EXPECT_EQ(d.run("record NN"), kMciWrongDevice) << "a file device does not record";
    EXPECT_EQ(d.run("save NN /x.wav"), kMciWrongDevice);
}

TEST(MciInterpreter, KeywordsAndTheAliasInAnyCase) {
    Device d;
    EXPECT_EQ(d.run("open new type waveaudio alias nn"), kMciOk);
    EXPECT_EQ(d.run("SET nN BITSPERSAMPLE 8"), kMciOk);
    EXPECT_EQ(d.run("Record Nn"), kMciOk);
    EXPECT_EQ(d.mci.execute("STATUS NN MODE").reply, "recording");
    EXPECT_EQ(d.run("close nn"), kMciOk);
    EXPECT_EQ(d.mci.device(), MciInterpreter::Device::None);
    // Names keep their case: they are handed on as written.
    EXPECT_EQ(d.run("open /Music/A.MP3 type MpegVideo alias NN"), kMciOk);
    EXPECT_EQ(d.backend.take().back(), "openFile /Music/A.MP3 any");
}

TEST(MciInterpreter, OpensThatFail) {
    Device d;
    // A name with a blank, an empty type, an unknown type, another alias.
    for (const char* command : {"OPEN /my music/a.wav TYPE WaveAudio ALIAS NN", "OPEN /music/a.ogg TYPE  ALIAS NN",
                                "OPEN /music/a.ogg TYPE Sequencer ALIAS NN", "OPEN /music/a.wav TYPE WaveAudio ALIAS XY",
                                "OPEN /music/a.wav TYPE WaveAudio", "OPEN NEW TYPE MPEGVideo ALIAS NN"}) {
        EXPECT_NE(d.run(command), kMciOk) << command;
        EXPECT_EQ(d.mci.device(), MciInterpreter::Device::None) << command;
    }
    EXPECT_TRUE(d.backend.take().empty()) << "none of them reached a file";
    d.backend.fileOpens = false;
    EXPECT_EQ(d.run("OPEN /music/missing.wav TYPE WaveAudio ALIAS NN"), kMciCannotOpenFile);
    // Everything after a failed open fails, and the status is empty.
    EXPECT_EQ(d.run("seek NN to start"), kMciNotOpen);
    EXPECT_EQ(d.run("PLAY NN FROM 0"), kMciNotOpen);
    EXPECT_EQ(d.mode(), "");
}

TEST(MciInterpreter, SettingsOutOfRangeAndUnknownWordsAreRefused) {
    Device d;
    d.run("OPEN NEW TYPE WaveAudio ALIAS NN");
    for (const char* command : {"Set NN bitspersample 24", "Set NN bitspersample x", "Set NN samplespersec 999",
                                "Set NN samplespersec 192001", "Set NN channels 3", "Set NN loudness 3",
                                "Set NN algorithm adpcm", "Set NN channels", "RECORD NN NOW", "rewind NN", ""})
        EXPECT_NE(d.run(command), kMciOk) << command;
    EXPECT_EQ(d.mci.format().bits, 8) << "refused settings leave the default";
    EXPECT_EQ(d.mci.format().rate, 11025);
    EXPECT_EQ(d.mci.format().channels, 1);
}

TEST(MciInterpreter, ASaveThatFailsKeepsTheTakeOpen) {
    Device d;
    d.run("OPEN NEW TYPE WaveAudio ALIAS NN");
    d.run("RECORD NN");
    d.backend.saveWorks = false;
    EXPECT_EQ(d.run("save NN /no/such/folder/a.wav"), kMciCannotSave);
    EXPECT_EQ(d.mci.device(), MciInterpreter::Device::Recording);
    d.backend.saveWorks = true;
    EXPECT_EQ(d.run("save NN /tmp/a.wav"), kMciOk);
    EXPECT_EQ(d.backend.take(), (Calls{"startRecording", "stopRecording", "saveTake /no/such/folder/a.wav 8 11025 1",
                                       "saveTake /tmp/a.wav 8 11025 1"}));
}

TEST(MciCommandParser, SavePathIsTheRestOfTheLine) {
    EXPECT_EQ(parseMciCommand("save NN   C:/a b/c.wav  ").command.path, "C:/a b/c.wav");
    EXPECT_EQ(parseMciCommand("save NN \"/a b.wav\"").command.path, "/a b.wav");
    EXPECT_EQ(parseMciCommand("save NN").error, kMciBadParameter);
    // A quoted name may hold a blank; the recorder never quotes.
    ParsedMci quoted = parseMciCommand("open \"/my music/a.wav\" type waveaudio alias NN");
    EXPECT_EQ(quoted.error, kMciOk);
    EXPECT_EQ(quoted.command.element, "/my music/a.wav");
}
