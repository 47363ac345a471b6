#pragma once
#include <QObject>

namespace tessaly {

class Control;
class ControlBinder;

// Watches bound widgets for what reaches a control as events rather than as
// widget signals: focus in and out, keys with their virtual key codes, and
// the mouse on pictures, labels and forms.
class BoundWidgetEvents : public QObject {
public:
    explicit BoundWidgetEvents(ControlBinder& binder) : binder_(binder) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void focusIn(Control& control);
    void focusOut(Control& control, QEvent* event);
    bool key(Control& control, QObject* watched, QEvent* event);
    void mouse(Control& control, QObject* watched, QEvent* event);

    ControlBinder& binder_;
};

}  // namespace tessaly
