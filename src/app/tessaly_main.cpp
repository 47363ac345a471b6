// The instrument: the headless program on Qt's event loop, in its windows.
#include <QStandardPaths>
#include <QStyleFactory>
#include <filesystem>

#include "PlatformFactories.h"
#include "ScreenshotOnStart.h"
#include "platform/qt/QtEventLoop.h"
#include "runtime/FatalFailure.h"
#include "shell/Instrument.h"
#include "ui/GuardedApplication.h"
#include "ui/InstrumentStyle.h"
#include "ui/MainWindowView.h"
#include "ui/QtMessageBoxes.h"

namespace {

std::filesystem::path dataFolder() {
    std::filesystem::path folder =
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString();
    std::filesystem::create_directories(folder / "演奏记录");
    std::filesystem::create_directories(folder / "音效");
    return folder;
}

}  // namespace

int main(int argc, char** argv) {
    tessaly::GuardedApplication application(argc, argv);
    tessaly::GuardedApplication::setApplicationName("tessaly");
    tessaly::GuardedApplication::setApplicationDisplayName("Tessaly");
    tessaly::GuardedApplication::setStyle(QStyleFactory::create("Fusion"));
    tessaly::GuardedApplication::setFont(tessaly::instrumentFont());

    tessaly::QtEventLoop loop;
    tessaly::EventLog log;
    auto midi = tessaly::makeMidiPort(loop);
    auto wave = tessaly::makeWaveOut(log);
    tessaly::QtMessageBoxes boxes;
    tessaly::Platform platform{loop, *midi, *wave, boxes};

    tessaly::Instrument instrument(platform, dataFolder().string());
    tessaly::MainWindowView window(instrument.form1);
    boxes.setParentWindow(&window);
    window.onUserClose = [&instrument] { instrument.close(); };
    try {
        instrument.start();
    } catch (const tessaly::FatalFailure& failure) {
        application.reportFailure(failure.what());
        return tessaly::kFailureExitCode;
    }
    tessaly::screenshotOnStartIfAsked(window);
    return tessaly::GuardedApplication::exec();
}
