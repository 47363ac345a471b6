#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QtTest/QTest>
#include <cstdlib>

#include "ViewedInstrument.h"
#include "ui/RecorderView.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

// The recorder's row stands beside the tabs, clear of every other control,
// and its widgets follow the panel's looks and take the user's clicks.
TEST(RecorderView, TheRowBesideTheTabsFollowsThePanelAndTakesClicks) {
    ViewedInstrument v;
    MainRecorderPanel& panel = v.form.recorderPanel;
    auto& record = v.widget<RecorderImageView>(panel.Image1[2]);
    auto& save = v.widget<QPushButton>(panel.BcLY);
    auto& time = v.widget<QLabel>(panel.Label12);
    EXPECT_EQ(v.widget<RecorderImageView>(panel.Image1[0]).pictureId(), kRecorderPlayPicture);
    EXPECT_EQ(record.size(), QSize(25, 25));
    EXPECT_EQ(save.text(), "保存");
    EXPECT_FALSE(save.isEnabled());
    EXPECT_EQ(time.text(), "00:00:00");

    // On the window, every part of the row lies within it and overlaps no
    // other bound control.
    std::vector<QWidget*> row = {&v.widget(panel.Image1[0]), &v.widget(panel.Image1[1]), &record, &save, &time};
    const QRect windowRect = v.view.rect();
    for (QWidget* part : row) {
        const QRect onWindow(part->mapTo(&v.view, QPoint(0, 0)), part->size());
        EXPECT_TRUE(windowRect.contains(onWindow)) << part->objectName().toStdString();
        for (auto& [name, other] : v.view.binder().boundWidgets()) {
            if (other == part || other == &v.view || std::find(row.begin(), row.end(), other) != row.end()) continue;
            if (!other->isVisible() || other->parentWidget() != &v.view) continue;
            const QRect otherRect(other->mapTo(&v.view, QPoint(0, 0)), other->size());
            EXPECT_FALSE(onWindow.intersects(otherRect)) << name;
        }
    }

    QTest::mouseClick(&record, Qt::LeftButton);
    EXPECT_EQ(v.h.app->recorderState.main.RecordingFlag, -1);
    EXPECT_EQ(record.size(), QSize(19, 19)) << "pressed";
    EXPECT_TRUE(save.isEnabled());
    v.h.loop.advance(2000);
    EXPECT_EQ(time.text(), "00:00:02");
    if (const char* shots = std::getenv("TESSALY_RECORDER_SHOTS")) v.view.grab().save(QString(shots) + "/recording.png");
    QTest::mouseClick(&v.widget(panel.Image1[1]), Qt::LeftButton);
    EXPECT_EQ(record.size(), QSize(25, 25));
    EXPECT_EQ(v.h.app->recorderState.main.RecordingFlag, 0);
}
