#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

class Form;
class ControlSystem;

enum class ControlKind {
    Form, Button, CheckBox, OptionButton, ListBox, ComboBox, TextBox, Label, ScrollBar, Picture, Timer, FileList
};

// What changed on a control, for the views that draw it.
enum class Prop { Value, Caption, Text, Selection, ListIndex, Items, Enabled, Visible, ToolTip, Geometry, Picture, Timer, BackColor, Backdrop };

// The background colour a control has until one is set: the system's own.
constexpr int32_t kSystemBackColor = static_cast<int32_t>(0x8000000F);

struct Geometry {
    int left = 0, top = 0, width = 0, height = 0;
    bool operator==(const Geometry&) const = default;
};

// A control: a piece of state with a value and its events. Setting a value in
// code fires the control's event exactly as the user's action would, and only
// when the value really changes. Views observe a control; the control never
// knows a view.
class Control {
public:
    Control(Form* form, ControlKind kind, std::string name, int index);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    ControlKind kind() const { return kind_; }
    const std::string& name() const { return name_; }
    int index() const { return index_; }
    Form* form() const { return form_; }
    // "Form1.Yuepu(0)", "Form1.SD", "Form1"
    std::string fullName() const;

    bool enabled() const { return enabled_; }
    bool visible() const { return visible_; }
    const std::string& caption() const { return caption_; }
    const std::string& toolTip() const { return toolTip_; }
    const Geometry& geometry() const { return geometry_; }
    // An RGB colour as red + 256 * green + 65536 * blue, or kSystemBackColor.
    int32_t backColor() const { return backColor_; }
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    void setCaption(std::string caption);
    void setToolTip(std::string tip);
    void setGeometry(Geometry geometry);
    void setBackColor(int32_t color);

    // Focus: a control can take it when it is of a focusable kind, enabled and
    // visible on a visible form. Asking a control that cannot is a fatal failure.
    bool canTakeFocus() const;
    bool hasFocus() const;
    void setFocus();

    // The user's click: focus first where it can go, then mouse down, mouse up
    // and the control's own click action.
    virtual void userClick();
    // The pointer moves over the control, with the button held after a press
    // on a drag source (a drag) or without (a move). A disabled or hidden
    // control hears neither.
    void userDragOver();
    void userMouseMove(int button);
    // Enabled and visible, on a window that is enabled: the user can reach it.
    bool reachable() const;

    // Events, set by the handlers of the logic.
    std::function<void()> onClick, onGotFocus, onLostFocus;
    std::function<void(int16_t& keyCode, int16_t shift)> onKeyDown, onKeyUp;
    std::function<void(int button, int shift, float x, float y)> onMouseDown, onMouseUp, onMouseMove;
    std::function<void()> onDragOver;

    // Observation by views.
    using Observer = std::function<void(Control&, Prop)>;
    int observe(Observer observer);
    void unobserve(int id);

    // Property access by name, for the registry (script driver, tests).
    // Truth values print as -1 and 0.
    virtual std::optional<std::string> property(std::string_view prop) const;
    // False when the property is unknown; the value is converted as code would.
    virtual bool setProperty(std::string_view prop, std::string_view value);

    ControlSystem& system() const;

protected:
    void changed(Prop prop);
    static void fire(const std::function<void()>& event) {
        if (event) event();
    }
    virtual bool focusableKind() const;
    // The kind's own reaction to a click of the user.
    virtual void clickAction() { fire(onClick); }

private:
    Form* form_;
    ControlKind kind_;
    std::string name_;
    int index_;
    bool enabled_ = true;
    bool visible_ = true;
    std::string caption_;
    std::string toolTip_;
    Geometry geometry_;
    int32_t backColor_ = kSystemBackColor;
    std::vector<std::pair<int, Observer>> observers_;
    int nextObserver_ = 1;
};

std::string truthText(bool value);
bool parseTruth(std::string_view value);

}  // namespace tessaly
