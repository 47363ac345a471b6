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
