#pragma once
#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QtTest/QTest>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "Harness.h"
#include "ui/MainWindowView.h"
#include "ui/PictureView.h"
#include "ui/PlainTextFollower.h"

namespace tessaly::testing {

// Lets the text boxes' widgets catch up with their models, which they do a
// little after the handler that changed them.
inline void settleTextBoxes() { QTest::qWait(3 * PlainTextFollower::kCatchUpDelayMs); }

// The program in virtual time on the recording platform, its main window
// built on the offscreen platform before start so that it sees every change.
struct ViewedInstrument {
    Harness h{false};
    MainWindow& form = h.app->form1;
    MainWindowView view{form};

    ViewedInstrument() {
        h.app->start();
        while (!h.app->activated() && !h.app->ended()) h.loop.advance(1);  // the splash hands over
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }
    QWidget& widget(const Control& control) {
        QWidget* w = view.binder().widgetOf(control);
        if (!w) throw std::logic_error("no widget for " + control.fullName());
        return *w;
    }
    template <typename W>
    W& widget(const Control& control) {
        return dynamic_cast<W&>(widget(control));
    }
    int keyPicture(int offset) { return widget<PictureView>(form.Picture1[offset]).pictureId(); }
    // The score box as shown once the event loop has been free to catch up.
    QString score() {
        settleTextBoxes();
        return widget<QPlainTextEdit>(form.Text3).toPlainText();
    }
    // Messages since the last call, as the script driver prints them.
    std::vector<std::string> midi() {
        std::vector<std::string> out;
        for (const RecordedMidi& m : h.midiPort.take())
            out.push_back("@" + std::to_string(m.timeMs) + " " + std::to_string(m.message & 0xFF) + " " +
                          std::to_string((m.message >> 8) & 0xFF) + " " + std::to_string((m.message >> 16) & 0xFF));
        return out;
    }
    void key(QEvent::Type type, int qtKey, uint32_t scanCode = 0, bool autoRepeat = false, unsigned long time = 0) {
        QKeyEvent event(type, qtKey, Qt::NoModifier, scanCode, 0, 0, QString(), autoRepeat);
        event.setTimestamp(time);
        QApplication::sendEvent(&widget(form.SFYXYZ), &event);
    }
};

}  // namespace tessaly::testing
