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
