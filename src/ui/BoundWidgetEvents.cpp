#include "ui/BoundWidgetEvents.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <utility>

#include "forms/Control.h"
#include "forms/ControlSystem.h"
#include "ui/ControlBinder.h"
#include "ui/KeyTranslation.h"

namespace tessaly {

namespace {

int mouseButton(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

int16_t shiftOf(Qt::KeyboardModifiers modifiers) {
    return shiftMask(modifiers & Qt::ShiftModifier, modifiers & Qt::ControlModifier, modifiers & Qt::AltModifier);
}

bool takesMouseItself(const Control& control) {
    return control.kind() == ControlKind::Picture || control.kind() == ControlKind::Label ||
           control.kind() == ControlKind::Form;
}

}  // namespace

BoundWidgetEvents::BoundWidgetEvents(ControlBinder& binder) : binder_(binder) {
    releaseTimer_.setSingleShot(true);
    releaseTimer_.setInterval(kRepeatPressWaitMs);
    connect(&releaseTimer_, &QTimer::timeout, this, [this] { deliverPendingRelease(); });
}

bool BoundWidgetEvents::eventFilter(QObject* watched, QEvent* event) {
    Control* control = binder_.controlOf(watched);
    if (!control) return false;
    switch (event->type()) {
    case QEvent::FocusIn: focusIn(*control); break;
    case QEvent::FocusOut: focusOut(*control, event); break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: return key(*control, watched, event);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        if (drag(*control, event)) break;
        if (takesMouseItself(*control)) mouse(*control, watched, event);
        break;
    default: break;
    }
    return false;
}

void BoundWidgetEvents::focusIn(Control& control) {
    if (!control.hasFocus() && control.canTakeFocus()) control.setFocus();
}

void BoundWidgetEvents::focusOut(Control& control, QEvent* event) {
    // Another window or a popup taking the keyboard is no change of focus in the model.
    auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
    // Qt has already chosen the next focus widget; a bound one takes the
    // focus in its own FocusIn, anything else leaves the model with none.
    QWidget* next = QApplication::focusWidget();
    Control* nextControl = next ? binder_.owningControl(next) : nullptr;
    if (nextControl == &control) return;
    if (!nextControl || !nextControl->canTakeFocus()) binder_.system().dropFocus(control);
}

bool BoundWidgetEvents::key(Control& control, QObject* watched, QEvent* event) {
    // A key the focused child ignored travels up to its parents: only the
    // widget that has the focus speaks for it.
    QWidget* focus = QApplication::focusWidget();
    if (focus && focus != watched) return false;
    auto* keyEvent = static_cast<QKeyEvent*>(event);
    const bool down = event->type() == QEvent::KeyPress;
    auto& handler = down ? control.onKeyDown : control.onKeyUp;
    // A button that plays keys keeps them all: Space must not press it, Tab
    // must not carry the focus away.
    const bool keepsKeys = control.kind() == ControlKind::Button && (control.onKeyDown || control.onKeyUp);
    // Auto-repeat comes as press, release, press...: the model sees the
    // presses, and only the last release.
    if (!down && keyEvent->isAutoRepeat()) return keepsKeys;
    int code = virtualKeyOf(keyEvent->nativeScanCode(), keyEvent->key(),
                            keyEvent->modifiers().testFlag(Qt::KeypadModifier));
    if (down && pendingRelease_) {
        // Qt marks a repeat only when it finds the press already queued behind
        // the release; on a busy machine it often is not. The server stamps
        // both halves of a repeat with one time: such a pair is no release.
        if (pendingRelease_->widget == watched && pendingRelease_->scanCode == keyEvent->nativeScanCode() &&
            pendingRelease_->timestamp == keyEvent->timestamp()) {
            pendingRelease_.reset();
            releaseTimer_.stop();
        } else {
            deliverPendingRelease();
        }
    } else if (!down && pendingRelease_) {
        deliverPendingRelease();
    }
    if (code == 0 || !handler) return keepsKeys;
    auto keyCode = static_cast<int16_t>(code);
    if (!down && keepsKeys) {
        pendingRelease_ = PendingRelease{watched, keyCode, shiftOf(keyEvent->modifiers()), keyEvent->nativeScanCode(),
                                         keyEvent->timestamp()};
        releaseTimer_.start();
        return true;
    }
    handler(keyCode, shiftOf(keyEvent->modifiers()));
    // A handler that clears the code swallows the key.
    return keepsKeys || keyCode == 0;
}

bool BoundWidgetEvents::drag(Control& control, QEvent* event) {
    auto* mouseEvent = static_cast<QMouseEvent*>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (mouseEvent->button() != Qt::LeftButton || !control.onDragOver) return false;
        dragging_ = true;
        control.userDragOver();
        return true;
    case QEvent::MouseMove: {
        if (!dragging_ || !(mouseEvent->buttons() & Qt::LeftButton)) return false;
        // The pressed widget holds the mouse: find what lies under the pointer.
        QWidget* under = QApplication::widgetAt(mouseEvent->globalPosition().toPoint());
        Control* over = under ? binder_.owningControl(under) : nullptr;
        if (over && over->onDragOver) over->userDragOver();
        else if (over && over->onMouseMove) over->userMouseMove(1);
        return true;
    }
    case QEvent::MouseButtonRelease:
        if (!dragging_) return false;
        dragging_ = false;
        return true;
    default: return false;
    }
}

void BoundWidgetEvents::deliverPendingRelease() {
    releaseTimer_.stop();
    std::optional<PendingRelease> release = std::exchange(pendingRelease_, std::nullopt);
    if (!release || !release->widget) return;
    Control* control = binder_.controlOf(release->widget);
    if (!control || !control->onKeyUp) return;
    int16_t keyCode = release->keyCode;
    control->onKeyUp(keyCode, release->shift);
}

void BoundWidgetEvents::mouse(Control& control, QObject* watched, QEvent* event) {
    auto* widget = static_cast<QWidget*>(watched);
    auto* mouseEvent = static_cast<QMouseEvent*>(event);
    QPoint at = mouseEvent->position().toPoint();
    // An event that a bound child let through to its parents is the child's.
    for (QWidget* w = widget->childAt(at); w && w != widget; w = w->parentWidget())
        if (binder_.controlOf(w)) return;
    const int shift = shiftOf(mouseEvent->modifiers());
    const auto x = static_cast<float>(at.x()), y = static_cast<float>(at.y());
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (control.onMouseDown) control.onMouseDown(mouseButton(mouseEvent->button()), shift, x, y);
        break;
    case QEvent::MouseMove:
        if (control.onMouseMove)
            control.onMouseMove(static_cast<int>(mouseEvent->buttons() & (Qt::LeftButton | Qt::RightButton)) |
                                    (mouseEvent->buttons() & Qt::MiddleButton ? 4 : 0),
                                shift, x, y);
        break;
    default:
        if (control.onMouseUp) control.onMouseUp(mouseButton(mouseEvent->button()), shift, x, y);
        if (widget->rect().contains(at) && control.onClick) control.onClick();
        break;
    }
}

}  // namespace tessaly
