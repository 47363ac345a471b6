#pragma once
#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "forms/Control.h"

namespace tessaly {

class ControlSystem;
class BoundWidgetEvents;

// Binds widgets to control models, any kind: a change of the model is shown
// by its widget with the widget's signals blocked, and what the user does to a
// widget happens to the model as the user's action (clicks, picks, typing,
// focus, keys, mouse). The widget's type must suit the control's kind.
class ControlBinder {
public:
    explicit ControlBinder(ControlSystem& system);
    ~ControlBinder();
    ControlBinder(const ControlBinder&) = delete;
    ControlBinder& operator=(const ControlBinder&) = delete;

    void bind(Control& control, QWidget& widget);

    QWidget* widgetOf(const std::string& fullName) const;
    QWidget* widgetOf(const Control& control) const { return widgetOf(control.fullName()); }
    // The control bound to this very widget.
    Control* controlOf(const QObject* widget) const;
    // The control bound to the widget or to its nearest bound ancestor.
    Control* owningControl(const QWidget* widget) const;
    // Every bound widget by the full name of its control.
    std::map<std::string, QWidget*> boundWidgets() const;

    ControlSystem& system() const { return system_; }

private:
    struct Binding {
        Control* control;
        QPointer<QWidget> widget;
        int observer;
    };
    void followModelFocus();

    ControlSystem& system_;
    int focusObserver_ = 0;
    std::unique_ptr<BoundWidgetEvents> events_;
    std::map<std::string, Binding> bindings_;
    std::map<const QObject*, Control*> byWidget_;
};

}  // namespace tessaly
