#include "ScreenshotOnStart.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <functional>

#include "shell/Instrument.h"
#include "ui/EditorView.h"

namespace tessaly {

namespace {

// Time for a window to be mapped and painted once.
constexpr int kSettleMs = 800;
// Long enough for a few steps of a running rhythm.
constexpr int kRhythmRunMs = 1700;

// The scene stands: the script that started the program takes the picture
// of the whole screen, as the X server shows it, then ends the program.
void save(const QString& path) {
    QFile ready(path + QStringLiteral(".ready"));
    const bool told = ready.open(QIODevice::WriteOnly) && ready.write("ready\n") == 6;
    ready.close();
    std::fprintf(stderr, told ? "scene ready for %s\n" : "could not tell that the scene for %s is ready\n",
                 qPrintable(path));
}

// Tells the script once a modal box or dialog is up; its loop runs the timer.
void whenModalIsUp(const QString& path) {
    QObject::connect(qApp, &QApplication::focusChanged, qApp, [path] {
        QWidget* box = QApplication::activeModalWidget();
        if (!box || box->property("sceneArmed").toBool()) return;
        box->setProperty("sceneArmed", true);
        auto* timer = new QTimer(box);
        timer->setSingleShot(true);
        QObject::connect(timer, &QTimer::timeout, box, [path] { save(path); });
        timer->start(kSettleMs);
    });
}

// Runs the step once the main window has been activated.
void whenMainWindowIsUp(Instrument& instrument, QWidget& anchor, std::function<void()> step) {
    auto* poll = new QTimer(&anchor);
    QObject::connect(poll, &QTimer::timeout, &anchor, [&instrument, poll, step] {
        if (!instrument.activated()) return;
        poll->stop();
        poll->deleteLater();
        step();
    });
    poll->start(50);
}

// A few bars of a song written as a user writes them: notes typed into the
// boxes (each stored as the focus leaves it) and percussion boxes clicked.
void writeSomeBars(Instrument& instrument, bool fourFour) {
    EditorWindow& editor = instrument.YYBJ;
    if (fourFour) editor.settings().JPFL[2].userClick();
    const int slotCount = fourFour ? 32 : 16;
    struct Bar {
        const char* melody;
        const char* harmony;
        const char* bass;
    };
    const Bar twoFour[2] = {{"KCKCKGKGKAKAKG--", "WEWEWEWEWFWFWE--", "WC------WF------"},
                            {"KFKFKEKEKDKDKC--", "WDWDWCWCWBWBWC--", "WG------WC------"}};
    const Bar fourFourBars[2] = {{"KCKCKGKGKAKAKG--KFKFKEKEKDKDKC--", "WEWEWEWEWFWFWE--WDWDWCWCWBWBWC--",
                                  "WC------WF------WG------WC------"},
                                 {"KGKGKFKFKEKEKD--KGKGKFKFKEKEKD--", "WBWBWAWAWGWGWF--WBWBWAWAWGWGWF--",
                                  "WG------WG------WG------WG------"}};
    const Bar* bars = fourFour ? fourFourBars : twoFour;
    auto write = [&](int track, const char* notes) {
        TextBox& box = editor.bar().YF1[track];
        box.setFocus();
        box.setText(notes);
        editor.bar().XJZS.setFocus();
    };
    for (int bar = 1; bar >= 0; --bar) {
        editor.bar().HScroll1.setValue(bar);
        write(0, bars[bar].melody);
        write(1, bars[bar].harmony);
        write(4, bars[bar].bass);
        for (int slot = 0; slot < slotCount; slot += 4) editor.bar().DJY1[slot].userClick();
        for (int slot = 2; slot < slotCount; slot += 4) editor.bar().DJY3[slot].userClick();
        for (int slot = 4; slot < slotCount; slot += 8) editor.bar().DJY2[slot].userClick();
    }
    editor.settings().Check1[1].userClick();
    editor.settings().HScroll3.setValue(10);
}

}  // namespace

void screenshotOnStartIfAsked(Instrument& instrument, const ScreenshotWindows& windows) {
    const QString path = qEnvironmentVariable("TESSALY_SCREENSHOT");
    if (path.isEmpty()) return;
    const QString of = qEnvironmentVariable("TESSALY_SCREENSHOT_OF", QStringLiteral("main"));
    QWidget& main = windows.main;
    auto settled = [path](QObject* context) { QTimer::singleShot(kSettleMs, context, [path] { save(path); }); };
    if (of == QLatin1String("splash")) {
        // The splash stays up for its timer's 3 s.
        settled(&windows.splash);
    } else if (of == QLatin1String("farewell")) {
        whenMainWindowIsUp(instrument, main, [&instrument, &windows, settled] {
            instrument.form1.Command1.userClick();
            settled(&windows.farewell);
        });
    } else if (of == QLatin1String("rhythm")) {
        // The rhythm tab with the first built-in rhythm running for a while.
        whenMainWindowIsUp(instrument, main, [&instrument, &main, path] {
            instrument.form1.Xxk[2].userClick();
            instrument.form1.BzQd.userClick();
            QTimer::singleShot(kRhythmRunMs, &main, [path] { save(path); });
        });
    } else if (of == QLatin1String("editor") || of == QLatin1String("editor44")) {
        const bool fourFour = of == QLatin1String("editor44");
        whenMainWindowIsUp(instrument, main, [&instrument, &windows, settled, fourFour] {
            instrument.form1.BJCK.userClick();
            writeSomeBars(instrument, fourFour);
            settled(windows.editor.view());
        });
    } else if (of == QLatin1String("editor-import")) {
        // A demonstration score imported by DRYP: its file dialog is answered
        // from within its own loop, then the arranged song stands.
        whenMainWindowIsUp(instrument, main, [&instrument, &windows, settled] {
            instrument.form1.BJCK.userClick();
            const QString score = QString::fromStdString(instrument.state.AppDir + "演奏记录/小星星.txt");
            QTimer::singleShot(kSettleMs, windows.editor.view(), [&instrument, &windows, settled, score] {
                QTimer::singleShot(kSettleMs, qApp, [score] {
                    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                    if (!dialog) return;
                    // Typed as a user types it: the file is found at once.
                    if (auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) name->setText(score);
                    static_cast<QDialog*>(dialog)->accept();  // public there, and virtual
                });
                instrument.YYBJ.commands().DRYP.userClick();
                settled(windows.editor.view());
            });
        });
    } else if (of == QLatin1String("fatal-box")) {
        // A song is written, then settings are saved on bar 256, which no bar
        // past 255 can keep: the run-time failure's box, which says where the
        // song was kept. Once failed the program's timers are still; the box's
        // own timer tells that it stands.
        whenModalIsUp(path);
        whenMainWindowIsUp(instrument, main, [&instrument, &windows] {
            instrument.form1.BJCK.userClick();
            writeSomeBars(instrument, false);
            QTimer::singleShot(kSettleMs, windows.editor.view(), [&instrument] {
                EditorBarPanel& bar = instrument.YYBJ.bar();
                bar.HScroll1.setMax(300);
                bar.HScroll1.setValue(256);
                instrument.YYBJ.commands().BCBXJ.userClick();
            });
        });
    } else if (of == QLatin1String("input-box")) {
        // The editor's 设置 asks for the number of bars.
        whenModalIsUp(path);
        whenMainWindowIsUp(instrument, main, [&instrument, &windows] {
            instrument.form1.BJCK.userClick();
            QTimer::singleShot(kSettleMs, windows.editor.view(),
                               [&instrument] { instrument.YYBJ.commands().ZDXJZS.userClick(); });
        });
    } else if (of == QLatin1String("timed-box")) {
        // A score the player cannot read, sent to 试听: the self-closing 提示.
        whenMainWindowIsUp(instrument, main, [&instrument, &main, settled] {
            instrument.form1.Text3.setText("QQKC8TZ");
            instrument.form1.Yuepu[0].userClick();
            settled(&main);
        });
    } else if (of == QLatin1String("entry")) {
        whenMainWindowIsUp(instrument, main, [&instrument, &windows, settled] {
            instrument.form1.XINJIAN.userClick();
            instrument.YYLR.Text1.setText("KC8KCKGKGKAKAKG16\r\nKF8KFKEKEKDKDKC16\r\nTZ");
            instrument.YYLR.WJMC.setText("小星星");
            settled(&windows.scoreEntry);
        });
    } else if (of == QLatin1String("dialog")) {
        whenModalIsUp(path);
        whenMainWindowIsUp(instrument, main, [&instrument] { instrument.form1.Yuepu[2].userClick(); });
    } else {
        whenMainWindowIsUp(instrument, main, [&instrument, &main, settled, of] {
            MainWindow& form = instrument.form1;
            if (of == QLatin1String("shortcuts")) form.Xxk[5].userClick();
            if (of == QLatin1String("help")) form.Xxk[4].userClick();
            if (of == QLatin1String("chords")) form.Xxk[1].userClick();
            if (of == QLatin1String("keymap")) form.statusArea.Image3.userClick();
            if (of == QLatin1String("small")) form.userClick();
            settled(&main);
        });
    }
}

}  // namespace tessaly
