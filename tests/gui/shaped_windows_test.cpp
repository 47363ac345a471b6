#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "Harness.h"
#include <QApplication>

#include "ui/FarewellView.h"
#include "ui/MainWindowView.h"
#include "ui/SplashView.h"

using namespace tessaly;
using tessaly::testing::Harness;

TEST(ShapedWindows, TheSplashFollowsItsModelAndHasRoundedCorners) {
    Harness h(false);
    SplashView splash(h.app->DZQQD);
    EXPECT_FALSE(splash.isVisible());
    EXPECT_TRUE(splash.windowFlags().testFlag(Qt::FramelessWindowHint));

    h.app->start();
    ASSERT_EQ(h.app->DZQQD.cornerRadius(), 35);
    EXPECT_TRUE(splash.isVisible());
    const QRegion mask = splash.mask();
    const int w = splash.width(), h2 = splash.height();
    for (QPoint corner : {QPoint(1, 1), QPoint(w - 2, 1), QPoint(1, h2 - 2), QPoint(w - 2, h2 - 2)})
        EXPECT_FALSE(mask.contains(corner)) << corner.x() << "," << corner.y();
    // Just inside the curve, and along the straight edges, the window is whole.
    EXPECT_TRUE(mask.contains(QPoint(12, 12)));
    EXPECT_TRUE(mask.contains(QPoint(w / 2, h2 / 2)));
    EXPECT_TRUE(mask.contains(QPoint(0, h2 / 2)));
    EXPECT_TRUE(mask.contains(QPoint(w / 2, 0)));
    EXPECT_FALSE(mask.contains(QPoint(5, 5)));  // a radius of 35 cuts deeper than a few pixels

    // The splash hands over to the main window and goes.
    while (!h.app->activated()) h.loop.advance(1);
    EXPECT_FALSE(splash.isVisible());
}

TEST(ShapedWindows, TheFarewellWindowIsOnlyItsLettersAndAClickOnThemEndsTheProgram) {
    Harness h;
    FarewellView farewell(h.app->Form3);
    EXPECT_FALSE(farewell.isVisible());
    h.app->form1.Command1.userClick();
    ASSERT_TRUE(farewell.isVisible());

    const QRegion mask = farewell.mask();
    const QRect whole = farewell.rect();
    ASSERT_FALSE(mask.isEmpty());
    // Between the two letters, and around them, nothing of the window shows.
    EXPECT_FALSE(mask.contains(whole.center()));
    EXPECT_FALSE(mask.contains(QPoint(2, 2)));
    EXPECT_FALSE(mask.contains(QPoint(whole.right() - 2, whole.bottom() - 2)));
    const QRegion left = mask.intersected(QRect(0, 0, whole.width() / 2, whole.height()));
    const QRegion right = mask.intersected(QRect(whole.width() / 2, 0, whole.width() / 2, whole.height()));
    ASSERT_FALSE(left.isEmpty());
    ASSERT_FALSE(right.isEmpty());
    // Large letters: each fills a good part of its half of the window.
    EXPECT_GT(left.boundingRect().height(), whole.height() / 2);
    EXPECT_GT(right.boundingRect().width(), whole.width() / 5);
    // Strokes, not boxes: much of each letter's own box is left out.
    auto area = [](const QRegion& region) {
        long long sum = 0;
        for (const QRect& r : region) sum += static_cast<long long>(r.width()) * r.height();
        return sum;
    };
    const QRect leftBox = left.boundingRect();
    EXPECT_LT(area(left), static_cast<long long>(leftBox.width()) * leftBox.height() * 7 / 10);
    // The top stroke of 再 runs across the letter: its middle is on it.
    const QPoint onStroke(leftBox.center().x(), leftBox.top() + 4);
    EXPECT_TRUE(mask.contains(onStroke));

    EXPECT_FALSE(h.app->ended());
    QTest::mouseClick(&farewell, Qt::LeftButton, Qt::NoModifier, onStroke);
    EXPECT_TRUE(h.app->ended());
}

// Regression: the views of the other windows once took over the focus hook,
// so the main window no longer followed the model's focus and the keys went
// to whatever widget Qt had chosen.
TEST(ShapedWindows, TheMainWindowStillFollowsTheModelFocusBesideTheOtherViews) {
    tessaly::testing::Harness h{false};
    MainWindowView mainView(h.app->form1);
    SplashView splash(h.app->DZQQD);
    FarewellView farewell(h.app->Form3);
    h.app->start();
    while (!h.app->activated() && !h.app->ended()) h.loop.advance(1);
    mainView.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&mainView));
    EXPECT_EQ(QApplication::focusWidget(), mainView.binder().widgetOf(h.app->form1.SFYXYZ));
    h.app->form1.SD.setFocus();
    EXPECT_EQ(QApplication::focusWidget(), mainView.binder().widgetOf(h.app->form1.SD));
}
