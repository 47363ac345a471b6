#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QtTest/QTest>

#include "ViewedInstrument.h"
#include "ui/EditorView.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

namespace {

// The main window up, then the editor opened by its button on the screen.
struct ViewedEditor {
    ViewedInstrument v;
    EditorViewHost host{v.h.app->YYBJ};
    EditorWindow& model = v.h.app->YYBJ;

    ViewedEditor() {
        QTest::mouseClick(&v.widget(v.form.BJCK), Qt::LeftButton);
        EXPECT_NE(host.view(), nullptr);
        if (!host.view()) return;
        host.view()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(host.view()));
    }
    EditorView& view() { return *host.view(); }
    template <typename W>
    W& widget(const Control& control) {
        QWidget* w = view().binder().widgetOf(control);
        if (!w) throw std::logic_error("no widget for " + control.fullName());
        return dynamic_cast<W&>(*w);
    }
    int stepWidgets() {
        // Boxes that were unloaded go at the next turn of the event loop.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return static_cast<int>(view().findChildren<QCheckBox*>(QStringLiteral("step")).size()); }
};

}  // namespace

TEST(EditorView, OpensInPlaceOfTheMainWindowWithEveryControlBound) {
    ViewedEditor e;
    EXPECT_TRUE(e.view().isVisible());
    EXPECT_FALSE(e.v.view.isVisible());
    EXPECT_EQ(e.view().windowTitle(), "音乐编辑器");
    auto bound = e.view().binder().boundWidgets();
    for (const char* name : {"YYBJ.YF1(6)", "YYBJ.DJY5(15)", "YYBJ.HScroll1", "YYBJ.XJZS", "YYBJ.SYYQ(11)", "YYBJ.YQYL(0)",
                             "YYBJ.DQSUDU", "YYBJ.JPFL(2)", "YYBJ.Check1(1)", "YYBJ.HScroll3", "YYBJ.ST1", "YYBJ.ST2",
                             "YYBJ.TUICHU", "YYBJ.ComDevies", "YYBJ.DRYP", "YYBJ.LUYINJI(3)", "YYBJ.yinzi",
                             "YYBJ.LYSJ"})
        EXPECT_TRUE(bound.count(name)) << name;
    EXPECT_EQ(e.stepWidgets(), 5 * 16);
    EXPECT_EQ(e.widget<QComboBox>(e.model.settings().SYYQ[1]).currentText(), "50.弦乐合奏2");
    EXPECT_EQ(e.widget<QComboBox>(e.model.settings().DQSUDU).currentText(), "70");
    EXPECT_EQ(e.widget<QScrollBar>(e.model.bar().HScroll1).maximum(), 200);
    EXPECT_EQ(e.widget<QScrollBar>(e.model.settings().HScroll3).minimum(), -20);
}

TEST(EditorView, NotesTypedAndABoxClickedReachTheSong) {
    ViewedEditor e;
    auto& notes = e.widget<QLineEdit>(e.model.bar().YF1[0]);
    notes.setFocus();
    QTest::keyClicks(&notes, "kcke");
    // Leaving the box stores the notes, shown upper-cased and filled.
    e.widget<QLineEdit>(e.model.bar().XJZS).setFocus();
    QApplication::processEvents();
    EXPECT_EQ(e.v.h.app->editor.s.SlotTokens(1, 0), "KE");
    EXPECT_EQ(notes.text().toStdString(), "KCKE" + std::string(28, '-'));
    QTest::mouseClick(&e.widget<QCheckBox>(e.model.bar().DJY2[3]), Qt::LeftButton);
    EXPECT_EQ(e.v.h.app->editor.s.SlotTokens(3, 8), "O");
    EXPECT_TRUE(e.widget<QCheckBox>(e.model.bar().DJY2[3]).isChecked());
}

TEST(EditorView, TheGridReformsAndTheWindowWidensForFourFour) {
    ViewedEditor e;
    const int narrow = e.view().width();
    QTest::mouseClick(&e.widget<QRadioButton>(e.model.settings().JPFL[2]), Qt::LeftButton);
    EXPECT_EQ(e.stepWidgets(), 5 * 32);
    EXPECT_GT(e.view().width(), narrow);
    auto& last = e.widget<QCheckBox>(e.model.bar().DJY1[31]);
    EXPECT_EQ(last.geometry().left(), 20 * 31 + 7);
    QTest::mouseClick(&e.widget<QRadioButton>(e.model.settings().JPFL[0]), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(e.stepWidgets(), 5 * 16);
    EXPECT_EQ(e.view().width(), narrow);
}

TEST(EditorView, LeavingBringsTheMainWindowBackAndOpeningAgainBuildsAfresh) {
    ViewedEditor e;
    QTest::mouseClick(&e.widget<QRadioButton>(e.model.settings().JPFL[2]), Qt::LeftButton);
    QTest::mouseClick(&e.widget<QPushButton>(e.model.commands().TUICHU), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(e.host.view(), nullptr);
    EXPECT_TRUE(e.v.view.isVisible());
    EXPECT_FALSE(e.model.loaded());

    QTest::mouseClick(&e.v.widget(e.v.form.BJCK), Qt::LeftButton);
    ASSERT_NE(e.host.view(), nullptr);
    EXPECT_EQ(e.stepWidgets(), 5 * 16);  // the window is made afresh: 2/4 again
    EXPECT_TRUE(e.widget<QRadioButton>(e.model.settings().JPFL[0]).isChecked());
    // The close box leaves by the same steps.
    e.view().close();
    QApplication::processEvents();
    EXPECT_EQ(e.host.view(), nullptr);
    EXPECT_TRUE(e.v.view.isVisible());
}
