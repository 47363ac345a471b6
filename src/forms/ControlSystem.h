#pragma once
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

class Control;
class Form;

// A shared variable or table readable by name: "NoteBase", "KeyHeld(71)",
// "StepTable(3,0).ShortMsg". The accessor gets the indexes and the field.
struct VariableAccess {
    std::function<std::string(const std::vector<long>& indexes, std::string_view field)> get;
    std::function<void(const std::vector<long>& indexes, std::string_view field, std::string_view value)> set;
};

// The one focus owner across all forms, and the registry of every control and
// shared variable by name.
class ControlSystem {
public:
    Control* focused() const { return focused_; }
    void setFocus(Control& control);
    // Focus leaves a control that is disabled, hidden or destroyed.
    void dropFocus(Control& control);

    // Called whenever the focus owner has changed, so that the views of every
    // window can follow.
    int observeFocus(std::function<void()> observer);
    void unobserveFocus(int id);

    void registerControl(Control& control);
    void unregisterControl(Control& control);
    Control* findControl(const std::string& fullName) const;

    void registerVariable(const std::string& name, VariableAccess access);

    // "Form1.SD.ListIndex" or "NoteBase" or "StepTable(3,0).ShortMsg".
    std::optional<std::string> get(std::string_view path) const;
    // Sets a control property or a variable; false when the name is unknown.
    bool set(std::string_view path, std::string_view value);

private:
    struct VariablePath {
        std::string name;
        std::vector<long> indexes;
        std::string field;
    };
    static std::optional<VariablePath> parseVariable(std::string_view path);
    // Splits "Form1.Yuepu(0).Caption" into the control and the property.
    Control* resolveControl(std::string_view path, std::string& property) const;

    void focusChanged();

    Control* focused_ = nullptr;
    std::vector<std::pair<int, std::function<void()>>> focusObservers_;
    int nextFocusObserver_ = 1;
    std::map<std::string, Control*> controls_;
    std::map<std::string, VariableAccess> variables_;
};

}  // namespace tessaly
