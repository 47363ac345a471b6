#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QtTest/QTest>

#include "ViewedInstrument.h"
#include "ui/RhythmPageView.h"
#include "ui/StepGridWidgets.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

namespace {

RhythmPageView& pageView(ViewedInstrument& v) {
    auto* view = v.widget(v.form.Jiezhou[2]).findChild<RhythmPageView*>();
    if (!view) throw std::logic_error("no rhythm page view");
    return *view;
}

void moveOver(QWidget& widget) {
    QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), widget.mapToGlobal(QPointF(3, 3)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
}

}  // namespace

TEST(RhythmPageView, BoxesLoadedAtStartGetTheirCellsInTheirStrips) {
    ViewedInstrument v;
    RhythmPage& page = v.form.rhythmPage;
    QTest::mouseClick(&v.widget(v.form.Xxk[2]), Qt::LeftButton);
    ASSERT_TRUE(v.widget(v.form.Jiezhou[2]).isVisible());
    for (int k = 0; k < 3; ++k) {
        QWidget& strip = v.widget(page.PicTrack[k]);
        for (int s = 0; s <= 16; ++s) {
            StepCell* cell = pageView(v).cell(k, s);
            ASSERT_NE(cell, nullptr) << k << " " << s;
            EXPECT_EQ(cell->parentWidget(), &strip);
            EXPECT_EQ(cell->geometry().left(), 13 * s);
            EXPECT_EQ(&v.widget(page.track(k)[s]), cell);
        }
        EXPECT_EQ(v.widget<QComboBox>(page.LblInst[k]).count(), 47);
    }
    for (const Control* c : {static_cast<const Control*>(&v.form.BzQd), static_cast<const Control*>(&v.form.Check5),
                             static_cast<const Control*>(&v.form.VsbVol), static_cast<const Control*>(&v.form.xuanyue),
                             static_cast<const Control*>(&v.form.File1), static_cast<const Control*>(&v.form.Label11),
                             static_cast<const Control*>(&page.Cmdcill[0]), static_cast<const Control*>(&page.Option1[1])})
        EXPECT_EQ(v.widget(*c).parentWidget(), &v.widget(v.form.Jiezhou[2])) << c->fullName();
    EXPECT_EQ(v.widget(v.form.BzQd).toolTip().toStdString(), v.form.BzQd.toolTip());
    EXPECT_EQ(v.widget(v.form.File1).toolTip().toStdString(), v.form.File1.toolTip());
}

TEST(RhythmPageView, AClickOnACellIsTheUsersClickOnItsBox) {
    ViewedInstrument v;
    RhythmPage& page = v.form.rhythmPage;
    QTest::mouseClick(&v.widget(v.form.Xxk[2]), Qt::LeftButton);
    StepCell* cell = pageView(v).cell(1, 5);
    ASSERT_NE(cell, nullptr);
    const bool before = page.BZB[5].value() == 1;
    QTest::mouseClick(cell, Qt::LeftButton);
    EXPECT_EQ(page.BZB[5].value() == 1, !before);
    EXPECT_EQ(cell->isChecked(), !before);
    EXPECT_EQ(v.h.app->midi.StepTable[5][1].On, before ? 0 : -1);

    // In 3/4 the cells of the last four columns go; column 16 stays.
    QTest::mouseClick(&v.widget(page.Option1[1]), Qt::LeftButton);
    EXPECT_FALSE(pageView(v).cell(0, 12)->isVisible());
    EXPECT_TRUE(pageView(v).cell(0, 11)->isVisible());
    EXPECT_TRUE(pageView(v).cell(0, 16)->isVisible());
}

TEST(RhythmPageView, TheFileListComesOverLabel11AndGoesOverThePage) {
    ViewedInstrument v;
    QTest::mouseClick(&v.widget(v.form.Xxk[2]), Qt::LeftButton);
    auto& files = v.widget<QListWidget>(v.form.File1);
    EXPECT_FALSE(files.isVisible());
    moveOver(v.widget(v.form.Label11));
    EXPECT_TRUE(files.isVisible());
    EXPECT_EQ(files.count(), v.form.File1.listCount());
    moveOver(v.widget(v.form.Jiezhou[2]));
    EXPECT_FALSE(files.isVisible());
}

TEST(RhythmPageView, TheStepJustPlayedIsRingedWhileTheRhythmRuns) {
    ViewedInstrument v;
    QTest::mouseClick(&v.widget(v.form.Xxk[2]), Qt::LeftButton);
    QTest::mouseClick(&v.widget(v.form.BzQd), Qt::LeftButton);
    EXPECT_EQ(v.widget<QPushButton>(v.form.BzQd).text(), "停止");
    v.h.loop.advance(107 * 4 * 2 + 1);  // steps 0 and 1 have sounded
    QTest::qWait(80);
    EXPECT_TRUE(pageView(v).cell(2, 1)->playing());
    EXPECT_FALSE(pageView(v).cell(2, 0)->playing());
    QTest::mouseClick(&v.widget(v.form.BzQd), Qt::LeftButton);
    QTest::qWait(80);
    EXPECT_FALSE(pageView(v).cell(2, 1)->playing());
}
