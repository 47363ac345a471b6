#include "ui/WindowPlacement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace tessaly {

WindowPlacement::WindowPlacement(QWidget& main) : main_(&main) { main.installEventFilter(this); }

void WindowPlacement::standIn(QWidget& window) { window.installEventFilter(this); }

QRect WindowPlacement::mainArea() const {
    if (main_ && main_->isVisible()) return main_->frameGeometry();
    return lastMainFrame_;
}

void WindowPlacement::centreOverMain(QWidget& window) const {
    const QRect over = mainArea();
    if (!over.isValid()) return;
    QPoint place = over.center() - QPoint(window.width() / 2, window.height() / 2);
    // Whole on the screen, title bar first.
    if (QScreen* screen = QGuiApplication::screenAt(over.center()) ? QGuiApplication::screenAt(over.center())
                                                                  : QGuiApplication::primaryScreen()) {
        const QRect free = screen->availableGeometry();
        place.setX(std::clamp(place.x(), free.left(), std::max(free.left(), free.right() - window.width())));
        place.setY(std::clamp(place.y(), free.top(), std::max(free.top(), free.bottom() - window.height())));
    }
    window.move(place);
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
            lastMainFrame_ = window->frameGeometry();
        } else if (lastMainArea_.isValid()) {
            // Qt still holds the old place while the window manager has moved the
            // unmapped window: a place equal to Qt's own would not be sent at all.
            window->move(window->pos() + QPoint(1, 0));
            window->setGeometry(lastMainArea_);
        }
    } else if (event->type() == QEvent::Show) {
        centreOverMain(*window);
    }
    return false;
}

}  // namespace tessaly
