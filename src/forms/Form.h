#pragma once
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/ControlSystem.h"
#include "forms/Controls.h"
#include "runtime/FatalFailure.h"

namespace tessaly {

// Controls that repeat under one name with an index; elements can be added
// and removed at run time. A missing index is a fatal failure.
template <typename T>
class ControlArray {
public:
    T& operator[](long index) const {
        auto it = elements_.find(index);
        if (it == elements_.end())
            throw FatalFailure(FailureKind::SubscriptOutOfRange, "control array " + std::to_string(index));
        return *it->second;
    }
    bool contains(long index) const { return elements_.count(index) != 0; }
    void insert(long index, T& element) { elements_[index] = &element; }
    void erase(long index) { elements_.erase(index); }
    std::size_t count() const { return elements_.size(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

private:
    std::map<long, T*> elements_;
};

// A window's model: its controls, its own events, load, show, hide, unload.
class Form : public Control {
public:
    Form(ControlSystem& system, EventLoop& loop, std::string name);
    ~Form() override;

    ControlSystem& controlSystem() const { return system_; }
    EventLoop& loop() const { return loop_; }

    // Creates a control owned by the form and registers it by name.
    template <typename T, typename... Args>
    T& add(std::string name, Args&&... args) {
        return adopt(std::make_unique<T>(this, std::move(name), std::forward<Args>(args)...));
    }
    TimerControl& addTimer(std::string name, int index = -1) {
        return adopt(std::make_unique<TimerControl>(this, loop_, std::move(name), index));
    }
    // Adds element `index` to a control array.
    template <typename T, typename... Args>
    T& addElement(ControlArray<T>& array, std::string name, long index, Args&&... args) {
        T& element = add<T>(std::move(name), static_cast<int>(index), std::forward<Args>(args)...);
        array.insert(index, element);
        return element;
    }
    // Removes a control created at run time.
    void removeControl(Control& control);
    // Removes every control of the form, for a window whose controls are made
    // afresh at each opening.
    void removeAllControls();

    std::vector<OptionButton*> optionGroup(const std::string& group) const;

    bool loaded() const { return loaded_; }
    void load();
    void show();
    void hide();
    void unload();
    // The window becomes the active one.
    void activate();
    // Stops every timer of the window but the one named.
    void stopTimers(const TimerControl* keep = nullptr);

    std::function<void()> onLoad, onActivate, onUnload;

protected:
    // An unloaded window forgets what its user left in it: at the next load its
    // controls stand as they were made. Forms whose controls are all made at
    // each opening have nothing to restore.
    virtual void restoreDesignState() {}

private:
    template <typename T>
    T& adopt(std::unique_ptr<T> control) {
        T& ref = *control;
        system_.registerControl(ref);
        controls_.push_back(std::move(control));
        return ref;
    }

    ControlSystem& system_;
    EventLoop& loop_;
    bool loaded_ = false;
    std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace tessaly
