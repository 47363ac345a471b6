#include "forms/Controls.h"

#include <algorithm>

#include "forms/ControlSystem.h"
#include "forms/Form.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"

namespace tessaly {

namespace {
int toInt(std::string_view value) { return static_cast<int>(numericValue(value)); }
}  // namespace

bool Button::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "Value") {
        if (parseTruth(value)) press();
        return true;
    }
    return Control::setProperty(prop, value);
}

void CheckBox::setValue(int value) {
    if (value < 0 || value > 2) throw FatalFailure(FailureKind::InvalidCall, "Value");
    if (value_ == value) return;
    value_ = value;
    changed(Prop::Value);
    fire(onClick);
}

std::optional<std::string> CheckBox::property(std::string_view prop) const {
    if (prop == "Value") return std::to_string(value_);
    return Control::property(prop);
}

bool CheckBox::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "Value") {
        setValue(toInt(value));
        return true;
    }
    return Control::setProperty(prop, value);
}

OptionButton::OptionButton(Form* form, std::string name, int index, std::string group)
    : Control(form, ControlKind::OptionButton, std::move(name), index), group_(std::move(group)) {}

void OptionButton::setValue(bool value) {
    if (value_ == value) return;
    value_ = value;
    if (value && form()) {
        for (OptionButton* other : form()->optionGroup(group_))
            if (other != this && other->value_) {
                other->value_ = false;
                other->changed(Prop::Value);
            }
    }
    changed(Prop::Value);
    if (value) fire(onClick);
}

std::optional<std::string> OptionButton::property(std::string_view prop) const {
    if (prop == "Value") return truthText(value_);
    return Control::property(prop);
}

bool OptionButton::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "Value") {
        setValue(parseTruth(value));
        return true;
    }
    return Control::setProperty(prop, value);
}

void ListControl::clear() {
    items_.clear();
    data_.clear();
    bool hadIndex = listIndex_ != -1;
    listIndex_ = -1;
    if (kind() == ControlKind::ListBox) text_.clear();
    changed(Prop::Items);
    if (hadIndex) changed(Prop::ListIndex);
}

void ListControl::addItem(std::string text) {
    items_.push_back(std::move(text));
    data_.push_back(0);
    changed(Prop::Items);
}

const std::string& ListControl::item(int i) const {
    if (i < 0 || i >= listCount()) throw FatalFailure(FailureKind::InvalidCall, fullName() + ".List");
    return items_[static_cast<std::size_t>(i)];
}

int32_t ListControl::itemData(int i) const {
    if (i < 0 || i >= listCount()) throw FatalFailure(FailureKind::InvalidCall, fullName() + ".ItemData");
    return data_[static_cast<std::size_t>(i)];
}

void ListControl::setItemData(int i, int32_t data) {
    if (i < 0 || i >= listCount()) throw FatalFailure(FailureKind::InvalidCall, fullName() + ".ItemData");
    data_[static_cast<std::size_t>(i)] = data;
}

void ListControl::setListIndex(int index) {
    if (index < -1 || index >= listCount()) throw FatalFailure(FailureKind::InvalidCall, fullName() + ".ListIndex");
    if (listIndex_ == index) return;
    listIndex_ = index;
    text_ = index >= 0 ? items_[static_cast<std::size_t>(index)] : (kind() == ControlKind::ListBox ? "" : text_);
    changed(Prop::ListIndex);
    fire(onClick);
}

void ListControl::userPick(int index) {
    if (index < 0 || index >= listCount()) throw FatalFailure(FailureKind::InvalidCall, fullName() + ".ListIndex");
    if (canTakeFocus()) setFocus();
    if (listIndex_ == index) {
        fire(onClick);
        return;
    }
    setListIndex(index);
}

const std::string& ListControl::text() const { return text_; }

void ListControl::setText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    if (kind() == ControlKind::ComboBox) {
        // Typed text chooses no entry unless it is one of them.
        int match = -1;
        for (int i = 0; i < listCount(); ++i)
            if (items_[static_cast<std::size_t>(i)] == text_) { match = i; break; }
        if (match != listIndex_) {
            listIndex_ = match;
            changed(Prop::ListIndex);
        }
    }
    changed(Prop::Text);
    if (onChange) onChange();
}

std::optional<std::string> ListControl::property(std::string_view prop) const {
    if (prop == "ListIndex") return std::to_string(listIndex_);
    if (prop == "ListCount") return std::to_string(listCount());
    if (prop == "Text") return text_;
    if (prop.starts_with("List(") || prop.starts_with("ItemData(")) {
        int i = toInt(prop.substr(prop.find('(') + 1));
        if (prop.starts_with("List(")) return item(i);
        return std::to_string(itemData(i));
    }
    return Control::property(prop);
}

bool ListControl::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "ListIndex") setListIndex(toInt(value));
    else if (prop == "Text") setText(std::string(value));
    else return Control::setProperty(prop, value);
    return true;
}

void TextBox::setText(std::string text) {
    if (maxLength_ > 0 && charLength(text) > static_cast<std::size_t>(maxLength_))
        text = charSubstr(text, 0, static_cast<std::size_t>(maxLength_));
    if (text_ == text) return;
    text_ = std::move(text);
    length_ = charLength(text_);
    selStart_ = 0;
    selLength_ = 0;
    changed(Prop::Text);
    if (onChange) onChange();
}

void TextBox::makeSeeThrough(int offsetX, int offsetY) {
    seeThrough_ = true;
    backdropX_ = offsetX;
    backdropY_ = offsetY;
    changed(Prop::Backdrop);
}

void TextBox::setSelStart(long start) {
    if (start < 0) throw FatalFailure(FailureKind::InvalidCall, fullName() + ".SelStart");
    selStart_ = std::min<std::size_t>(static_cast<std::size_t>(start), length());
    selLength_ = 0;
    changed(Prop::Selection);
}

void TextBox::setSelLength(long length) {
    if (length < 0) throw FatalFailure(FailureKind::InvalidCall, fullName() + ".SelLength");
    selLength_ = std::min<std::size_t>(static_cast<std::size_t>(length), this->length() - selStart_);
    changed(Prop::Selection);
}

std::string TextBox::selText() const { return charSubstr(text_, selStart_, selLength_); }

void TextBox::setSelText(const std::string& text) {
    const std::size_t inserted = charLength(text);
    const std::size_t caret = selStart_ + inserted;
    // A text that begins inside a character counts that piece as no
    // character, so its end in characters is not its end in bytes.
    const bool startsWhole = text_.empty() || (static_cast<unsigned char>(text_[0]) & 0xC0) != 0x80;
    bool differs;
    if (selLength_ == 0 && selStart_ == length_ && startsWhole) {
        // Writing at the end, as the keys do: what is there is not copied.
        differs = !text.empty();
        text_ += text;
        length_ += inserted;
    } else {
        std::string before = charSubstr(text_, 0, selStart_);
        std::string after = charSubstr(text_, selStart_ + selLength_);
        std::string whole = before + text + after;
        differs = whole != text_;
        text_ = std::move(whole);
        length_ = charLength(text_);
    }
    selStart_ = caret;
    selLength_ = 0;
    if (!differs) {
        changed(Prop::Selection);
        return;
    }
    changed(Prop::Text);
    if (onChange) onChange();
}

std::optional<std::string> TextBox::property(std::string_view prop) const {
    if (prop == "Text") return text_;
    if (prop == "SelStart") return std::to_string(selStart_);
    if (prop == "SelLength") return std::to_string(selLength_);
    if (prop == "SelText") return selText();
    if (prop == "MaxLength") return std::to_string(maxLength_);
    if (prop == "SeeThrough") return truthText(seeThrough_);
    return Control::property(prop);
}

bool TextBox::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "Text") setText(std::string(value));
    else if (prop == "SelStart") setSelStart(toInt(value));
    else if (prop == "SelLength") setSelLength(toInt(value));
    else if (prop == "SelText") setSelText(std::string(value));
    else if (prop == "MaxLength") setMaxLength(toInt(value));
    else return Control::setProperty(prop, value);
    return true;
}

void ScrollBar::setRange(int min, int max) {
    if (min < -32768 || min > 32767 || max < -32768 || max > 32767)
        throw FatalFailure(FailureKind::InvalidCall, fullName() + ".Max");
    min_ = min;
    max_ = max;
    changed(Prop::Value);  // the views take the new range with the value
    int low = std::min(min_, max_), high = std::max(min_, max_);
    if (value_ < low) setValue(low);
    else if (value_ > high) setValue(high);
}

void ScrollBar::setValue(int value) {
    if (value < std::min(min_, max_) || value > std::max(min_, max_))
        throw FatalFailure(FailureKind::InvalidCall, fullName() + ".Value");
    if (value_ == value) return;
    value_ = value;
    changed(Prop::Value);
    if (onChange) onChange();
}

std::optional<std::string> ScrollBar::property(std::string_view prop) const {
    if (prop == "Value") return std::to_string(value_);
    if (prop == "Min") return std::to_string(min_);
    if (prop == "Max") return std::to_string(max_);
    return Control::property(prop);
}

bool ScrollBar::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "Value") setValue(toInt(value));
    else if (prop == "Min") setMin(toInt(value));
    else if (prop == "Max") setMax(toInt(value));
    else return Control::setProperty(prop, value);
    return true;
}

void PictureBox::setPicture(int id) {
    if (picture_ == id) return;
    picture_ = id;
    changed(Prop::Picture);
}

std::optional<std::string> PictureBox::property(std::string_view prop) const {
    if (prop == "Picture") return std::to_string(picture_);
    return Control::property(prop);
}

bool PictureBox::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "Picture") setPicture(toInt(value));
    else return Control::setProperty(prop, value);
    return true;
}

TimerControl::TimerControl(Form* form, EventLoop& loop, std::string name, int index)
    : Control(form, ControlKind::Timer, std::move(name), index), loop_(loop) {
    setEnabled(false);
}

TimerControl::~TimerControl() { loop_.stopTimer(*this); }

void TimerControl::setTimerEnabled(bool enabled) {
    if (this->enabled() == enabled) return;
    setEnabled(enabled);
    rearm();
}

void TimerControl::setInterval(int intervalMs) {
    if (intervalMs < 0 || intervalMs > 65535) throw FatalFailure(FailureKind::InvalidCall, fullName() + ".Interval");
    interval_ = intervalMs;
    changed(Prop::Timer);
    rearm();
}

void TimerControl::rearm() {
    if (enabled() && interval_ > 0) loop_.startTimer(*this, interval_);
    else loop_.stopTimer(*this);
}

void TimerControl::timerDue() {
    if (running_ || !enabled()) return;
    running_ = true;
    try {
        if (onTimer) onTimer();
    } catch (...) {
        running_ = false;
        throw;
    }
    running_ = false;
}

std::optional<std::string> TimerControl::property(std::string_view prop) const {
    if (prop == "Interval") return std::to_string(interval_);
    return Control::property(prop);
}

bool TimerControl::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "Interval") setInterval(toInt(value));
    else if (prop == "Enabled") setTimerEnabled(parseTruth(value));
    else return Control::setProperty(prop, value);
    return true;
}

}  // namespace tessaly
