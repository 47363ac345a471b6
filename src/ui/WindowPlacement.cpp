#include "ui/WindowPlacement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace tessaly {

WindowPlacement::WindowPlacement(QWidget& main) : main_(&main) { main.installEventFilter(this); }

void WindowPlacement::standIn(QWidget& window) { window.installEventFilter(this); }

// The client area: Qt's idea of a frame is wrong once a window has been
// unmapped and mapped again by the window manager.
QRect WindowPlacement::mainArea() const {
    if (main_ && main_->isVisible()) return main_->geometry();
    return lastMainArea_;
}

void WindowPlacement::centreOverMain(QWidget& window) const {
    const QRect over = mainArea();
    if (!over.isValid()) return;
    QRect area(QPoint(0, 0), window.size());
    area.moveCenter(over.center());
    // Whole on the screen.
    if (QScreen* screen = QGuiApplication::screenAt(over.center()) ? QGuiApplication::screenAt(over.center())
                                                                  : QGuiApplication::primaryScreen()) {
        const QRect free = screen->availableGeometry();
        area.moveLeft(std::clamp(area.left(), free.left(), std::max(free.left(), free.right() - area.width())));
        area.moveTop(std::clamp(area.top(), free.top(), std::max(free.top(), free.bottom() - area.height())));
    }
    placeClientArea(window, area);
}

void WindowPlacement::placeClientArea(QWidget& window, const QRect& area) {
    // Qt still holds the old place of a window the window manager has moved
    // while it was unmapped: a place equal to Qt's own would not be sent at all.
    window.move(window.pos() + QPoint(1, 0));
    window.setGeometry(area);
}

bool WindowPlacement::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide) return false;
    if (event->spontaneous()) return false;
    auto* window = qobject_cast<QWidget*>(watched);
    if (!window || !window->isWindow()) return false;
    if (window == main_) {
        // Kept while hidden; given back before the window is mapped again, so
        // that the window manager takes it as the program's own position.
        // The client area is what is kept: an unmapped window's frame is not
        // known to Qt, so a frame position would be taken from the wrong origin.
        if (event->type() == QEvent::Hide) {
            lastMainArea_ = window->geometry();
        } else if (lastMainArea_.isValid()) {
            placeClientArea(*window, lastMainArea_);
        }
    } else if (event->type() == QEvent::Show) {
        centreOverMain(*window);
    }
    return false;
}

}  // namespace tessaly
