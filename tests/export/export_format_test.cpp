// The names an export reads and writes: the format by the extension, and the
// extension a name from the save dialog gets from the type chosen there.
#include "export/ExportFormat.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

using namespace tessaly;

TEST(ExportFormat, TheExtensionPicksTheFormatInAnyCase) {
    EXPECT_EQ(exportFormatOf("a/歌.MID"), ExportFormat::Midi);
    EXPECT_EQ(exportFormatOf("歌.midi"), ExportFormat::Midi);
    EXPECT_EQ(exportFormatOf("歌.Wav"), ExportFormat::Wav);
    EXPECT_EQ(exportFormatOf("歌.flac"), ExportFormat::Flac);
    EXPECT_EQ(exportFormatOf("歌.mp3"), ExportFormat::Mp3);
    EXPECT_FALSE(exportFormatOf("歌.ogg"));
    EXPECT_FALSE(exportFormatOf("mp3"));
    EXPECT_EQ(exportInputOf("乐谱.TXT"), ExportInput::Score);
    EXPECT_EQ(exportInputOf("歌.lnk"), ExportInput::EditFile);
    EXPECT_FALSE(exportInputOf("歌.mid"));
    EXPECT_EQ(defaultExportPath("演奏记录/小星星.txt"), "演奏记录/小星星.mid");
}

// Each type of the dialog's filter gives a bare name the extension of its
// own pattern; a name that already has one we write keeps it.
TEST(ExportFormat, ANameWithoutAnExtensionGetsTheOneOfTheTypeChosen) {
    std::vector<std::string> patterns;
    std::istringstream filter(kExportFilter);
    for (std::string description, pattern; std::getline(filter, description, '|') && std::getline(filter, pattern, '|');)
        patterns.push_back(pattern);
    ASSERT_EQ(patterns.size(), 3u);
    for (int type = 0; type < 3; ++type)
        EXPECT_EQ("*" + withExportExtension("曲", type).substr(3), patterns[static_cast<std::size_t>(type)]);
    EXPECT_EQ(withExportExtension("曲", -1), "曲.mid");
    EXPECT_EQ(withExportExtension("曲.FLAC", 0), "曲.FLAC");
    EXPECT_EQ(withExportExtension("曲.wav", 2), "曲.wav");
    EXPECT_EQ(withExportExtension("曲.txt", 1), "曲.txt.wav");
}

TEST(ExportFormat, TheOfferedNameIsThatOfTheWorksFile) {
    EXPECT_EQ(suggestedExportName("/home/u/演奏记录/茉莉花.txt", "乐谱"), "茉莉花");
    EXPECT_EQ(suggestedExportName("/home/u/演奏记录/我的歌.lnk", "乐曲"), "我的歌");
    EXPECT_EQ(suggestedExportName("", "乐谱"), "乐谱");
    EXPECT_EQ(suggestedExportName("/home/u/演奏记录/", "乐曲"), "乐曲");
}
