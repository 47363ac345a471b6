#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "Harness.h"
#include "runtime/FatalFailure.h"
#include "runtime/TextFiles.h"
#include "shell/SettingsFile.h"

namespace tessaly {
namespace {

std::string readBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

TEST(SettingsFile, NumbersIgnoreTheirBlanksButNothingElse) {
    EXPECT_EQ(settingsNumber(" 89 "), 89);
    EXPECT_EQ(settingsNumber("3"), 3);
    EXPECT_EQ(settingsNumber("-1 "), -1);
    EXPECT_EQ(settingsNumber(" 2.5 "), 2);  // halves to even
    for (const char* bad : {"", "   ", "abc", "12x", "1 2", "99999"})
        EXPECT_THROW(settingsNumber(bad), FatalFailure) << "[" << bad << "]";
}

TEST(SettingsFile, DefaultTextIsTheSavedFormWithoutTheFirstBlankAndReadsBack) {
    std::string text = defaultSettingsText();
    std::vector<std::string> lines = splitLines(text);
    ASSERT_EQ(lines.size(), 53u);
    EXPECT_EQ(text.substr(0, 10), "3 \r\n 89 \r\n");
    EXPECT_EQ(lines[51], "钟声.wav ");
    EXPECT_EQ(lines[52], " 0 ");
    Settings read = parseSettings(lines);
    Settings defaults = defaultSettings();
    EXPECT_EQ(read.instrumentSets, defaults.instrumentSets);
    EXPECT_EQ(read.keypad, defaults.keypad);
    EXPECT_EQ(read.effects, defaults.effects);

    lines.pop_back();
    EXPECT_THROW(parseSettings(lines), FatalFailure);
}

TEST(TextFiles, Gb18030IsReadWhenTheBytesAreNotUtf8) {
    EXPECT_EQ(decodeText("\xD6\xD3\xC9\xF9.wav"), "钟声.wav");
    EXPECT_EQ(decodeText("钟声.wav"), "钟声.wav");
    EXPECT_FALSE(isValidUtf8("\xC0\x80"));  // overlong
    EXPECT_FALSE(isValidUtf8("\xE9\x92"));  // cut short
}

TEST(TextFiles, AFailedReplaceLeavesNothingBehind) {
    auto dir = std::filesystem::temp_directory_path() / "tessaly-replace-test";
    std::filesystem::remove_all(dir);
    EXPECT_FALSE(replaceFile((dir / "x.txt").string(), "a"));
    std::filesystem::create_directories(dir);
    ASSERT_TRUE(replaceFile((dir / "x.txt").string(), "old"));
    ASSERT_TRUE(replaceFile((dir / "x.txt").string(), "new"));
    EXPECT_EQ(readBytes(dir / "x.txt"), "new");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), std::filesystem::directory_iterator()), 1);
    std::filesystem::remove_all(dir);
}

TEST(SettingsFile, EveryActivationRereadsTheFileButInitialisesOnce) {
    testing::Harness h;
    Settings s = defaultSettings();
    s.instrumentSets[4][2] = 77;
    s.keypad[2] = 10;
    writeBytes(h.appDir / kSettingsFileName, joinLines(settingsLines(s)));
    h.app->form1.ComSounds[0].setListIndex(5);
    h.app->midi.StepTable[2][5].ShortMsg = 0;

    h.app->form1.activate();
    EXPECT_EQ(h.app->state.InstrumentSet(4, 2), 77);
    EXPECT_EQ(h.app->midi.StepTable[2][5].ShortMsg, 100 * 65536 + 45 * 256 + 153);
    EXPECT_EQ(h.app->form1.ComSounds[0].listIndex(), 5) << "the defaults of the first activation came back";
    EXPECT_FALSE(h.app->ended());
}

TEST(SettingsFile, AValueTheCheckBoxRefusesTakesTheErrorPath) {
    testing::Harness h;
    Settings s = defaultSettings();
    s.check1 = 7;
    std::string broken = joinLines(settingsLines(s));
    writeBytes(h.appDir / kSettingsFileName, broken);
    h.log.take();

    h.app->form1.activate();
    EXPECT_TRUE(h.app->ended());
    EXPECT_EQ(h.log.take(), std::vector<std::string>{"box 提示|读取设置文件出错，软件需重新启动!"});
    EXPECT_EQ(readBytes(h.appDir / kBrokenSettingsFileName), broken);
    EXPECT_EQ(readBytes(h.appDir / kSettingsFileName), defaultSettingsText());
}

}  // namespace
}  // namespace tessaly
