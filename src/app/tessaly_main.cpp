// The instrument: the headless program on Qt's event loop, in its windows,
// with the built-in synthesizer on the audio device.
#include <QFile>
#include <QIcon>
#include <QStringList>
#include <QStyleFactory>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

#include "ScreenshotOnStart.h"
#include "SoundSystem.h"
#include "TakeSavingStatus.h"
#include "export/ExportButtons.h"
#include "platform/posix/FlockInstanceLock.h"
#include "platform/qt/QtEndSignals.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtReadableFd.h"
#include "platform/audio/SystemMidiInput.h"
#include "runtime/FatalFailure.h"
#include "shell/AppFolder.h"
#include "shell/Instrument.h"
#include "shell/FatalEndSaves.h"
#include "shell/StartFile.h"
#include "ui/EditorView.h"
#include "ui/ChineseTranslations.h"
#include "ui/DesktopUrlOpener.h"
#include "ui/FarewellView.h"
#include "ui/GuardedApplication.h"
#include "ui/InstrumentStyle.h"
#include "ui/MainWindowView.h"
#include "ui/QtDialogs.h"
#include "ui/QtMessageBoxes.h"
#include "ui/JianpuView.h"
#include "ui/QtJianpuOutput.h"
#include "ui/ScoreEntryView.h"
#include "ui/SplashView.h"
#include "ui/WindowPlacement.h"

int main(int argc, char** argv) {
    tessaly::useChineseSystemLocale();
    tessaly::GuardedApplication application(argc, argv);
    tessaly::GuardedApplication::setApplicationName("tessaly");
    // The desktop matches the windows to the menu entry and its icon by this name.
    tessaly::GuardedApplication::setDesktopFileName(TESSALY_APP_ID);
    QIcon builtInIcon;
    for (int size : {16, 32, 48, 64, 128})
        builtInIcon.addFile(QStringLiteral(":/icons/" TESSALY_APP_ID "-%1.png").arg(size), QSize(size, size));
    tessaly::GuardedApplication::setWindowIcon(QIcon::fromTheme(TESSALY_APP_ID, builtInIcon));
    tessaly::GuardedApplication::setStyle(QStyleFactory::create("Fusion"));
    tessaly::GuardedApplication::setFont(tessaly::instrumentFont());
    tessaly::installChineseTranslations();

    const std::string appDir = tessaly::appFolderFromEnvironment();
    tessaly::QtEventLoop loop;
    tessaly::SoundSystem sound(appDir, loop);
    tessaly::QtMessageBoxes boxes;
    tessaly::FlockInstanceLock instanceLock;
    tessaly::QtDialogs dialogs;
    tessaly::DesktopUrlOpener browser;
    tessaly::PresetOpenDialog startDialogs(dialogs);
    tessaly::audio::SystemMidiInput keyboards;
    tessaly::Platform platform{loop,    sound.midi, sound.wave, boxes, instanceLock, sound.recorder, &startDialogs,
                               browser, tessaly::systemWallClock(), keyboards};

    tessaly::Instrument instrument(platform, appDir, tessaly::shippedDataFolder(TESSALY_BUILD_DATA_DIR));
    tessaly::MainWindowView window(instrument.form1);
    // A keyboard's message is played as soon as RtMidi's thread hands it over.
    tessaly::QtReadableFd keyboardMessages(keyboards.wakeFd(), [&keyboards, &instrument] {
        keyboards.acknowledgeWake();
        instrument.midiKeyboard.serve();
    });
    // Built before the start, so that they follow their models from the first change.
    tessaly::SplashView splash(instrument.DZQQD);
    tessaly::FarewellView farewell(instrument.Form3);
    tessaly::EditorViewHost editor(instrument.YYBJ);
    // Exports run on a worker with a program of their own; the instrument plays on.
    // Audio exports sound as the instrument does: the same SoundFont.
    const char* soundFont = std::getenv("TESSALY_SOUNDFONT");
    tessaly::ExportButtons exporting(instrument, tessaly::ExportButtons::Threading::Worker, soundFont ? soundFont : "");
    // Whatever ends the program by a run-time failure, the user's work is saved first.
    application.setBeforeFatalEnd(
        [&instrument] { return tessaly::savedWorkText(instrument.fatalEndSaves.runAll()); });
    tessaly::ScoreEntryView scoreEntry(instrument.YYLR);
    // The notation's window stands on its own: it stays up while the editor or
    // the entry window takes the main window's place.
    tessaly::JianpuView jianpu(instrument.JPXS, instrument.jianpu);
    jianpu.setNeighbour(&window);
    tessaly::QtJianpuOutput jianpuOutput(&jianpu);
    instrument.jianpu.setOutput(&jianpuOutput);
    // The main window comes back where it stood; the windows that take its
    // place open over it.
    tessaly::WindowPlacement placement(window);
    placement.standIn(scoreEntry);
    editor.setPlacement(&placement);
    boxes.setParentWindow(&window);
    dialogs.setParentWindow(&window);
    window.onUserClose = [&instrument] { instrument.close(); };
    // Told to end (logout, kill, Ctrl-C): the work is kept as after a failure,
    // then the program closes as by its close box.
    bool toldToEnd = false;
    tessaly::QtEndSignals endSignals([&instrument, &toldToEnd](int) {
        if (toldToEnd) return;
        toldToEnd = true;
        const std::string kept = tessaly::savedWorkText(instrument.fatalEndSaves.runAll());
        if (!kept.empty()) std::fprintf(stderr, "%s\n", kept.c_str());
        instrument.closeFromOutside();
    });
    // A program that ends on its own (a settings file it could not read) says
    // why first: its box stays up for its time.
    // The loop is left as it stands: Qt's quit() would close every window
    // first, and a window's close runs the program's handlers after its end.
    instrument.onEnd = [&boxes, &instrument] {
        boxes.waitForTimedBoxes();
        tessaly::GuardedApplication::exit(instrument.exitStatus());
    };
    // Without an audio device the program still plays into a silent sink; the
    // status line says so once the main window is up.
    instrument.form1.observe([&](tessaly::Control& form, tessaly::Prop prop) {
        if (prop != tessaly::Prop::Visible || !form.visible()) return;
        std::string status = sound.engine.takeStatusMessage();
        if (!status.empty()) instrument.form1.FJWZ.setCaption(status);
        sound.watchPeriod();
    });
    tessaly::showTakeSaving(sound.recorder, instrument.form1);
    // The device list tells the built-in synthesizer's period in effect.
    sound.onPeriod = [&instrument](int frames) {
        instrument.form1.ComDevies.setToolTip(tessaly::audioPeriodTip(frames));
    };
    // The SoundFont loads on a worker while the splash is up, so the sound is
    // ready when the main window opens the synthesizer; a second start, which
    // ends before its splash shows, loads nothing.
    instrument.DZQQD.observe([&](tessaly::Control& form, tessaly::Prop prop) {
        if (prop == tessaly::Prop::Visible && form.visible()) sound.midi.preloadSynth();
    });
    // A file named on the command line opens once the main window is first up,
    // after the activation's own handler, by the clicks a user would make.
    const QStringList arguments = tessaly::GuardedApplication::arguments();
    if (arguments.size() > 1) {
        const std::string startFile = QFile::encodeName(arguments.at(1)).toStdString();
        auto activate = instrument.form1.onActivate;
        instrument.form1.onActivate = [&instrument, &startDialogs, activate, startFile, pending = true]() mutable {
            activate();
            if (!pending || !instrument.activated()) return;
            pending = false;
            QTimer::singleShot(0, [&instrument, &startDialogs, startFile] {
                tessaly::openStartFile(instrument, startDialogs, startFile);
            });
        };
    }
    try {
        instrument.start();
    } catch (const tessaly::FatalFailure& failure) {
        application.reportFailure(failure.what());
        return tessaly::kFailureExitCode;
    }
    // The start itself ends the program when another instance is running,
    // after its notice has been up for its time.
    if (instrument.ended()) {
        boxes.waitForTimedBoxes();
        return instrument.exitStatus();
    }
    tessaly::screenshotOnStartIfAsked(instrument, {splash, window, farewell, editor, scoreEntry});
    return tessaly::GuardedApplication::exec();
}
