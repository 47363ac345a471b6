#include "ScreenshotOnStart.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <cstdio>

namespace tessaly {

void screenshotOnStartIfAsked(QWidget& window) {
    QString path = qEnvironmentVariable("TESSALY_SCREENSHOT");
    if (path.isEmpty()) return;
    // Give the window time to be mapped and painted once.
    QTimer::singleShot(800, &window, [&window, path] {
        bool saved = window.grab().save(path, "PNG");
        std::fprintf(stderr, saved ? "screenshot saved to %s\n" : "could not save screenshot to %s\n",
                     qPrintable(path));
        QApplication::exit(saved ? 0 : 1);
    });
}

}  // namespace tessaly
