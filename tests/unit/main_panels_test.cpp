#include <gtest/gtest.h>

#include "Harness.h"

using namespace tessaly;
using tessaly::testing::Harness;

TEST(MainPanels, ATabOpensItsPanelAloneAndGivesTheKeyboardBackTheFocus) {
    Harness h;
    MainWindow& form = h.app->form1;
    form.SD.setFocus();  // the user was typing a tempo: keys are dead
    ASSERT_FALSE(form.Picture1[24].enabled());

    form.Xxk[2].userClick();
    for (auto& [index, panel] : form.Jiezhou) EXPECT_EQ(panel->visible(), index == 2) << index;
    EXPECT_TRUE(form.Xxk[2].value());
    EXPECT_FALSE(form.Xxk[0].value());
    EXPECT_EQ(form.FJWZ.caption(), "节奏调整。。。");
    EXPECT_EQ(form.XSWB.caption(), "选择即将使用的乐器以及设置节奏类型音量等参数！");
    EXPECT_TRUE(form.SFYXYZ.hasFocus());
    EXPECT_TRUE(form.Picture1[24].enabled());
}

TEST(MainPanels, ClickingTheOpenTabAgainStillRestoresTheKeyboard) {
    Harness h;
    MainWindow& form = h.app->form1;
    form.SFYXYZ.setEnabled(false);  // focus gone with it
    form.Xxk[0].userClick();        // tab 0 is open from the start
    EXPECT_TRUE(form.SFYXYZ.enabled());
    EXPECT_TRUE(form.SFYXYZ.hasFocus());
    EXPECT_EQ(form.FJWZ.caption(), "旋律调整。。。");
    EXPECT_TRUE(form.Jiezhou[0].visible());
}

TEST(MainPanels, TheSettingsTabOpensOnF1WithItsInstrumentSet) {
    Harness h;
    MainWindow& form = h.app->form1;
    form.Option3[26].userClick();  // an effect key left chosen: only the file list shows
    ASSERT_TRUE(form.File2.visible());
    ASSERT_FALSE(form.YQSZ[0].visible());
    h.app->state.InstrumentSet(0, 0) = 7;
    h.app->state.InstrumentSet(0, 1) = 21;
    h.app->state.InstrumentSet(0, 2) = 40;

    form.Xxk[5].userClick();
    EXPECT_TRUE(form.Jiezhou[5].visible());
    EXPECT_TRUE(form.Option3[0].value());
    EXPECT_FALSE(form.Option3[26].value());
    const int expected[3] = {7, 21, 40};
    for (int j = 0; j < 3; ++j) {
        EXPECT_TRUE(form.YQSZ[j].visible()) << j;
        EXPECT_EQ(form.YQSZ[j].listIndex(), expected[j]) << j;
    }
    EXPECT_FALSE(form.YQSZ[3].visible());
    EXPECT_FALSE(form.File2.visible());
    EXPECT_EQ(form.File2.path(), h.appDir.string() + "/音效/");
    EXPECT_EQ(form.FJWZ.caption(), "键位设置。。。");
    EXPECT_TRUE(form.SFYXYZ.hasFocus());

    // Other tabs leave the page as it stands.
    form.Option3[14].userClick();
    form.Xxk[2].userClick();
    EXPECT_TRUE(form.Option3[14].value());
}
