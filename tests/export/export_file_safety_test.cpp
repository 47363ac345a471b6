// An export that cannot be written completely leaves the user's old file as
// it was, says why naming that file, and leaves nothing of its own behind;
// its temporary file cannot be reached through a name planted beforehand.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "ExportTestSupport.h"
#include "export/Exporter.h"
#include "platform/audio/SoundFileWriter.h"
#include "support/SmallDisk.h"

using namespace tessaly;
using namespace tessaly::testing;
namespace fs = std::filesystem;

namespace {

const std::string kOld = "the user's old file, which must survive";


ExportResult exportTo(const ExportFolder& folder, const std::string& output) {
    const std::string score = folder.score("短曲.txt");
    folder.write(score, "VS9KC8KDKEKFKGKAKBHC16TZ\r\n");
    ExportRequest request;
    request.input = score;
    request.output = output;
    request.dataFolder = folder.appDir();
    request.shippedData = TESSALY_BUILD_DATA_DIR;
    request.soundFont = kTestSoundFont;
    return runExport(request);
}

}  // namespace

TEST(ExportFileSafety, AFullDiskFailsEveryFormatAndKeepsTheOldFile) {
    SmallDisk disk;
    TESSALY_NEEDS_SMALL_DISK(disk);
    ExportFolder folder;
    for (const std::string name : {"旧.mp3", "旧.wav", "旧.flac", "旧.mid"}) {
        SCOPED_TRACE(name);
        const std::string output = disk.file(name);
        folder.write(output, kOld);
        disk.fill();
        const ExportResult result = exportTo(folder, output);
        EXPECT_FALSE(result.ok);
        EXPECT_NE(result.message.find(output), std::string::npos) << result.message;
        EXPECT_NE(result.message.find("磁盘已满"), std::string::npos) << result.message;
        EXPECT_EQ(contentOf(output), kOld);
        disk.unfill();
    }
    EXPECT_EQ(disk.entries(), 4u) << "a temporary file was left behind";
}

TEST(ExportFileSafety, AReadOnlyDiskFailsSayingSo) {
    SmallDisk disk;
    TESSALY_NEEDS_SMALL_DISK(disk);
    ExportFolder folder;
    const std::string output = disk.file("旧.mid");
    folder.write(output, kOld);
    ASSERT_TRUE(disk.makeReadOnly());
    const ExportResult result = exportTo(folder, output);
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.message.find("磁盘只读"), std::string::npos) << result.message;
    EXPECT_EQ(contentOf(output), kOld);
}

// The encoder of MP3 does not report a short write: the writer must see it.
TEST(ExportFileSafety, AnEncoderWriteThatFallsShortFailsTheExport) {
    ExportFolder folder;
    const std::string output = folder.file("旧.mp3");
    folder.write(output, kOld);
    audio::limitSoundFileBytesForTesting(3000);
    const ExportResult result = exportTo(folder, output);
    audio::limitSoundFileBytesForTesting(-1);
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.message.find("磁盘已满"), std::string::npos) << result.message;
    EXPECT_EQ(contentOf(output), kOld);
    const ExportResult again = exportTo(folder, output);
    EXPECT_TRUE(again.ok) << again.message;
    EXPECT_NE(contentOf(output), kOld);
}

// Names another user could have planted beside the output, as links to a
// file of ours, are never written through.
TEST(ExportFileSafety, NoPlantedLinkBesideTheOutputIsWrittenThrough) {
    ExportFolder folder;
    const std::string victim = folder.file("victim");
    folder.write(victim, kOld);
    const fs::path output = folder.file("歌.mid");
    for (int n = 0; n < 64; ++n) {
        const std::string planted = "." + output.filename().string() + "." + std::to_string(::getpid()) + "-" +
                                    std::to_string(n) + ".part";
        fs::create_symlink(victim, output.parent_path() / planted);
    }
    const ExportResult result = exportTo(folder, output.string());
    EXPECT_TRUE(result.ok) << result.message;
    EXPECT_EQ(contentOf(victim), kOld);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(output)));
}
