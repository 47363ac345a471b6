#include <gtest/gtest.h>

#include <QImage>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QtTest/QTest>

#include "ViewedInstrument.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

namespace {

// The part of the window that lies under the right half of a box, inside its border.
QImage underRightHalf(QWidget& window, const QWidget& box) {
    QImage whole = window.grab().toImage();
    QRect inner = box.geometry().adjusted(box.width() / 2, 4, -20, -4);
    inner.moveTopLeft(box.parentWidget()->mapTo(&window, inner.topLeft()));
    return whole.copy(inner);
}

// The window's picture under a box: the box hidden.
QImage pictureUnder(ViewedInstrument& v, TextBox& box) {
    QWidget& widget = v.widget(box);
    box.setVisible(false);
    QImage picture = underRightHalf(v.view, widget);
    box.setVisible(true);
    return picture;
}

}  // namespace

TEST(SeeThroughBoxes, TheScoreBoxShowsTheWindowBehindItWhileTypingAndScrolling) {
    ViewedInstrument v;
    ASSERT_TRUE(v.form.Text3.seeThrough());
    auto& score = v.widget<QPlainTextEdit>(v.form.Text3);
    const QImage picture = pictureUnder(v, v.form.Text3);
    EXPECT_EQ(underRightHalf(v.view, score), picture);

    // Short lines, many more than the box holds: the right half stays bare.
    score.setFocus();
    for (int line = 0; line < 30; ++line) {
        QTest::keyClicks(&score, "KC4");
        QTest::keyClick(&score, Qt::Key_Return);
    }
    ASSERT_GT(score.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(underRightHalf(v.view, score), picture);
    score.verticalScrollBar()->setValue(0);
    EXPECT_EQ(underRightHalf(v.view, score), picture);
    score.verticalScrollBar()->setValue(score.verticalScrollBar()->maximum() / 2);
    EXPECT_EQ(underRightHalf(v.view, score), picture);
    // The text itself is drawn: the left part differs from the bare picture.
    QImage whole = v.view.grab().toImage();
    QRect left = score.geometry().adjusted(6, 6, -score.width() / 2, -6);
    EXPECT_NE(whole.copy(left), [&] {
        v.form.Text3.setVisible(false);
        QImage bare = v.view.grab().toImage().copy(left);
        v.form.Text3.setVisible(true);
        return bare;
    }());
}

TEST(SeeThroughBoxes, TheHelpBoxShowsItsPanelsPictureAfterATopicIsLoaded) {
    ViewedInstrument v;
    v.form.Xxk[4].userClick();
    ASSERT_TRUE(v.form.helpPage.Text1.seeThrough());
    v.form.helpPage.Option2[4].userClick();  // a short topic: the lower part of the box is bare
    auto& help = v.widget<QPlainTextEdit>(v.form.helpPage.Text1);
    QImage whole = v.view.grab().toImage();
    QRect lower = help.geometry().adjusted(4, help.height() / 2, -20, -4);
    lower.moveTopLeft(help.parentWidget()->mapTo(&v.view, lower.topLeft()));
    v.form.helpPage.Text1.setVisible(false);
    QImage bare = v.view.grab().toImage().copy(lower);
    EXPECT_EQ(whole.copy(lower), bare);
}

// On the chord page the three figures and the order lie on the panel's
// picture; the box of the two figures one behind the other keeps its ground.
TEST(SeeThroughBoxes, TheChordPagesFourBoxesShowThePictureOnceTheTabIsOpened) {
    ViewedInstrument v;
    v.form.Xxk[1].userClick();
    ChordPage& page = v.form.chordPage;
    for (TextBox* box : {&page.Text4, &page.Text5, &page.Text7, &page.Text6}) {
        ASSERT_TRUE(box->seeThrough()) << box->fullName();
        // Only the right half, past the text; a trailing border column is the box's own.
        box->setText("");
        QWidget& widget = v.widget(*box);
        EXPECT_EQ(underRightHalf(v.view, widget), pictureUnder(v, *box)) << box->fullName();
    }
    EXPECT_FALSE(page.Text2.seeThrough());
}
