// An export holds exactly what the live program sends: the score or the song
// is played once in the script driver, as a user would play it, and once
// exported as a MIDI file; every note-on and note-off of the driver's log
// must be in the file, on its channel, within one pulse of its time.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "ExportTestSupport.h"
#include "MidiFileReading.h"
#include "export/Exporter.h"

using namespace tessaly;
using namespace tessaly::testing;

namespace {

bool isNote(int status) { return (status & 0xF0) == 0x80 || (status & 0xF0) == 0x90; }

// A note-on of velocity 0 is a note-off wherever it stands.
int noteKind(int status, int velocity) { return (status & 0xF0) == 0x90 && velocity > 0 ? 0x90 : 0x80; }

void expectSameNotes(const std::vector<LoggedMessage>& log, const MidiFileContents& file) {
    std::map<int, std::vector<LoggedMessage>> logged;
    std::map<int, std::vector<FileEvent>> written;
    for (const LoggedMessage& m : log)
        if (isNote(m.status)) logged[m.status & 0x0F].push_back(m);
    for (const FileEvent& e : file.channelEvents)
        if (isNote(e.status)) written[e.status & 0x0F].push_back(e);
    ASSERT_FALSE(logged.empty());
    ASSERT_EQ(logged.size(), written.size());
    std::size_t notes = 0;
    for (const auto& [channel, messages] : logged) {
        const std::vector<FileEvent>& events = written[channel];
        ASSERT_EQ(messages.size(), events.size()) << "channel " << channel;
        for (std::size_t i = 0; i < messages.size(); ++i) {
            const LoggedMessage& m = messages[i];
            const FileEvent& e = events[i];
            ASSERT_EQ(noteKind(m.status, m.data2), noteKind(e.status, e.data2)) << "channel " << channel << " #" << i;
            ASSERT_EQ(m.data1, e.data1) << "channel " << channel << " #" << i;
            ASSERT_NEAR(e.ms, m.ms, e.pulseMs) << "channel " << channel << " #" << i;
            if (noteKind(m.status, m.data2) == 0x90) {
                ASSERT_EQ(m.data2, e.data2);
                ++notes;
            }
        }
    }
    EXPECT_GT(notes, 20u);
}

ExportResult exportToMidi(const ExportFolder& folder, const std::string& input, const std::string& output) {
    ExportRequest request;
    request.input = input;
    request.output = output;
    request.dataFolder = folder.appDir();
    request.shippedData = TESSALY_BUILD_DATA_DIR;
    return runExport(request);
}

}  // namespace

// A demonstration score opened with "打开", which plays it at once.
TEST(ExportFidelity, ADemonstrationScoreAsMidiHoldsEveryNoteOfThePlayAtItsTime) {
    ExportFolder folder;
    const std::vector<LoggedMessage> log =
        scriptMidiLog(folder, "start\n", "dialog 演奏记录/欢乐颂.txt\nclick Form1.Yuepu(2)\nadvance 60000\n");
    ExportResult result = exportToMidi(folder, folder.score("欢乐颂.txt"), folder.file("欢乐颂.mid"));
    ASSERT_TRUE(result.ok) << result.message;
    MidiFileContents file = readMidiFile(folder.file("欢乐颂.mid"));
    ASSERT_EQ(file.format, 1);
    // One tempo all through: a quarter is 8 ticks of 107 ms.
    ASSERT_EQ(file.tempo.size(), 1u);
    EXPECT_EQ(file.tempo[0].second, 856000);
    expectSameNotes(log, file);
}

// A tempo change in the middle of a score, and the rhythm riding on the
// score's own clock (JP), with its chord layers.
TEST(ExportFidelity, AScoreWithTempoChangesAndAccompanimentKeepsItsTimes) {
    ExportFolder folder;
    folder.write(folder.score("变速.txt"), "JP2KC8KDKEKFVS9KG8KAKBHC16VS14HC8KGKEKC16TZ");
    const std::vector<LoggedMessage> log =
        scriptMidiLog(folder, "start\n", "dialog 演奏记录/变速.txt\nclick Form1.Yuepu(2)\nadvance 30000\n");
    ExportResult result = exportToMidi(folder, folder.score("变速.txt"), folder.file("变速.mid"));
    ASSERT_TRUE(result.ok) << result.message;
    MidiFileContents file = readMidiFile(folder.file("变速.mid"));
    ASSERT_EQ(file.tempo.size(), 3u);
    EXPECT_EQ(file.tempo[1].second, 8 * 94 * 1000);  // VS9: 80 beats a minute, a tick of 94 ms
    EXPECT_EQ(file.tempo[2].second, 8 * 71 * 1000);  // VS14: 105 beats a minute
    expectSameNotes(log, file);
    // The rhythm played on channel 9.
    EXPECT_TRUE(std::any_of(file.channelEvents.begin(), file.channelEvents.end(),
                            [](const FileEvent& e) { return e.status == 0x99 && e.data2 > 0; }));
}

// A short song of the music editor, opened from its edit file and played from
// the start: notes, a strummed chord on track 1 (its notes 10 ms apart, off
// the slots) and the percussion.
TEST(ExportFidelity, ASongFromTheEditorAsMidiHoldsEveryNoteOfThePlayAtItsTime) {
    ExportFolder folder;
    const std::string empty7 = std::string(32, '-') + "\r\n", empty5 = std::string(16, '-') + "\r\n";
    std::string song = "0000005031504E505250223C183C043C0150035004502950113C20000046\r\n"
                       "KCKDKEKF--XZKGKA------HC--XZ----\r\n"
                       "CC--------------CL--------------\r\n";
    for (int t = 2; t < 7; ++t) song += empty7;
    song += "O---O---O---O---\r\n--O---O---O---O-\r\n";
    for (int t = 9; t < 12; ++t) song += empty5;
    song += "0001\r\nHCHBHAHGHFHEHDHC--XZ------------\r\nCM--------------------------TZ--\r\n";
    for (int t = 2; t < 7; ++t) song += empty7;
    song += "O-------O-------\r\n";
    for (int t = 8; t < 12; ++t) song += empty5;
    folder.write(folder.score("歌.lnk"), song);

    const std::vector<LoggedMessage> log = scriptMidiLog(
        folder, "start\nclick Form1.BJCK\ndialog 演奏记录/歌.lnk\nclick YYBJ.DkBianji\n", "click YYBJ.ST2\nadvance 20000\n");
    ExportResult result = exportToMidi(folder, folder.score("歌.lnk"), folder.file("歌.mid"));
    ASSERT_TRUE(result.ok) << result.message;
    MidiFileContents file = readMidiFile(folder.file("歌.mid"));
    ASSERT_FALSE(file.tempo.empty());
    expectSameNotes(log, file);
}
