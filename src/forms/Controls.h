#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "platform/EventLoop.h"

namespace tessaly {

class Button : public Control {
public:
    Button(Form* form, std::string name, int index = -1) : Control(form, ControlKind::Button, std::move(name), index) {}
    // "Value = True" in code: the button's click.
    void press() { fire(onClick); }
    bool setProperty(std::string_view prop, std::string_view value) override;
};

// A check box, also in button style: Value 0, 1 or 2 (grayed).
class CheckBox : public Control {
public:
    CheckBox(Form* form, std::string name, int index = -1) : Control(form, ControlKind::CheckBox, std::move(name), index) {}
    int value() const { return value_; }
    void setValue(int value);
    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

protected:
    void clickAction() override { setValue(value_ == 0 ? 1 : 0); }

private:
    int value_ = 0;
};

// An option button; buttons with the same group name exclude each other.
class OptionButton : public Control {
public:
    OptionButton(Form* form, std::string name, int index = -1, std::string group = {});
    bool value() const { return value_; }
    void setValue(bool value);
    const std::string& group() const { return group_; }
    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

protected:
    void clickAction() override { setValue(true); }

private:
    std::string group_;
    bool value_ = false;
};

// A list box or a combo box: items with their data, ListIndex (-1 none), and
// for a combo the free text of its edit part.
class ListControl : public Control {
public:
    ListControl(Form* form, ControlKind kind, std::string name, int index = -1)
        : Control(form, kind, std::move(name), index) {}

    void clear();
    void addItem(std::string text);
    int listCount() const { return static_cast<int>(items_.size()); }
    const std::string& item(int i) const;
    int32_t itemData(int i) const;
    void setItemData(int i, int32_t data);

    int listIndex() const { return listIndex_; }
    // Fires Click when the index changes; an index beyond the list is fatal.
    void setListIndex(int index);
    // Picks the entry as the user does: Click also when it is already chosen.
    void userPick(int index);

    // The text: the chosen entry of a list, the edit text of a combo.
    const std::string& text() const;
    // A combo's edit text typed or set: fires Change when it differs.
    void setText(std::string text);

    std::function<void()> onChange;

    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

private:
    std::vector<std::string> items_;
    std::vector<int32_t> data_;
    int listIndex_ = -1;
    std::string text_;
};

class ListBox : public ListControl {
public:
    ListBox(Form* form, std::string name, int index = -1) : ListControl(form, ControlKind::ListBox, std::move(name), index) {}
};

class ComboBox : public ListControl {
public:
    ComboBox(Form* form, std::string name, int index = -1) : ListControl(form, ControlKind::ComboBox, std::move(name), index) {}
};

// A text box; positions and lengths count characters.
class TextBox : public Control {
public:
    TextBox(Form* form, std::string name, int index = -1) : Control(form, ControlKind::TextBox, std::move(name), index) {}
    const std::string& text() const { return text_; }
    void setText(std::string text);
    std::size_t length() const { return length_; }  // in characters
    std::size_t selStart() const { return selStart_; }
    std::size_t selLength() const { return selLength_; }
    void setSelStart(long start);
    void setSelLength(long length);
    std::string selText() const;
    // Replaces the selection, leaving the caret after the inserted text.
    void setSelText(const std::string& text);
    int maxLength() const { return maxLength_; }
    void setMaxLength(int length) { maxLength_ = length; }
    // The box shows the window's picture behind its text; the offsets are
    // what lies between the box's container and the window. Asking again
    // renews the backdrop (after the picture behind has changed).
    void makeSeeThrough(int offsetX, int offsetY);
    bool seeThrough() const { return seeThrough_; }

    std::function<void()> onChange;

    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

private:
    std::string text_;
    std::size_t length_ = 0;  // kept, as a long score is counted on every key
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
    int maxLength_ = 0;
    bool seeThrough_ = false;
    int backdropX_ = 0, backdropY_ = 0;
};

class Label : public Control {
public:
    Label(Form* form, std::string name, int index = -1) : Control(form, ControlKind::Label, std::move(name), index) {}
};

// A scroll bar: Value between Min and Max (Min may be the larger), all three
// 16-bit. A new bound that leaves the value outside moves the value with its
// Change event.
class ScrollBar : public Control {
public:
    ScrollBar(Form* form, std::string name, int index = -1) : Control(form, ControlKind::ScrollBar, std::move(name), index) {}
    int value() const { return value_; }
    int min() const { return min_; }
    int max() const { return max_; }
    void setRange(int min, int max);
    void setMin(long min) { setRange(static_cast<int>(min), max_); }
    void setMax(long max) { setRange(min_, static_cast<int>(max)); }
    void setValue(int value);
    std::function<void()> onChange;
    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

private:
    int value_ = 0, min_ = 0, max_ = 32767;
};

// A picture box or image, showing one of the program's pictures by id.
class PictureBox : public Control {
public:
    PictureBox(Form* form, std::string name, int index = -1) : Control(form, ControlKind::Picture, std::move(name), index) {}
    int picture() const { return picture_; }
    void setPicture(int id);
    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

private:
    int picture_ = 0;
};

// A periodic timer: Interval in whole milliseconds, Enabled. Setting the
// interval or enabling restarts the period. A tick never runs inside its own
// handler: a tick that falls due while the handler waits is dropped.
class TimerControl : public Control, private TimerClient {
public:
    TimerControl(Form* form, EventLoop& loop, std::string name, int index = -1);
    ~TimerControl() override;
    bool timerEnabled() const { return enabled(); }
    int interval() const { return interval_; }
    void setTimerEnabled(bool enabled);
    void setInterval(int intervalMs);
    std::function<void()> onTimer;
    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

private:
    void timerDue() override;
    void rearm();
    EventLoop& loop_;
    int interval_ = 0;
    bool running_ = false;
};

}  // namespace tessaly
