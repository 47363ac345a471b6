// The MIDI file as a player of another program reads it: written from a
// made-up play and read back with libsmf.
#include "export/MidiFileWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "MidiFileReading.h"

using namespace tessaly;
using namespace tessaly::testing;

namespace {

constexpr uint32_t pack(int status, int data1, int data2) {
    return static_cast<uint32_t>(status) | static_cast<uint32_t>(data1) << 8 | static_cast<uint32_t>(data2) << 16;
}

struct WrittenFile {
    std::filesystem::path path = std::filesystem::temp_directory_path() /
                                 ("tessaly-midi-test-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                                  ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".mid");
    ~WrittenFile() { std::filesystem::remove(path); }
};

}  // namespace

// A note struck again at the same millisecond (its stop, then its start) must
// keep that order, or a player cuts the new note off at once; channels get
// tracks of their own in channel order, named after their instruments, and a
// message that is not MIDI (a program of -1 packs its byte as 255) is left out.
TEST(MidiFile, ChannelsGetTracksAndSimultaneousMessagesKeepTheirOrder) {
    CapturedPlay play;
    play.tempo = {{0, 856000}, {1712, 600000}};
    play.messages = {{0, pack(192 + 9, 0, 0)},   {0, pack(192, 0, 0)},     {0, pack(192 + 2, 255, 255)},
                     {0, pack(144, 60, 85)},     {856, pack(128, 60, 0)},  {856, pack(144, 60, 85)},
                     {900, pack(153, 36, 100)},  {1712, pack(128, 60, 0)}, {1712, pack(144, 62, 85)},
                     {2312, pack(176, 11, 120)}, {2912, pack(128, 62, 0)}};
    play.endMs = 2912;
    WrittenFile file;
    writeMidiFile(play, file.path.string(), "小星星");

    MidiFileContents read = readMidiFile(file.path.string());
    ASSERT_EQ(read.format, 1);
    EXPECT_EQ(read.ppqn, 960);
    ASSERT_EQ(read.tracks, 3);  // the tempo track, channel 0, channel 9
    EXPECT_EQ(read.trackNames[1], "小星星");
    EXPECT_EQ(read.trackNames[2], "1.明亮钢琴");
    EXPECT_EQ(read.trackNames[3], "打击乐");
    ASSERT_EQ(read.tempo.size(), 2u);
    EXPECT_NEAR(read.tempo[1].first, 1712, 0.5);
    EXPECT_EQ(read.tempo[1].second, 600000);

    std::vector<std::tuple<int, int, int>> onChannel0;
    for (const FileEvent& e : read.channelEvents) {
        EXPECT_NE(e.status, 192 + 2) << "the program of -1 is no MIDI";
        if ((e.status & 0x0F) == 0) onChannel0.emplace_back(static_cast<int>(std::lround(e.ms)), e.status, e.data1);
    }
    const std::vector<std::tuple<int, int, int>> expected{{0, 192, 0},     {0, 144, 60},    {856, 128, 60},
                                                          {856, 144, 60},  {1712, 128, 60}, {1712, 144, 62},
                                                          {2312, 176, 11}, {2912, 128, 62}};
    EXPECT_EQ(onChannel0, expected);
}

TEST(MidiFile, AFolderThatCannotBeWrittenIsTheExportsFailure) {
    CapturedPlay play;
    play.tempo = {{0, 500000}};
    play.messages = {{0, pack(144, 60, 85)}, {500, pack(128, 60, 0)}};
    play.endMs = 500;
    EXPECT_THROW(writeMidiFile(play, "/nonexistent-folder/song.mid", "song"), ExportFailure);
}
