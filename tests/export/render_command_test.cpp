// tessaly-render as a user runs it.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ExportTestSupport.h"
#include "MidiFileReading.h"
#include "SignalAnalysis.h"

using namespace tessaly::testing;
using tessaly::audio::testing::channelOf;
using tessaly::audio::testing::estimatePitchHz;
using tessaly::audio::testing::onsetsMs;

namespace {

struct CommandRun {
    int status = -1;
    std::string out, err;
};

std::string slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

CommandRun render(const ExportFolder& folder, const std::string& arguments) {
    const std::string command = std::string("'") + TESSALY_RENDER_PATH + "' " + arguments + " > '" +
                                folder.file("out.txt") + "' 2> '" + folder.file("err.txt") + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, slurp(folder.file("out.txt")), slurp(folder.file("err.txt"))};
}

std::string quoted(const std::string& path) { return "'" + path + "'"; }

struct Sound {
    SF_INFO info{};
    std::vector<float> samples;
};

Sound readSound(const std::string& path) {
    Sound sound;
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &sound.info);
    if (!file) return sound;
    sound.samples.resize(static_cast<std::size_t>(sound.info.frames * sound.info.channels));
    sound.samples.resize(static_cast<std::size_t>(sf_readf_float(file, sound.samples.data(), sound.info.frames) *
                                                  sound.info.channels));
    sf_close(file);
    return sound;
}

bool leftoversIn(const std::filesystem::path& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".part") return true;
    return false;
}

}  // namespace

// The piano alone (the settings' F1 set, called by YQ1) plays the score at
// tempo 70, a tick of 107 ms: the first note sounds on the first tick, and
// each further one as many ticks later as the note before it lasts.
TEST(RenderCommand, AScoreRenderedToWavHasItsNoteOnsetsWhereTheScorePutsThem) {
    ExportFolder folder;
    folder.write(folder.appDir() + "/tessaly.ini", pianoOnF1Settings());
    folder.write(folder.file("曲.txt"), "YQ1KC8KD8KE16KC8KG4KG4KE16TZ");
    CommandRun run = render(folder, quoted(folder.file("曲.txt")) + " -o " + quoted(folder.file("曲.wav")) +
                                 " --soundfont " + kTestSoundFont + " --appdir " + quoted(folder.appDir()));
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("已导出"), std::string::npos) << run.out;

    Sound sound = readSound(folder.file("曲.wav"));
    ASSERT_EQ(sound.info.samplerate, 48000);
    ASSERT_EQ(sound.info.channels, 2);
    EXPECT_EQ(sound.info.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    const std::vector<float> left = channelOf(sound.samples, 0);
    const std::vector<int> ticks{0, 8, 16, 32, 40, 44, 48};
    std::vector<int> onsets = onsetsMs(left, 48000);
    ASSERT_EQ(onsets.size(), ticks.size());
    for (std::size_t i = 0; i < ticks.size(); ++i) EXPECT_NEAR(onsets[i], 107 + ticks[i] * 107, 12) << "note " << i;
    // KC at key C is middle C.
    const auto frame = [](int ms) { return static_cast<std::size_t>(ms) * 48; };
    EXPECT_NEAR(estimatePitchHz(channelOf(sound.samples, 0, frame(150), frame(900)), 48000), 261.63, 2.6);
    // The last note (16 ticks) ends the play, and its sound dies away after it.
    const double seconds = static_cast<double>(sound.info.frames) / 48000;
    EXPECT_GT(seconds, (107 + 64 * 107) / 1000.0);
    EXPECT_LT(seconds, (107 + 64 * 107) / 1000.0 + 5.1);
}

// An edit file to MP3 and FLAC, and with no output named, to a MIDI file beside it.
TEST(RenderCommand, AnEditFileRendersToMp3FlacAndMidi) {
    ExportFolder folder;
    std::string song = "0000\r\nKCKDKEKFKGKAKBHC\r\n";
    for (int t = 1; t < 7; ++t) song += std::string(16, '-') + "\r\n";
    song += "O---O---\r\n";
    for (int t = 8; t < 12; ++t) song += std::string(8, '-') + "\r\n";
    folder.write(folder.file("歌.lnk"), song);
    for (const char* name : {"歌.mp3", "歌.flac"}) {
        CommandRun run = render(folder, quoted(folder.file("歌.lnk")) + " -o " + quoted(folder.file(name)) + " --soundfont " +
                                     kTestSoundFont + " --appdir " + quoted(folder.appDir()));
        ASSERT_EQ(run.status, 0) << run.err;
        Sound sound = readSound(folder.file(name));
        EXPECT_EQ(sound.info.samplerate, 48000) << name;
        // Eight slots at the new song's 188 ms, then the release.
        EXPECT_GT(sound.info.frames, 8 * 188 * 48) << name;
        EXPECT_LT(sound.info.frames, (8 * 188 + 5100) * 48) << name;
        EXPECT_GT(*std::max_element(sound.samples.begin(), sound.samples.end()), 0.01f) << name;
    }
    CommandRun run = render(folder, quoted(folder.file("歌.lnk")) + " --appdir " + quoted(folder.appDir()));
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(readMidiFile(folder.file("歌.mid")).format, 1);
}

// Every failure says why, ends with a status that is not 0, and leaves
// whatever was at the output's place as it was.
TEST(RenderCommand, TellsWhatIsWrongAndLeavesTheOutputAsItWas) {
    ExportFolder folder;
    folder.write(folder.file("old.mid"), "what was there");
    folder.write(folder.file("bad.txt"), "KC8KDXX8TZ");
    folder.write(folder.file("empty.txt"), "TZ");
    const std::string to = " -o " + quoted(folder.file("old.mid")) + " --appdir " + quoted(folder.appDir());

    CommandRun missing = render(folder, quoted(folder.file("none.txt")) + to);
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find("找不到文件"), std::string::npos) << missing.err;

    CommandRun bad = render(folder, quoted(folder.file("bad.txt")) + to);
    EXPECT_EQ(bad.status, 1);
    EXPECT_NE(bad.err.find("乐谱中出现错误，请修改！"), std::string::npos) << bad.err;

    CommandRun silent = render(folder, quoted(folder.file("empty.txt")) + to);
    EXPECT_EQ(silent.status, 1);
    EXPECT_NE(silent.err.find("没有演奏出任何音符"), std::string::npos) << silent.err;

    CommandRun format = render(folder, quoted(folder.file("bad.txt")) + " -o " + quoted(folder.file("x.ogg")));
    EXPECT_EQ(format.status, 1);
    EXPECT_NE(format.err.find("无法识别的输出格式"), std::string::npos) << format.err;

    EXPECT_EQ(slurp(folder.file("old.mid")), "what was there");
    EXPECT_FALSE(leftoversIn(folder.file("")));

    CommandRun usage = render(folder, "");
    EXPECT_EQ(usage.status, 2);
    EXPECT_NE(usage.err.find("缺少输入文件"), std::string::npos) << usage.err;
    CommandRun help = render(folder, "--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Usage: tessaly-render INPUT [-o OUTPUT] [--soundfont SF2]"), std::string::npos);
}

// The dark pixels of a binary PPM (P6), as pdftoppm writes a page.
long darkPixels(const std::string& ppm, int& width, int& height) {
    std::istringstream in(ppm);
    std::string magic;
    int depth = 0;
    in >> magic >> width >> height >> depth;
    in.get();
    long dark = 0;
    for (long i = 0; i < static_cast<long>(width) * height; ++i) {
        unsigned char rgb[3];
        if (!in.read(reinterpret_cast<char*>(rgb), 3)) break;
        dark += rgb[0] + rgb[1] + rgb[2] < 3 * 100;
    }
    return magic == "P6" ? dark : -1;
}

TEST(RenderCommand, AScoreAsNumberedNotationInPdfPngAndSvg) {
    ExportFolder folder;
    const std::string score = std::string(TESSALY_BUILD_DATA_DIR) + "/演奏记录/茉莉花.txt";
    for (const char* name : {"茉莉花.pdf", "茉莉花.png", "茉莉花.svg"}) {
        const CommandRun run = render(folder, quoted(score) + " -o " + quoted(folder.file(name)));
        EXPECT_EQ(run.status, 0) << name << run.err;
        EXPECT_FALSE(std::filesystem::exists(folder.file(std::string(name) + ".part")));
    }
    EXPECT_EQ(slurp(folder.file("茉莉花.pdf")).substr(0, 5), "%PDF-");
    const std::string png = slurp(folder.file("茉莉花.png"));
    ASSERT_GT(png.size(), 24u);
    EXPECT_EQ(png.substr(1, 3), "PNG");
    // 36 digit heights across at 60 pixels each.
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(png[i]); };
    EXPECT_EQ((byte(16) << 24) | (byte(17) << 16) | (byte(18) << 8) | byte(19), 2160);
    const std::string svg = slurp(folder.file("茉莉花.svg"));
    EXPECT_NE(svg.find("<svg"), std::string::npos);
    EXPECT_NE(svg.find("<title>茉莉花</title>"), std::string::npos);

    // The PDF is one A4 page with the notation on it.
    const std::string page = folder.file("page");
    ASSERT_EQ(std::system(("pdftoppm -r 30 " + quoted(folder.file("茉莉花.pdf")) + " " + quoted(page)).c_str()), 0);
    int width = 0, height = 0;
    const long dark = darkPixels(slurp(page + "-1.ppm"), width, height);
    EXPECT_NEAR(static_cast<double>(height) / width, 297.0 / 210.0, 0.01);
    EXPECT_GT(dark, 250);  // a score of only TZ makes 17: its title and heading
    EXPECT_FALSE(std::filesystem::exists(page + "-2.ppm"));

    // A score the player stops on is drawn up to there, and the place is told.
    folder.write(folder.file("bad.txt"), "KC8KD8QQ8TZ");
    const CommandRun bad = render(folder, quoted(folder.file("bad.txt")) + " -o " + quoted(folder.file("bad.png")));
    EXPECT_EQ(bad.status, 0);
    EXPECT_NE(bad.err.find("第 7 个字符"), std::string::npos) << bad.err;
}
