#include "forms/Control.h"

#include <algorithm>

#include "forms/ControlSystem.h"
#include "forms/Form.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"

namespace tessaly {

std::string truthText(bool value) { return value ? "-1" : "0"; }

bool parseTruth(std::string_view value) {
    if (value == "True" || value == "true") return true;
    if (value == "False" || value == "false") return false;
    return numericValue(value) != 0;
}

Control::Control(Form* form, ControlKind kind, std::string name, int index)
    : form_(form), kind_(kind), name_(std::move(name)), index_(index) {}

Control::~Control() = default;

std::string Control::fullName() const {
    std::string own = index_ >= 0 ? name_ + "(" + std::to_string(index_) + ")" : name_;
    if (!form_ || form_ == this) return own;
    return form_->name() + "." + own;
}

ControlSystem& Control::system() const { return form_->controlSystem(); }

void Control::setEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    if (!enabled && hasFocus()) system().dropFocus(*this);
    changed(Prop::Enabled);
}

void Control::setVisible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    if (!visible && hasFocus()) system().dropFocus(*this);
    changed(Prop::Visible);
}

void Control::setCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    changed(Prop::Caption);
}

void Control::setToolTip(std::string tip) {
    if (toolTip_ == tip) return;
    toolTip_ = std::move(tip);
    changed(Prop::ToolTip);
}

void Control::setGeometry(Geometry geometry) {
    if (geometry_ == geometry) return;
    geometry_ = geometry;
    changed(Prop::Geometry);
}

void Control::setBackColor(int32_t color) {
    if (backColor_ == color) return;
    backColor_ = color;
    changed(Prop::BackColor);
}

bool Control::focusableKind() const {
    switch (kind_) {
    case ControlKind::Button:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::ListBox:
    case ControlKind::ComboBox:
    case ControlKind::TextBox:
    case ControlKind::ScrollBar:
    case ControlKind::FileList: return true;
    default: return false;
    }
}

bool Control::canTakeFocus() const {
    if (!focusableKind() || !enabled_ || !visible_) return false;
    return form_ && form_->visible() && form_->enabled();
}

bool Control::hasFocus() const { return form_ && system().focused() == this; }

void Control::setFocus() { system().setFocus(*this); }

bool Control::reachable() const {
    // A disabled window takes nothing from the user, whatever its controls say.
    const bool windowEnabled = !form_ || form_ == this || form_->enabled();
    return enabled_ && visible_ && windowEnabled;
}

void Control::userClick() {
    if (!reachable()) return;
    if (canTakeFocus()) setFocus();
    if (onMouseDown) onMouseDown(1, 0, 0, 0);
    if (onMouseUp) onMouseUp(1, 0, 0, 0);
    clickAction();
}

void Control::userDragOver() {
    if (reachable()) fire(onDragOver);
}

void Control::userMouseMove(int button) {
    if (reachable() && onMouseMove) onMouseMove(button, 0, 0, 0);
}

int Control::observe(Observer observer) {
    observers_.emplace_back(nextObserver_, std::move(observer));
    return nextObserver_++;
}

void Control::unobserve(int id) {
    std::erase_if(observers_, [id](const auto& o) { return o.first == id; });
}

void Control::changed(Prop prop) {
    // Copy: an observer may add or remove observers.
    auto observers = observers_;
    for (auto& [id, observer] : observers) observer(*this, prop);
}

std::optional<std::string> Control::property(std::string_view prop) const {
    if (prop == "Enabled") return truthText(enabled_);
    if (prop == "Visible") return truthText(visible_);
    if (prop == "Caption") return caption_;
    if (prop == "ToolTipText") return toolTip_;
    if (prop == "Left") return std::to_string(geometry_.left);
    if (prop == "Top") return std::to_string(geometry_.top);
    if (prop == "Width") return std::to_string(geometry_.width);
    if (prop == "Height") return std::to_string(geometry_.height);
    if (prop == "Index") return std::to_string(index_);
    if (prop == "BackColor") return std::to_string(backColor_);
    return std::nullopt;
}

bool Control::setProperty(std::string_view prop, std::string_view value) {
    Geometry g = geometry_;
    auto number = [&] { return static_cast<int>(numericValue(value)); };
    if (prop == "Enabled") setEnabled(parseTruth(value));
    else if (prop == "Visible") setVisible(parseTruth(value));
    else if (prop == "Caption") setCaption(std::string(value));
    else if (prop == "ToolTipText") setToolTip(std::string(value));
    else if (prop == "Left") { g.left = number(); setGeometry(g); }
    else if (prop == "Top") { g.top = number(); setGeometry(g); }
    else if (prop == "Width") { g.width = number(); setGeometry(g); }
    else if (prop == "Height") { g.height = number(); setGeometry(g); }
    else if (prop == "BackColor") setBackColor(static_cast<int32_t>(numericValue(value)));
    else return false;
    return true;
}

}  // namespace tessaly
