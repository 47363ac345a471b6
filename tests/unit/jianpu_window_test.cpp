#include <gtest/gtest.h>

#include <filesystem>

#include "Harness.h"
#include "runtime/TextFiles.h"

using namespace tessaly;
using tessaly::testing::Harness;

namespace {
constexpr int G = 71, H = 72, J = 74;
constexpr int kTick = 107;
}  // namespace

TEST(JianpuWindow, TypingKeysStillPlayAndWriteWhileItIsOpen) {
    Harness h;
    auto& app = *h.app;
    ASSERT_EQ(app.controls.focused(), &app.form1.SFYXYZ);
    app.form1.JIANPU.userClick();
    EXPECT_TRUE(app.JPXS.visible());
    app.JPXS.ZTXX.userClick();
    app.JPXS.DCWB.userClick();  // the save dialog is cancelled
    EXPECT_EQ(app.controls.focused(), &app.form1.SFYXYZ);

    h.sent();
    // The first key counts its own tick.
    h.press(G);
    h.loop.advance(8 * kTick - 1);
    h.press(H);
    h.loop.advance(4 * kTick + 50);
    h.press(J);
    EXPECT_EQ(app.form1.Text3.text(), "KC8KD4KE");
    int noteOns = 0;
    for (const std::string& m : h.sent()) noteOns += m.rfind("144 ", 0) == 0;
    EXPECT_GE(noteOns, 3);
    // Each note shows as it is written.
    const JianpuReading& reading = app.jianpu.sheet().reading();
    ASSERT_EQ(reading.events.size(), 3u);
    EXPECT_EQ(reading.events[1].ticks, 4);
    EXPECT_EQ(app.JPXS.ZTXX.caption(), "共 1 小节");

    // It stays up while the editor takes the main window's place.
    app.form1.BJCK.userClick();
    EXPECT_FALSE(app.form1.visible());
    EXPECT_TRUE(app.JPXS.visible());
}

TEST(JianpuWindow, MarksTheNoteAuditionPlaysAndTheErrorItStopsOn) {
    Harness h;
    auto& app = *h.app;
    app.form1.JIANPU.userClick();
    app.form1.Text3.setText("KC8KD8QQ");
    EXPECT_EQ(app.JPXS.CWTS.caption(), "第 7 个字符：“QQ”不是乐谱的记号：乐谱中出现错误，请修改！");
    app.form1.Text3.setText("KC8KD8VS9YD3KE8TZ");
    EXPECT_EQ(app.JPXS.CWTS.caption(), "");
    EXPECT_EQ(app.jianpu.playingEvent(), -1);
    app.form1.Yuepu[0].userClick();
    h.loop.advance(kTick / 2);
    EXPECT_EQ(app.jianpu.playingEvent(), 0);
    h.loop.advance(8 * kTick);
    EXPECT_EQ(app.jianpu.playingEvent(), 1);
    h.loop.advance(8 * kTick);
    EXPECT_EQ(app.jianpu.playingEvent(), 4);
    // The player's commands moved the lists; the heading keeps the start's.
    EXPECT_EQ(app.form1.YD.text(), "D");
    EXPECT_EQ(app.jianpu.sheet().layout().glyphs[0].text, "1=C  4/4  ♩=70");
    h.loop.advance(16 * kTick);
    EXPECT_EQ(app.form1.Yuepu[0].caption(), "试听");
    EXPECT_EQ(app.jianpu.playingEvent(), -1);
}

TEST(JianpuWindow, FollowsTheEntryWindowAndExportsText) {
    Harness h;
    auto& app = *h.app;
    app.form1.XINJIAN.userClick();
    app.YYLR.WJMC.setText("小曲");
    app.YYLR.Text1.setText("KC8KD4KE\r\nKF4KG16TZ");
    app.YYLR.JIANPU.userClick();
    EXPECT_TRUE(app.JPXS.visible());
    EXPECT_TRUE(app.YYLR.visible());
    EXPECT_EQ(app.jianpu.title(), "小曲");
    EXPECT_EQ(app.jianpu.sheet().reading().events.size(), 5u);

    const std::filesystem::path path = h.appDir / "小曲";
    app.unansweredDialogs.queueFileAnswer(path.string());
    app.JPXS.DCWB.userClick();
    EXPECT_EQ(readTextFile(path.string() + ".txt"), "1=C\r\n4/4\r\n4=70\r\n1 q2 q3 q4 q5~ 5~ | q5 ||\r\n");
}
