#pragma once
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <cstdint>
#include <optional>

namespace tessaly {

class Control;
class ControlBinder;

// Watches bound widgets for what reaches a control as events rather than as
// widget signals: focus in and out, keys with their virtual key codes, and
// the mouse on pictures, labels and forms.
class BoundWidgetEvents : public QObject {
public:
    explicit BoundWidgetEvents(ControlBinder& binder);

    // How long a key release waits for the press that would make it part of
    // the server's auto-repeat.
    static constexpr int kRepeatPressWaitMs = 60;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void focusIn(Control& control);
    void focusOut(Control& control, QEvent* event);
    bool key(Control& control, QObject* watched, QEvent* event);
    void mouse(Control& control, QObject* watched, QEvent* event);
    // A press on a drag source starts a drag; while the button is held, every
    // movement is a DragOver of the control under the pointer, or a mouse
    // move of one that has no DragOver. True when the event was the drag's.
    bool drag(Control& control, QEvent* event);
    // The held-back release goes to its control now.
    void deliverPendingRelease();

    // A release of a key-playing button, held back until it is clear that no
    // repeated press of the same key, stamped with the same time, follows.
    struct PendingRelease {
        QPointer<QObject> widget;
        int16_t keyCode = 0;
        int16_t shift = 0;
        uint32_t scanCode = 0;
        unsigned long long timestamp = 0;
    };

    ControlBinder& binder_;
    bool dragging_ = false;
    std::optional<PendingRelease> pendingRelease_;
    QTimer releaseTimer_;
};

}  // namespace tessaly
