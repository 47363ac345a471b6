#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QScrollArea>
#include <QtTest/QTest>

#include "ViewedInstrument.h"
#include "ui/JianpuView.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

// The window opens on the model's button asking not to be activated, none of
// its widgets can hold the focus, and its notation grows with the score box.
TEST(JianpuView, OpensBesideTheMainWindowWithoutTheFocusAndFollowsTheScore) {
    ViewedInstrument v;
    JianpuView view(v.h.app->JPXS, v.h.app->jianpu);
    view.setNeighbour(&v.view);
    EXPECT_TRUE(view.windowFlags() & Qt::WindowDoesNotAcceptFocus);
    EXPECT_TRUE(view.testAttribute(Qt::WA_ShowWithoutActivating));

    v.form.JIANPU.userClick();
    QApplication::processEvents();
    ASSERT_TRUE(view.isVisible());
    // Whatever the platform does with the window (the screen test shows the
    // window manager leaves the main window active), the keys keep their control.
    EXPECT_EQ(v.h.app->controls.focused(), &v.form.SFYXYZ);
    for (QWidget* child : view.findChildren<QWidget*>()) EXPECT_EQ(child->focusPolicy(), Qt::NoFocus) << child->metaObject()->className();
    EXPECT_EQ(v.widget<QPushButton>(v.form.JIANPU).focusPolicy(), Qt::NoFocus);

    auto* scroll = view.findChild<QScrollArea*>();
    ASSERT_NE(scroll, nullptr);
    const int emptyHeight = scroll->widget()->height();
    std::string score;
    for (int i = 0; i < 200; ++i) score += "KC8KD4KE4";
    v.form.Text3.setText(score);
    QApplication::processEvents();
    EXPECT_GT(scroll->widget()->height(), emptyHeight + 10 * static_cast<int>(JianpuView::kEm));
    // The canvas is as wide as the window shows, so lines break where the user sees them end.
    EXPECT_LE(scroll->widget()->width(), scroll->viewport()->width());

    view.close();
    EXPECT_FALSE(v.h.app->JPXS.visible());
}
