#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest/QTest>

#include "ViewedInstrument.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

TEST(ChordPageView, EveryControlOfThePageShowsWithinItsPanel) {
    ViewedInstrument v;
    QTest::mouseClick(&v.widget(v.form.Xxk[1]), Qt::LeftButton);
    QWidget& panel = v.widget(v.form.Jiezhou[1]);
    ASSERT_TRUE(panel.isVisible());
    ChordPage& page = v.form.chordPage;
    Control* controls[] = {&page.Text4,    &page.Text5,    &page.Text7,    &page.Check4,   &page.Check7,
                           &page.Check9,   &page.Text6,    &page.Text2,    &page.Command3, &page.Command4,
                           &page.Check6,   &page.Label13,  &page.Label14,  &v.form.Combo1, &v.form.Combo2,
                           &v.form.Combo3, &v.form.HxYL,   &page.Option4[0], &page.Option4[1], &page.Option4[2]};
    for (Control* control : controls) {
        QWidget& w = v.widget(*control);
        EXPECT_EQ(w.parentWidget(), &panel) << control->fullName();
        EXPECT_TRUE(w.isVisible()) << control->fullName();
        EXPECT_TRUE(panel.rect().contains(w.geometry())) << control->fullName();
        EXPECT_EQ(w.toolTip().toStdString(), control->toolTip()) << control->fullName();
        // No two controls of the page cover each other.
        for (Control* other : controls) {
            if (other == control) continue;
            EXPECT_FALSE(w.geometry().intersects(v.widget(*other).geometry()))
                << control->fullName() << " " << other->fullName();
        }
    }
    EXPECT_EQ(v.widget<QPushButton>(page.Command3).text(), "生成随机节奏");
    EXPECT_EQ(v.widget<QCheckBox>(page.Check9).text(), "锁定音符");
    EXPECT_EQ(v.widget<QLineEdit>(page.Text4).text().toStdString(), page.Text4.text());
    EXPECT_EQ(v.widget<QComboBox>(v.form.Combo2).currentIndex(), 26);
}

TEST(ChordPageView, ATypedFigureIsNormalisedAndTheAuditionButtonFollowsItsModel) {
    ViewedInstrument v;
    QTest::mouseClick(&v.widget(v.form.Xxk[1]), Qt::LeftButton);
    ChordPage& page = v.form.chordPage;
    auto& figure = v.widget<QLineEdit>(page.Text5);
    QTest::mouseClick(&figure, Qt::LeftButton);
    EXPECT_TRUE(page.Text5.hasFocus());
    figure.selectAll();
    QTest::keyClicks(&figure, "kc kekgXXXXXXXXXXXXXX");  // the box stops at 16
    EXPECT_EQ(page.Text5.text(), "kc kekgXXXXXXXXX");
    QTest::mouseClick(&v.widget(page.Text6), Qt::LeftButton);
    EXPECT_EQ(figure.text(), "KC-KEKGXXXXXXXXX");

    auto& audition = v.widget<QPushButton>(page.Check6);
    QTest::mouseClick(&audition, Qt::LeftButton);
    EXPECT_TRUE(audition.isChecked());
    EXPECT_EQ(audition.text(), "停止");
    EXPECT_TRUE(page.HXYS.timerEnabled());
    QTest::mouseClick(&audition, Qt::LeftButton);
    EXPECT_FALSE(audition.isChecked());
    EXPECT_EQ(audition.text(), "启动");
}
