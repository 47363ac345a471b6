#include "forms/Form.h"

#include <algorithm>

namespace tessaly {

Form::Form(ControlSystem& system, EventLoop& loop, std::string name)
    : Control(this, ControlKind::Form, std::move(name), -1), system_(system), loop_(loop) {
    setVisible(false);
    system_.registerControl(*this);
}

Form::~Form() {
    for (auto& control : controls_) system_.unregisterControl(*control);
    system_.unregisterControl(*this);
}

void Form::removeControl(Control& control) {
    system_.unregisterControl(control);
    // Controls made at run time are the last ones: look from the end.
    auto it = std::find_if(controls_.rbegin(), controls_.rend(), [&](const auto& c) { return c.get() == &control; });
    if (it != controls_.rend()) controls_.erase(std::next(it).base());
}

void Form::removeAllControls() {
    for (auto& control : controls_) system_.unregisterControl(*control);
    controls_.clear();
}

std::vector<OptionButton*> Form::optionGroup(const std::string& group) const {
    std::vector<OptionButton*> out;
    for (const auto& c : controls_)
        if (auto* option = dynamic_cast<OptionButton*>(c.get()); option && option->group() == group)
            out.push_back(option);
    return out;
}

void Form::load() {
    if (loaded_) return;
    loaded_ = true;
    if (onLoad) onLoad();
}

void Form::show() {
    load();
    setVisible(true);
    activate();
}

void Form::hide() {
    Control* focused = system_.focused();
    if (focused && focused->form() == this) system_.dropFocus(*focused);
    setVisible(false);
}

void Form::unload() {
    if (!loaded_) return;
    if (onUnload) onUnload();
    // An unloaded form's timers no longer run.
    stopTimers();
    hide();
    loaded_ = false;
    restoreDesignState();
}

void Form::stopTimers(const TimerControl* keep) {
    for (auto& control : controls_)
        if (auto* timer = dynamic_cast<TimerControl*>(control.get()); timer && timer != keep)
            timer->setTimerEnabled(false);
}

void Form::activate() {
    if (onActivate) onActivate();
}

}  // namespace tessaly
