#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest/QTest>
#include <fstream>

#include "ViewedInstrument.h"
#include "ui/PictureView.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

namespace {

// The first block of MIDI lines of a script test's expected output: what the
// start and the first key sent.
std::vector<std::string> firstMidiBlock(const std::string& expectedFile) {
    std::ifstream in(expectedFile);
    std::vector<std::string> block;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("@")) block.push_back(line);
        else if (!block.empty()) break;
    }
    return block;
}

}  // namespace

TEST(MainWindowView, EveryControlOfTheWindowHasItsWidget) {
    ViewedInstrument v;
    std::vector<const Control*> controls = {&v.form,  &v.form.SD,   &v.form.YD,   &v.form.Check1, &v.form.Check5,
                                            &v.form.ComDevies, &v.form.Text3, &v.form.SFYXYZ, &v.form.XSWB,
                                            &v.form.FJWZ};
    for (int i = 0; i < 3; ++i)
        for (const Control* c : {static_cast<const Control*>(&v.form.ComSounds[i]), static_cast<const Control*>(&v.form.Zxlyl[i]),
                                 static_cast<const Control*>(&v.form.Check3[i])})
            controls.push_back(c);
    for (auto& [i, tab] : v.form.Xxk) controls.push_back(tab);
    for (auto& [i, panel] : v.form.Jiezhou) controls.push_back(panel);
    for (auto& [i, key] : v.form.Picture1) controls.push_back(key);
    EXPECT_EQ(controls.size(), 10u + 9u + 5u + 5u + 65u);
    auto bound = v.view.binder().boundWidgets();
    for (const Control* c : controls) EXPECT_TRUE(bound.count(c->fullName())) << c->fullName();

    EXPECT_EQ(v.view.windowTitle(), "Tessaly201705");
    EXPECT_EQ(v.view.size(), QSize(986, 369));
    EXPECT_EQ(v.view.minimumSize(), v.view.maximumSize());
    EXPECT_EQ(v.widget<QPushButton>(v.form.Xxk[4]).text(), "帮 助");
    EXPECT_EQ(v.widget<QLabel>(v.form.XSWB).text().toStdString(), kStartHint);
    EXPECT_EQ(v.widget(v.form.SD).toolTip().toStdString(), v.form.SD.toolTip());
    EXPECT_FALSE(v.widget(v.form.ComSounds[2]).toolTip().isEmpty());
    EXPECT_FALSE(v.widget(v.form.SFYXYZ).toolTip().isEmpty());
    // Lists filled during start arrive whole, with their chosen entries.
    auto& instruments = v.widget<QComboBox>(v.form.ComSounds[0]);
    EXPECT_EQ(instruments.count(), v.form.ComSounds[0].listCount());
    EXPECT_EQ(instruments.currentIndex(), 50);
    EXPECT_EQ(v.widget<QComboBox>(v.form.SD).currentText(), "70");
    EXPECT_FALSE(v.widget(v.form.SFYXYZ).testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_TRUE(v.widget(v.form.SFYXYZ).hasFocus());
    EXPECT_EQ(v.keyPicture(1), kBlackKeyUp);
    EXPECT_EQ(v.keyPicture(64), kWhiteKeyUp);
}

TEST(MainWindowView, TheGKeyPlaysAsInTheScriptedTake) {
    ViewedInstrument v;
    std::vector<std::string> expected = firstMidiBlock(TESSALY_SOURCE_DIR "/tests/script/take_at_tempo_70.expected");
    ASSERT_GT(expected.size(), 12u);

    QTest::keyPress(&v.widget(v.form.SFYXYZ), Qt::Key_G);
    EXPECT_EQ(v.midi(), expected);
    EXPECT_EQ(v.score(), "KC");
    EXPECT_EQ(v.keyPicture(24), kWhiteKeyDown);
    QTest::keyRelease(&v.widget(v.form.SFYXYZ), Qt::Key_G);
    QTRY_COMPARE(v.keyPicture(24), kWhiteKeyUp);  // once it is clear that no repeat follows
    EXPECT_TRUE(v.form.Timer1.timerEnabled());
}

TEST(MainWindowView, KeysArePlayedByPositionAndAutoRepeatReleasesAreIgnored) {
    ViewedInstrument v;
    // On a German keyboard the key labelled Z stands where the US Y is: WD.
    v.key(QEvent::KeyPress, Qt::Key_Z, 29);
    EXPECT_EQ(v.score(), "WD");
    EXPECT_EQ(v.keyPicture(14), kWhiteKeyDown);
    // Held down: the repeats come as release and press pairs.
    for (int i = 0; i < 3; ++i) {
        v.key(QEvent::KeyRelease, Qt::Key_Z, 29, true);
        v.key(QEvent::KeyPress, Qt::Key_Z, 29, true);
    }
    EXPECT_EQ(v.keyPicture(14), kWhiteKeyDown);
    EXPECT_EQ(v.score(), "WD");
    // A repeat that Qt failed to mark: a release and a press stamped with one time.
    for (unsigned long time = 100; time < 400; time += 40) {
        v.key(QEvent::KeyRelease, Qt::Key_Z, 29, false, time);
        v.key(QEvent::KeyPress, Qt::Key_Z, 29, false, time);
    }
    EXPECT_EQ(v.score(), "WD");
    EXPECT_EQ(v.keyPicture(14), kWhiteKeyDown);
    // The real release: the key goes up once no repeated press has followed it.
    v.key(QEvent::KeyRelease, Qt::Key_Z, 29, false, 450);
    QTRY_COMPARE(v.keyPicture(14), kWhiteKeyUp);
    // Space belongs to the instrument, not to the button: the take ends.
    v.key(QEvent::KeyPress, Qt::Key_Space, 65);
    EXPECT_EQ(v.score(), "WD0TZ");
    EXPECT_EQ(v.form.FJWZ.caption(), "");  // the button's click did not run
}

TEST(MainWindowView, CodeChangesShowWithoutEchoAndUserActionsReachTheModel) {
    ViewedInstrument v;
    auto& second = v.widget<QComboBox>(v.form.ComSounds[1]);
    v.midi();
    v.form.ComSounds[1].setListIndex(20);
    EXPECT_EQ(second.currentIndex(), 20);
    // once, no echo; the clock stands at the end of the splash
    EXPECT_EQ(v.midi(), (std::vector<std::string>{"@3000 177 0 0", "@3000 193 19 0"}));

    // The user picks an instrument: the list takes the focus, the keyboard goes dead.
    emit second.activated(5);
    EXPECT_EQ(v.form.ComSounds[1].listIndex(), 5);
    EXPECT_EQ(v.midi(), (std::vector<std::string>{"@3000 177 0 0", "@3000 193 4 0"}));
    EXPECT_TRUE(v.form.ComSounds[1].hasFocus());
    EXPECT_FALSE(v.widget(v.form.Picture1[24]).isEnabled());

    // A click on a tab opens its panel and gives the keys back.
    QTest::mouseClick(&v.widget(v.form.Xxk[2]), Qt::LeftButton);
    EXPECT_TRUE(v.widget(v.form.Jiezhou[2]).isVisible());
    EXPECT_FALSE(v.widget(v.form.Jiezhou[0]).isVisible());
    EXPECT_TRUE(v.widget<QPushButton>(v.form.Xxk[2]).isChecked());
    EXPECT_FALSE(v.widget<QPushButton>(v.form.Xxk[0]).isChecked());
    EXPECT_EQ(v.widget<QLabel>(v.form.FJWZ).text(), "节奏调整。。。");
    EXPECT_TRUE(v.form.SFYXYZ.hasFocus());
    EXPECT_TRUE(v.widget(v.form.SFYXYZ).hasFocus());
    EXPECT_TRUE(v.widget(v.form.Picture1[24]).isEnabled());
}

TEST(MainWindowView, CheckBoxClicksAndTypedScoreTextGoThroughTheModel) {
    ViewedInstrument v;
    QTest::mouseClick(&v.widget(v.form.Xxk[0]), Qt::LeftButton);
    v.midi();
    auto& vibrato = v.widget<QCheckBox>(v.form.Check3[0]);
    QTest::mouseClick(&vibrato, Qt::LeftButton);
    EXPECT_EQ(v.form.Check3[0].value(), 1);
    EXPECT_TRUE(vibrato.isChecked());
    EXPECT_EQ(v.midi().size(), 5u);  // the five vibrato controllers, once

    auto& score = v.widget<QPlainTextEdit>(v.form.Text3);
    score.setFocus();
    EXPECT_TRUE(v.form.Text3.hasFocus());
    QTest::keyClicks(&score, "KC4");
    EXPECT_EQ(v.form.Text3.text(), "KC4");
    EXPECT_EQ(v.h.app->state.ScoreEnd, 3);
    // Lines typed in the box are CR LF lines in the model.
    QTest::keyClick(&score, Qt::Key_Return);
    QTest::keyClicks(&score, "TZ");
    EXPECT_EQ(v.form.Text3.text(), "KC4\r\nTZ");
    EXPECT_EQ(v.form.Text3.selStart(), 7u);
    // Code writing into the box moves the caret to the end of what it wrote.
    v.form.Text3.setSelStart(3);
    v.form.Text3.setSelText("KD");
    tessaly::testing::settleTextBoxes();  // the box shows it a little later
    EXPECT_EQ(score.toPlainText(), "KC4KD\nTZ");
    EXPECT_EQ(score.textCursor().position(), 5);
}

// The small window keeps a strip of bare form the user can find; a click on it
// gives the window its size back, and no control has moved meanwhile.
TEST(MainWindowView, TheSmallWindowHasAStripThatRestoresItsSize) {
    ViewedInstrument v;
    auto* strip = v.view.findChild<QWidget*>(QStringLiteral("restoreStrip"));
    ASSERT_NE(strip, nullptr);
    EXPECT_FALSE(strip->isVisible());
    const QRect keyboardButton = v.widget(v.form.SFYXYZ).geometry();

    v.form.userClick();  // a click on the bare form: the small window
    QApplication::processEvents();
    ASSERT_EQ(v.view.size(), QSize(414, 229));
    ASSERT_TRUE(strip->isVisible());
    EXPECT_GE(strip->width(), 24);
    EXPECT_EQ(strip->geometry().right(), v.view.width() - 1);
    EXPECT_EQ(strip->height(), v.view.height());
    EXPECT_EQ(v.widget(v.form.SFYXYZ).geometry(), keyboardButton);

    QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier, strip->rect().center());
    QApplication::processEvents();
    EXPECT_EQ(v.view.size(), QSize(986, 369));
    EXPECT_FALSE(strip->isVisible());
}
