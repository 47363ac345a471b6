#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "chords/ChordState.h"
#include "chords/ChordTables.h"
#include "chords/PatternFile.h"
#include "runtime/FatalFailure.h"
#include "runtime/TextFiles.h"

namespace tessaly {
namespace {

class PatternFileTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = std::filesystem::temp_directory_path() /
               ("tessaly-patterns-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)));
        std::filesystem::create_directories(dir_);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::string appDir() const { return dir_.string() + "/"; }
    void write(const std::string& bytes) const { std::ofstream(dir_ / "HxJzMx.txt", std::ios::binary) << bytes; }
    std::string bytes() const {
        std::ifstream in(dir_ / "HxJzMx.txt", std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    std::filesystem::path dir_;
    ChordState chords;
};

TEST(ChordTables, OnlyTheNineteenTokensHaveCodes) {
    EXPECT_EQ(patternTokenCode("LC"), 0);
    EXPECT_EQ(patternTokenCode("KA"), 33);
    EXPECT_EQ(patternTokenCode("HG"), 43);
    EXPECT_EQ(patternTokenCode("CL"), 65);
    EXPECT_EQ(patternTokenCode("CC"), 72);
    EXPECT_EQ(patternTokenCode("CM"), 79);
    EXPECT_EQ(patternTokenCode("XZ"), 254);
    // Holds: the score's own notes, lower case, the dash, a lone character.
    for (const char* other : {"--", "MC", "LD", "HA", "cc", "C", "", "和弦"}) EXPECT_EQ(patternTokenCode(other), 255) << other;
}

TEST_F(PatternFileTest, ANewFileHasTheFiguresThenTwoEmptyLines) {
    PatternFile file(appDir());
    EXPECT_FALSE(file.exists());
    ASSERT_TRUE(file.create());
    EXPECT_TRUE(file.exists());
    const std::string text = bytes();
    EXPECT_EQ(text.substr(0, 18), "LC------LC------\r\n");
    EXPECT_EQ(text.substr(text.size() - 22), "LGWCWEWCWGWELGWC\r\n\r\n\r\n");
    EXPECT_EQ(text.size(), 113u * 18 + 4);

    ASSERT_EQ(file.readInto(chords), 115);
    EXPECT_EQ(chords.PatternLines[9], "XZMCHGHEHGHEHCKG");
    EXPECT_EQ(chords.PatternLines[113], "LGWCWEWCWGWELGWC");
    EXPECT_EQ(chords.PatternLines[114], "");
    EXPECT_EQ(chords.PatternLines[115], "");
}

TEST_F(PatternFileTest, LinesAreTakenAsTheyStand) {
    PatternFile file(appDir());
    // lower case, an odd length, a bare LF, a blank line and no end on the last
    write("cc--cc--\r\nWCW\nX Y\r\n\r\nKC");
    ASSERT_EQ(file.readInto(chords), 5);
    EXPECT_EQ(chords.PatternLines[1], "cc--cc--");
    EXPECT_EQ(chords.PatternLines[2], "WCW");
    EXPECT_EQ(chords.PatternLines[3], "X Y");
    EXPECT_EQ(chords.PatternLines[4], "");
    EXPECT_EQ(chords.PatternLines[5], "KC");

    // GB18030 from the older code page: "和弦" then a figure.
    write("\xBA\xCD\xCF\xD2\r\nCC------CC------\r\n");
    ASSERT_EQ(file.readInto(chords), 2);
    EXPECT_EQ(chords.PatternLines[1], "和弦");
    EXPECT_EQ(chords.PatternLines[2], "CC------CC------");

    // An empty file has no lines, and the table keeps what it held.
    write("");
    EXPECT_EQ(file.readInto(chords), 0);
    EXPECT_EQ(chords.PatternLines[2], "CC------CC------");
}

TEST_F(PatternFileTest, AThousandLinesAreReadAndOneMoreIsABoundsFailure) {
    PatternFile file(appDir());
    std::string text;
    for (int i = 1; i <= 1000; ++i) text += "KC--KE--KG--KE--\r\n";
    write(text);
    EXPECT_EQ(file.readInto(chords), 1000);
    write(text + "CC--------------\r\n");
    try {
        file.readInto(chords);
        FAIL() << "the 1001st line was read";
    } catch (const FatalFailure& failure) {
        EXPECT_EQ(failure.kind(), FailureKind::SubscriptOutOfRange);
    }
}

TEST_F(PatternFileTest, AppendKeepsTheFileAsItWasAndAddsWholeLines) {
    PatternFile file(appDir());
    write("LC------LC------\r\nKC");  // no line end at the end
    ASSERT_TRUE(file.append({"CM------CM------", ""}));
    EXPECT_EQ(bytes(), "LC------LC------\r\nKCCM------CM------\r\n\r\n");
}

}  // namespace
}  // namespace tessaly
