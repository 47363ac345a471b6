#include "forms/ControlSystem.h"

#include <charconv>

#include "forms/Control.h"
#include "runtime/FatalFailure.h"

namespace tessaly {

void ControlSystem::setFocus(Control& control) {
    if (!control.canTakeFocus())
        throw FatalFailure(FailureKind::InvalidCall, "SetFocus " + control.fullName());
    if (focused_ == &control) return;
    Control* old = focused_;
    focused_ = &control;
    if (old && old->onLostFocus) old->onLostFocus();
    // A LostFocus handler may have moved the focus elsewhere already.
    if (focused_ == &control && control.onGotFocus) control.onGotFocus();
    focusChanged();
}

void ControlSystem::dropFocus(Control& control) {
    if (focused_ != &control) return;
    focused_ = nullptr;
    if (control.onLostFocus) control.onLostFocus();
    focusChanged();
}

int ControlSystem::observeFocus(std::function<void()> observer) {
    focusObservers_.emplace_back(nextFocusObserver_, std::move(observer));
    return nextFocusObserver_++;
}

void ControlSystem::unobserveFocus(int id) {
    std::erase_if(focusObservers_, [id](const auto& o) { return o.first == id; });
}

void ControlSystem::focusChanged() {
    auto observers = focusObservers_;  // an observer may add or remove observers
    for (auto& [id, observer] : observers) observer();
}

void ControlSystem::registerControl(Control& control) { controls_[control.fullName()] = &control; }

void ControlSystem::unregisterControl(Control& control) {
    if (focused_ == &control) focused_ = nullptr;
    auto it = controls_.find(control.fullName());
    if (it != controls_.end() && it->second == &control) controls_.erase(it);
}

Control* ControlSystem::findControl(const std::string& fullName) const {
    auto it = controls_.find(fullName);
    return it == controls_.end() ? nullptr : it->second;
}

void ControlSystem::registerVariable(const std::string& name, VariableAccess access) {
    variables_[name] = std::move(access);
}

std::optional<ControlSystem::VariablePath> ControlSystem::parseVariable(std::string_view path) {
    VariablePath out;
    std::size_t open = path.find('(');
    std::size_t dot = path.find('.');
    std::size_t nameEnd = std::min(open, dot);
    out.name = std::string(path.substr(0, nameEnd));
    std::size_t pos = nameEnd;
    if (open != std::string_view::npos && open == nameEnd) {
        std::size_t close = path.find(')', open);
        if (close == std::string_view::npos) return std::nullopt;
        std::string_view list = path.substr(open + 1, close - open - 1);
        while (!list.empty()) {
            std::size_t comma = list.find(',');
            std::string_view item = list.substr(0, comma);
            long value = 0;
            auto [ptr, ec] = std::from_chars(item.data(), item.data() + item.size(), value);
            if (ec != std::errc() || ptr != item.data() + item.size()) return std::nullopt;
            out.indexes.push_back(value);
            if (comma == std::string_view::npos) break;
            list.remove_prefix(comma + 1);
        }
        pos = close + 1;
    }
    if (pos < path.size()) {
        if (path[pos] != '.') return std::nullopt;
        out.field = std::string(path.substr(pos + 1));
    }
    return out;
}

Control* ControlSystem::resolveControl(std::string_view path, std::string& property) const {
    std::size_t dot = path.rfind('.');
    if (dot == std::string_view::npos) return nullptr;
    Control* control = findControl(std::string(path.substr(0, dot)));
    if (control) property = std::string(path.substr(dot + 1));
    return control;
}

std::optional<std::string> ControlSystem::get(std::string_view path) const {
    std::string property;
    if (Control* control = resolveControl(path, property)) return control->property(property);
    auto var = parseVariable(path);
    if (!var) return std::nullopt;
    auto it = variables_.find(var->name);
    if (it == variables_.end()) return std::nullopt;
    return it->second.get(var->indexes, var->field);
}

bool ControlSystem::set(std::string_view path, std::string_view value) {
    std::string property;
    if (Control* control = resolveControl(path, property)) return control->setProperty(property, value);
    auto var = parseVariable(path);
    if (!var) return false;
    auto it = variables_.find(var->name);
    if (it == variables_.end() || !it->second.set) return false;
    it->second.set(var->indexes, var->field, value);
    return true;
}

}  // namespace tessaly
