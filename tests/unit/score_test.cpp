#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "Harness.h"
#include "runtime/FatalFailure.h"
#include "runtime/TextFiles.h"
#include "score/ScoreFiles.h"
#include "score/ScoreReader.h"

namespace tessaly {
namespace {

// Reads a score from the start as the player does, one item after another,
// up to a stop or an unknown token: "TOKEN:number:kept duration" per item.
std::vector<std::string> readAll(const std::string& score) {
    std::vector<std::string> out;
    int32_t pos = 1;
    int16_t duration = 0, length = 0;
    for (int guard = 0; guard < 100; ++guard) {
        ScoreItem item = readScoreItem(score, pos, duration, length);
        out.push_back(item.token + ":" + std::to_string(item.number) + ":" + std::to_string(duration));
        if (item.kind == ScoreTokenKind::Stop || item.kind == ScoreTokenKind::Unknown) break;
        ++pos;
    }
    return out;
}

using Items = std::vector<std::string>;

TEST(ScoreReader, DurationsAreKeptFromItemToItem) {
    EXPECT_EQ(readAll("KC8KDKE4TZ"), (Items{"KC:8:8", "KD:0:8", "KE:4:4", "TZ:0:4"}));
    EXPECT_EQ(readAll("KC16XZKD2XZ80TZ55"), (Items{"KC:16:16", "XZ:0:16", "KD:2:2", "XZ:80:80", "TZ:55:55"}));
    // Commands read their number like a duration; the player clears it.
    EXPECT_EQ(readAll("VS25KCTZ"), (Items{"VS:25:25", "KC:0:25", "TZ:0:25"}));
}

TEST(ScoreReader, ThirdDigitAndStrayCharactersBecomeBadTokens) {
    EXPECT_EQ(readAll("KC100TZ"), (Items{"KC:10:10", "0T:0:10"}));
    EXPECT_EQ(readAll("KC8kd"), (Items{"KC:8:8", "kd:0:8"}));
    EXPECT_EQ(readAll("KC8 KD"), (Items{"KC:8:8", " K:0:8"}));
    EXPECT_EQ(readAll("MA4TZ"), (Items{"MA:4:4"}));
    // A lone character at the end, then the empty token past it.
    EXPECT_EQ(readAll("KCKDK"), (Items{"KC:0:0", "KD:0:0", "K:0:0"}));
    EXPECT_EQ(readAll("KC8KD"), (Items{"KC:8:8", "KD:0:8", "D:0:8"}));
    // Two digits at the very end can be read; characters count, not bytes.
    EXPECT_EQ(readAll("KC12"), (Items{"KC:12:12", ":0:12"}));
    EXPECT_EQ(readAll("KC8乐谱TZ"), (Items{"KC:8:8", "乐谱:0:8", }));
}

TEST(ScoreReader, OneDigitAtTheVeryEndIsFatal) {
    EXPECT_THROW(readAll("KC8"), FatalFailure);
    EXPECT_THROW(readAll("KC4KD8"), FatalFailure);
    EXPECT_NO_THROW(readAll("KC4KD8TZ"));
}

TEST(ScoreFiles, SaveNameRule) {
    EXPECT_EQ(scoreSaveName("/a/歌.txt"), "/a/歌(乐谱).txt");
    EXPECT_EQ(scoreSaveName("/a/歌"), "/a/歌(乐谱).txt");
    EXPECT_EQ(scoreSaveName("/a/歌(乐谱).txt"), "/a/歌(乐谱)(乐谱).txt");
    // Any four-character ending with a dot counts as the extension.
    EXPECT_EQ(scoreSaveName("/a/歌.mid"), "/a/歌(乐谱).txt");
    EXPECT_EQ(scoreSaveName("/a/歌.md"), "/a/歌.md(乐谱).txt");
}

TEST(ScoreFiles, ReadingJoinsLinesAndFallsBackToGb18030) {
    auto dir = std::filesystem::temp_directory_path() / ("tessaly-score-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    std::string path = (dir / "a.txt").string();

    ASSERT_TRUE(writeScoreFile(path, "KC8KD\r\nTZ"));
    std::ifstream in(path, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(bytes, "KC8KD\r\nTZ\r\n");
    EXPECT_EQ(readScoreFile(path), "KC8KDTZ");

    // "乐谱" in GB18030 is not valid UTF-8.
    std::ofstream(path, std::ios::binary) << "KC8\xC0\xD6\xC6\xD7\nTZ";
    EXPECT_EQ(readScoreFile(path), "KC8乐谱TZ");
    EXPECT_EQ(decodeText("\xEF\xBB\xBFKC"), "KC");

    EXPECT_FALSE(readScoreFile((dir / "missing.txt").string()));
    // A save that cannot be written leaves no trace.
    EXPECT_FALSE(writeScoreFile((dir / "no-such-folder" / "b.txt").string(), "KC8TZ"));
    std::filesystem::remove_all(dir);
}

struct ScorePlay : testing::Harness {
    void play(const std::string& score) {
        app->form1.Text3.setText(score);
        app->form1.Yuepu[0].userClick();
    }
    // Virtual times of the note-ons on channel 0 since the last call.
    std::vector<uint32_t> onsets() {
        std::vector<uint32_t> out;
        for (const RecordedMidi& m : midiPort.take())
            if ((m.message & 0xFF) == 0x90) out.push_back(m.timeMs);
        return out;
    }
};

TEST(ScorePlayer, InstrumentSetBeyondThirteenIsFatal) {
    ScorePlay h;
    EXPECT_NO_THROW(h.play("YQ13KC8TZ"));
    EXPECT_EQ(h.app->form1.ComSounds[0].listIndex(), 0);
    h.app->form1.Yuepu[0].userClick();
    EXPECT_THROW(h.play("YQ14KC8TZ"), FatalFailure);
    ScorePlay fresh;
    EXPECT_THROW(fresh.play("YQKC8TZ"), FatalFailure);
}

TEST(ScorePlayer, LongRunOfCommandsIsReadInOneCall) {
    ScorePlay h;
    std::string score;
    for (int i = 0; i < 8000; ++i) score += "VS5";
    h.play(score + "KC8TZ");
    EXPECT_EQ(h.app->state.PendingNote, 24);
    EXPECT_EQ(h.app->state.TickMs, 125);
}

TEST(ScorePlayer, TakeFromTheKeyboardPlaysBackWithItsOnsets) {
    ScorePlay h;
    h.midiPort.take();
    // Keys G (KC), H (KD), J (KE), K (KF), then Space, each some way between
    // two ticks of Timer1 (107 ms at tempo 70, counted from the key before).
    // The first key counts its own tick, so it is held just under 8 ticks.
    const std::vector<std::pair<int, uint32_t>> keys = {
        {71, 0}, {72, 855}, {74, 855 + 4 * 107 + 50}, {75, 855 + 12 * 107 + 90}, {32, 855 + 18 * 107 + 90}};
    uint32_t now = 0;
    for (auto [key, at] : keys) {
        h.loop.advance(at - now);
        now = at;
        h.press(key);
    }
    EXPECT_EQ(h.app->form1.Text3.text(), "KC8KD4KE8KF6TZ");
    std::vector<uint32_t> played = h.onsets();

    h.app->form1.Yuepu[0].userClick();
    h.loop.advance(4000);
    EXPECT_EQ(h.app->state.PendingNote, 255);
    std::vector<uint32_t> replayed = h.onsets();

    // One time per note: the note-ons of one key share their time.
    auto firstOfEach = [](const std::vector<uint32_t>& times) {
        std::vector<uint32_t> out;
        for (uint32_t t : times)
            if (out.empty() || out.back() != t) out.push_back(t);
        return out;
    };
    played = firstOfEach(played);
    replayed = firstOfEach(replayed);
    ASSERT_EQ(played.size(), 4u);
    ASSERT_EQ(replayed.size(), 4u);
    // Each note's length, from its onset to the next, to the nearest tick.
    for (std::size_t i = 1; i < played.size(); ++i) {
        uint32_t playedTicks = (played[i] - played[i - 1] + 53) / 107;
        EXPECT_EQ((replayed[i] - replayed[i - 1]) % 107, 0u);
        EXPECT_EQ((replayed[i] - replayed[i - 1]) / 107, playedTicks) << "note " << i;
    }
}

}  // namespace
}  // namespace tessaly
