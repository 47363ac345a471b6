#include <gtest/gtest.h>

#include <fstream>

#include "Harness.h"
#include "performance/EffectKeys.h"

namespace tessaly {
namespace {

TEST(ShortcutPage, WithNoKeyChosenAListChangeChangesNothing) {
    testing::Harness h;
    auto before = h.app->state.InstrumentSet(0, 0);
    h.app->form1.YQSZ[0].setListIndex(before + 1);
    h.app->form1.YQSZ[3].setListIndex(9);
    EXPECT_EQ(h.app->state.InstrumentSet(0, 0), before);
    EXPECT_EQ(h.app->state.KeypadPercussion[0], 3);
    EXPECT_TRUE(h.sent().empty());
}

TEST(ShortcutPage, AnFKeyShowsItsSetAndAChangeIsOnlyStored) {
    testing::Harness h;
    MainWindow& f = h.app->form1;
    f.Option3[5].userClick();
    EXPECT_TRUE(f.YQSZ[0].visible());
    EXPECT_FALSE(f.YQSZ[3].visible());
    EXPECT_FALSE(f.File2.visible());
    EXPECT_EQ(f.YQSZ[2].listIndex(), 102);  // F6's third instrument
    h.sent();
    f.YQSZ[0].userPick(0);  // silence on channel 0 is a legal choice
    EXPECT_EQ(h.app->state.InstrumentSet(5, 0), 0);
    EXPECT_TRUE(h.sent().empty());
}

TEST(ShortcutPage, AnEffectKeyTakesTheFileAuditionedInTheList) {
    testing::Harness h;
    std::ofstream(h.appDir / "音效" / "风声.wav") << "RIFF";
    MainWindow& f = h.app->form1;
    h.app->shortcuts.enterShortcutTab();
    EXPECT_TRUE(f.Option3[0].value());
    EXPECT_EQ(f.File2.path(), h.appDir.string() + "/音效/");
    f.Option3[26].userClick();  // End
    EXPECT_TRUE(f.File2.visible());
    EXPECT_FALSE(f.YQSZ[0].visible());
    h.log.take();
    f.File2.userPick(0);
    EXPECT_EQ(h.app->state.EffectFile[4], "风声.wav");
    EXPECT_EQ(f.XSWB.caption(), "风声.wav_音效");
    EXPECT_EQ(h.log.take(), std::vector<std::string>{"wave " + h.appDir.string() + "/音效/风声.wav|1"});
}

TEST(EffectKeys, TheBellNamedWithATrailingBlankFindsItsFileStoredWithout) {
    testing::Harness h;
    std::ofstream(h.appDir / "音效" / "钟声.wav") << "RIFF";
    ASSERT_EQ(h.app->state.EffectFile[5], "钟声.wav ");  // as the default settings name it
    h.log.take();
    const std::string bell = h.appDir.string() + "/音效/钟声.wav";

    h.press(34);  // PageDown
    EXPECT_EQ(h.log.take(), (std::vector<std::string>{"wave " + bell + "|3", "wave " + bell + "|1"}));
    EXPECT_EQ(h.app->form1.XSWB.caption(), "钟声.wav _音效");

    // On the settings page too; a name that is nothing but its blanks finds nothing.
    h.app->form1.Xxk[5].userClick();
    h.app->form1.Option3[27].userClick();
    EXPECT_EQ(h.log.take(), (std::vector<std::string>{"wave " + bell + "|3", "wave " + bell + "|1"}));
    EXPECT_EQ(findEffectFile(h.appDir.string() + "/音效/", "  "), std::nullopt);
    // A file that really carries the blank is played under its own name.
    std::ofstream(h.appDir / "音效" / "钟声.wav ") << "RIFF";
    EXPECT_EQ(findEffectFile(h.appDir.string() + "/音效/", "钟声.wav "), bell + " ");
}

}  // namespace
}  // namespace tessaly
