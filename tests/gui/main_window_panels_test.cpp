#include <gtest/gtest.h>

#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QtTest/QTest>

#include "ViewedInstrument.h"

using namespace tessaly;
using tessaly::testing::Harness;
using tessaly::testing::ViewedInstrument;

TEST(MainWindowPanels, TheSettingsTabShowsItsControlsBoundToTheirModels) {
    ViewedInstrument v;
    QTest::mouseClick(&v.widget(v.form.Xxk[5]), Qt::LeftButton);
    EXPECT_TRUE(v.widget(v.form.Jiezhou[5]).isVisible());
    EXPECT_FALSE(v.widget(v.form.Jiezhou[0]).isVisible());

    // One group for the 28 keys, F1 chosen on entry.
    auto& f1 = v.widget<QRadioButton>(v.form.Option3[0]);
    ASSERT_NE(f1.group(), nullptr);
    EXPECT_EQ(f1.group()->buttons().size(), 28);
    for (int i = 0; i < 28; ++i) {
        auto& key = v.widget<QRadioButton>(v.form.Option3[i]);
        EXPECT_EQ(key.group(), f1.group()) << i;
        EXPECT_EQ(key.text().toStdString(), v.form.Option3[i].caption()) << i;
        EXPECT_EQ(key.toolTip().toStdString(), v.form.Option3[i].toolTip()) << i;
        EXPECT_EQ(key.isChecked(), i == 0) << i;
    }
    for (int j = 0; j < 3; ++j) {
        auto& list = v.widget<QComboBox>(v.form.YQSZ[j]);
        EXPECT_TRUE(list.isVisible()) << j;
        EXPECT_EQ(list.count(), v.form.YQSZ[j].listCount()) << j;
        EXPECT_EQ(list.currentIndex(), v.h.app->state.InstrumentSet(0, j)) << j;
    }
    EXPECT_FALSE(v.widget(v.form.YQSZ[3]).isVisible());
    EXPECT_FALSE(v.widget(v.form.File2).isVisible());
    EXPECT_EQ(v.widget<QLabel>(v.form.YUEQI[3]).text(), "打击乐器");
    EXPECT_EQ(v.widget<QPushButton>(v.form.BCSZ).text(), "保  存");
    EXPECT_TRUE(v.widget(v.form.Command1).isVisible());  // exit stands outside the panels
    EXPECT_TRUE(v.form.SFYXYZ.hasFocus());

    // An effect key: the file list of the effects folder takes the lists' place.
    QTest::mouseClick(&v.widget(v.form.Option3[23]), Qt::LeftButton);
    auto& files = v.widget<QListWidget>(v.form.File2);
    EXPECT_TRUE(files.isVisible());
    EXPECT_FALSE(v.widget(v.form.YQSZ[0]).isVisible());
    EXPECT_EQ(files.count(), v.form.File2.listCount());
    EXPECT_FALSE(f1.isChecked());
}

TEST(MainWindowPanels, ClickingAKeypadDigitOnScreenDoesWhatTheScriptedClickDoes) {
    // The same steps, once by the model as the script driver does them...
    Harness scripted;
    MainWindow& model = scripted.app->form1;
    model.Xxk[5].userClick();
    model.VsbVol.userPick(7);
    scripted.sent();
    model.Option3[13].userClick();
    const std::vector<std::string> expected = scripted.sent();
    ASSERT_FALSE(expected.empty());  // the digit's percussion sounds

    // ...and once on the screen.
    ViewedInstrument v;
    QTest::mouseClick(&v.widget(v.form.Xxk[5]), Qt::LeftButton);
    v.form.VsbVol.userPick(7);
    v.h.sent();
    QTest::mouseClick(&v.widget(v.form.Option3[13]), Qt::LeftButton);
    EXPECT_EQ(v.h.sent(), expected);
    EXPECT_TRUE(v.form.Option3[13].value());
    EXPECT_FALSE(v.form.Option3[0].value());
    EXPECT_TRUE(v.widget<QRadioButton>(v.form.Option3[13]).isChecked());
    EXPECT_FALSE(v.widget<QRadioButton>(v.form.Option3[0]).isChecked());
    EXPECT_TRUE(v.widget(v.form.YQSZ[3]).isVisible());
    EXPECT_FALSE(v.widget(v.form.YQSZ[0]).isVisible());
    EXPECT_EQ(v.widget<QComboBox>(v.form.YQSZ[3]).currentIndex(), model.YQSZ[3].listIndex());
}

TEST(MainWindowPanels, TheScoreButtonsStandUnderTheScoreAndClickThroughTheModel) {
    ViewedInstrument v;
    const QRect score = v.widget(v.form.Text3).geometry();
    std::vector<const Control*> buttons = {&v.form.XINJIAN, &v.form.BJCK};
    for (auto& [index, button] : v.form.Yuepu) buttons.push_back(button);
    for (const Control* button : buttons) {
        auto& widget = v.widget<QPushButton>(*button);
        EXPECT_EQ(widget.text().toStdString(), button->caption()) << button->fullName();
        EXPECT_EQ(widget.toolTip().toStdString(), button->toolTip()) << button->fullName();
        const QRect place = widget.geometry();
        EXPECT_GT(place.top(), score.bottom()) << button->fullName();
        EXPECT_GE(place.left(), score.left()) << button->fullName();
        EXPECT_LE(place.right(), score.right()) << button->fullName();
    }

    // Audition: the score is read in capitals and the button turns into stop.
    v.form.Text3.setText("kc8tz");
    auto& audition = v.widget<QPushButton>(v.form.Yuepu[0]);
    QTest::mouseClick(&audition, Qt::LeftButton);
    EXPECT_EQ(v.form.Text3.text(), "KC8TZ");
    EXPECT_NE(v.h.app->state.AutoPlaying, 0);
    EXPECT_EQ(audition.text(), "停止");
    QTest::mouseClick(&audition, Qt::LeftButton);
    EXPECT_EQ(v.h.app->state.AutoPlaying, 0);
    EXPECT_EQ(audition.text(), "试听");
}

TEST(MainWindowPanels, KeyCapsShowTheirWholeCaptionsAndTheEffectListHidesNoLabel) {
    ViewedInstrument v;
    QTest::mouseClick(&v.widget(v.form.Xxk[5]), Qt::LeftButton);
    for (int i = 0; i < 28; ++i) {
        auto& key = v.widget<QRadioButton>(v.form.Option3[i]);
        key.ensurePolished();
        // The caption after the cap's border, its left padding and the (empty)
        // indicator's spacing, and before the right border.
        const int spacing = key.style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, &key);
        const int needed = 1 + 3 + spacing + key.fontMetrics().horizontalAdvance(key.text()) + 1;
        EXPECT_LE(needed, key.width()) << key.text().toStdString();
    }
    // An effect key: the file list shows where the lists were, and no label of
    // a hidden list shows through it or over it.
    QTest::mouseClick(&v.widget(v.form.Option3[25]), Qt::LeftButton);
    QWidget& files = v.widget(v.form.File2);
    ASSERT_TRUE(files.isVisible());
    for (auto& [index, label] : v.form.YUEQI) {
        QWidget& caption = v.widget(*label);
        if (caption.isVisible()) {
            EXPECT_FALSE(caption.geometry().intersects(files.geometry())) << index;
        }
    }
    // Back on a function key, the labels are there over their lists.
    QTest::mouseClick(&v.widget(v.form.Option3[3]), Qt::LeftButton);
    for (int j = 0; j < 3; ++j) EXPECT_TRUE(v.widget(v.form.YUEQI[j]).isVisible()) << j;
    EXPECT_FALSE(v.widget(v.form.YUEQI[3]).isVisible());
}
