#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QTest>

#include "forms/Form.h"
#include "platform/qt/QtEventLoop.h"
#include "runtime/FatalFailure.h"
#include "ui/ControlBinder.h"
#include "ui/GuardedApplication.h"
#include "ui/QtMessageBoxes.h"

using namespace tessaly;

namespace {

struct FailureRecorder {
    std::vector<std::string> messages;
    FailureRecorder() {
        app().setFailureHandler([this](const std::string& message) { messages.push_back(message); });
    }
    ~FailureRecorder() {
        app().setFailureHandler([](const std::string& message) { ADD_FAILURE() << "unexpected failure " << message; });
    }
    static GuardedApplication& app() { return *static_cast<GuardedApplication*>(QApplication::instance()); }
};

}  // namespace

TEST(GuardedApplication, AFailureInAClickHandlerIsReportedNotThrownThroughQt) {
    FailureRecorder recorder;
    QtEventLoop loop;
    ControlSystem system;
    Form form(system, loop, "Test");
    Button& button = form.add<Button>("Go");
    int clicks = 0;
    button.onClick = [&] {
        ++clicks;
        throw FatalFailure(FailureKind::SubscriptOutOfRange, "StepTable(10000)");
    };
    QPushButton widget;
    ControlBinder binder(system);
    binder.bind(button, widget);
    QTest::mouseClick(&widget, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    ASSERT_EQ(recorder.messages.size(), 1u);
    EXPECT_EQ(recorder.messages[0], "下标越界（StepTable(10000)）");
}

TEST(GuardedApplication, AFailureInATimerTickIsReported) {
    FailureRecorder recorder;
    QtEventLoop loop;
    ControlSystem system;
    Form form(system, loop, "Test");
    TimerControl& timer = form.addTimer("Tick");
    timer.onTimer = [&] {
        timer.setTimerEnabled(false);
        throw FatalFailure(FailureKind::Overflow, "TickMs");
    };
    timer.setInterval(1);
    timer.setTimerEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder.messages.empty(); }, 5000));
    ASSERT_EQ(recorder.messages.size(), 1u);
    EXPECT_EQ(recorder.messages[0], "溢出（TickMs）");
}

TEST(QtMessageBoxes, TheTimedBoxShowsWithoutBlockingAndClosesByItself) {
    QtMessageBoxes boxes;
    boxes.timedBox("提示", "乐谱格式错误", 50);  // returns at once
    QMessageBox* shown = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QMessageBox*>(w); box && box->isVisible()) shown = box;
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->windowTitle(), "提示");
    EXPECT_EQ(shown->text(), "乐谱格式错误");
    EXPECT_EQ(shown->icon(), QMessageBox::Information);
    QPointer<QMessageBox> box(shown);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !box || !box->isVisible(); }, 5000));
}
