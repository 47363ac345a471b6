#include <gtest/gtest.h>

#include "forms/Form.h"
#include "forms/ToggleOptionButton.h"
#include "platform/testing/VirtualEventLoop.h"
#include "shell/FatalEndSaves.h"

using namespace tessaly;

namespace {
struct OneForm {
    ControlSystem system;
    VirtualEventLoop loop;
    Form form{system, loop, "F"};
};
}  // namespace

TEST(ScrollBar, ANewBoundMovesAValueLeftOutsideWithItsEvent) {
    OneForm f;
    ScrollBar& bar = f.form.add<ScrollBar>("HScroll1");
    int changes = 0;
    bar.onChange = [&] { ++changes; };
    bar.setRange(0, 200);
    bar.setValue(150);
    EXPECT_EQ(changes, 1);
    ASSERT_TRUE(f.system.set("F.HScroll1.Max", "3"));
    EXPECT_EQ(bar.value(), 3);
    EXPECT_EQ(changes, 2);
    // A maximum below the minimum is a reversed range, not an error.
    bar.setMax(-1);
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(f.system.get("F.HScroll1.Max"), "-1");
    EXPECT_THROW(bar.setValue(1), FatalFailure);
    EXPECT_THROW(bar.setMax(40000), FatalFailure);
}

// The box keeps its length in characters as it is written to: at the end (as
// the keys write), inside, over a selection, and after a text that begins in
// the middle of a character, which counts that piece as nothing.
TEST(TextBox, LengthAndTextFollowEveryKindOfWrite) {
    OneForm f;
    TextBox& box = f.form.add<TextBox>("Text3");
    int changes = 0;
    box.onChange = [&] { ++changes; };
    box.setText("KC8乐");
    ASSERT_EQ(box.length(), 4u);
    box.setSelStart(4);
    box.setSelText("曲KD");
    EXPECT_EQ(box.text(), "KC8乐曲KD");
    EXPECT_EQ(box.length(), 7u);
    EXPECT_EQ(box.selStart(), 7u);
    box.setSelText("");
    EXPECT_EQ(changes, 2);  // writing nothing at the end changes nothing
    box.setSelStart(3);
    box.setSelLength(2);
    EXPECT_EQ(box.selText(), "乐曲");
    box.setSelText("4");
    EXPECT_EQ(box.text(), "KC84KD");
    EXPECT_EQ(box.length(), 6u);
    box.setSelStart(99);
    EXPECT_EQ(box.selStart(), 6u);

    box.setText("\x80KC");  // a piece of a character first: two characters
    ASSERT_EQ(box.length(), 2u);
    box.setSelStart(2);
    box.setSelText("4");
    EXPECT_EQ(box.text(), "\x80K4C");  // the third character is where the byte count says
    EXPECT_EQ(box.length(), 3u);
}

TEST(ToggleOptionButton, AClickWhileDownLetsItUpAndStillRunsItsHandler) {
    OneForm f;
    f.form.show();
    auto& play = f.form.add<ToggleOptionButton>("ST1", -1, "ST1");
    std::vector<bool> seen;
    play.onClick = [&] { seen.push_back(play.value()); };
    play.userClick();
    play.userClick();
    EXPECT_EQ(seen, (std::vector<bool>{true, false}));
    play.setValue(false);  // clearing in code runs nothing
    EXPECT_EQ(seen.size(), 2u);
}

TEST(FatalEndSaves, EverySaveRunsOnceEvenWhenOneFails) {
    FatalEndSaves saves;
    int runs = 0;
    saves.add([&]() -> std::optional<FatalEndSaves::Saved> { ++runs; throw std::runtime_error("disk full"); });
    saves.add([&]() -> std::optional<FatalEndSaves::Saved> { ++runs; return std::nullopt; });
    saves.add([&]() -> std::optional<FatalEndSaves::Saved> {
        ++runs;
        return FatalEndSaves::Saved{"编辑器中的乐曲", "/data/演奏记录/恢复的编辑记录.lnk"};
    });
    auto saved = saves.runAll();
    EXPECT_EQ(runs, 3);
    ASSERT_EQ(saved.size(), 1u);
    EXPECT_EQ(savedWorkText(saved, "/data/"), "编辑器中的乐曲已保存为：演奏记录/恢复的编辑记录.lnk");
    EXPECT_TRUE(saves.runAll().empty());
    EXPECT_EQ(runs, 3);
}
