#include "ui/ControlBinder.h"

#include <QSignalBlocker>
#include <QVariant>

#include "forms/ControlSystem.h"
#include "ui/BoundWidgetEvents.h"
#include "ui/KindBindings.h"

namespace tessaly {

namespace {

// Every property, to show a control as it stands when it is bound.
constexpr Prop kAllProps[] = {Prop::Items,   Prop::ListIndex, Prop::Value,   Prop::Caption,  Prop::Text,
                              Prop::Selection, Prop::Picture, Prop::ToolTip, Prop::Geometry, Prop::BackColor,
                              Prop::Enabled,   Prop::Visible,  Prop::Backdrop};

// The widget's style before a colour of its control's own replaced it.
constexpr const char* kStyleBeforeBackColor = "tessalyStyleBeforeBackColor";

// A control's own background, with text that stays readable on it; the
// system's colour gives back the style the view gave the widget (a window's
// style sheet colours every text on its picture).
void applyBackColor(const Control& control, QWidget& widget) {
    const int32_t color = control.backColor();
    const QVariant before = widget.property(kStyleBeforeBackColor);
    if (color == kSystemBackColor) {
        if (before.isValid()) {
            widget.setStyleSheet(before.toString());
            widget.setProperty(kStyleBeforeBackColor, QVariant());
        }
        return;
    }
    if (!before.isValid()) widget.setProperty(kStyleBeforeBackColor, widget.styleSheet());
    const int red = color & 0xFF, green = (color >> 8) & 0xFF, blue = (color >> 16) & 0xFF;
    const bool dark = red * 299 + green * 587 + blue * 114 < 128000;
    widget.setStyleSheet(QStringLiteral("background-color: rgb(%1,%2,%3); color: %4;")
                             .arg(red)
                             .arg(green)
                             .arg(blue)
                             .arg(dark ? QStringLiteral("#ffffff") : QStringLiteral("#101820")));
}

void applyCommon(const Control& control, QWidget& widget, Prop prop) {
    switch (prop) {
    case Prop::Enabled: widget.setEnabled(control.enabled()); break;
    case Prop::Visible: widget.setVisible(control.visible()); break;
    case Prop::ToolTip: widget.setToolTip(QString::fromStdString(control.toolTip())); break;
    case Prop::BackColor: applyBackColor(control, widget); break;
    case Prop::Geometry: {
        const Geometry& g = control.geometry();
        if (!widget.isWindow() && g.width > 0 && g.height > 0) widget.setGeometry(g.left, g.top, g.width, g.height);
        break;
    }
    default: break;
    }
}

}  // namespace

ControlBinder::ControlBinder(ControlSystem& system)
    : system_(system), events_(std::make_unique<BoundWidgetEvents>(*this)) {
    focusObserver_ = system_.observeFocus([this] { followModelFocus(); });
}

ControlBinder::~ControlBinder() {
    system_.unobserveFocus(focusObserver_);
    for (auto& [name, binding] : bindings_) {
        // A control removed at run time is gone from the registry: nothing to detach.
        if (system_.findControl(name) == binding.control) binding.control->unobserve(binding.observer);
        if (binding.widget) binding.widget->removeEventFilter(events_.get());
    }
}

void ControlBinder::bind(Control& control, QWidget& widget) {
    ApplyChange applyKind = bindKind(control, widget);
    QPointer<QWidget> guarded(&widget);
    auto apply = [guarded, applyKind, &control](Prop prop) {
        if (!guarded) return;
        QSignalBlocker blocker(guarded.data());
        applyKind(prop);
        applyCommon(control, *guarded, prop);
    };
    for (Prop prop : kAllProps) apply(prop);
    int observer = control.observe([apply](Control&, Prop prop) { apply(prop); });
    bindings_[control.fullName()] = Binding{&control, guarded, observer};
    byWidget_[&widget] = &control;
    QObject::connect(&widget, &QObject::destroyed, events_.get(), [this](QObject* gone) { byWidget_.erase(gone); });
    widget.installEventFilter(events_.get());
    if (control.hasFocus()) followModelFocus();
}

QWidget* ControlBinder::widgetOf(const std::string& fullName) const {
    auto it = bindings_.find(fullName);
    return it == bindings_.end() ? nullptr : it->second.widget.data();
}

Control* ControlBinder::controlOf(const QObject* widget) const {
    auto it = byWidget_.find(widget);
    return it == byWidget_.end() ? nullptr : it->second;
}

Control* ControlBinder::owningControl(const QWidget* widget) const {
    for (; widget; widget = widget->parentWidget())
        if (Control* control = controlOf(widget)) return control;
    return nullptr;
}

std::map<std::string, QWidget*> ControlBinder::boundWidgets() const {
    std::map<std::string, QWidget*> out;
    for (const auto& [name, binding] : bindings_)
        if (binding.widget) out[name] = binding.widget.data();
    return out;
}

void ControlBinder::followModelFocus() {
    Control* focused = system_.focused();
    if (!focused) return;
    QWidget* widget = widgetOf(*focused);
    if (widget && !widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
}

}  // namespace tessaly
