#include "forms/RhythmPage.h"

#include <stdexcept>

#include "forms/MainWindow.h"
#include "runtime/Text.h"

namespace tessaly {

void StepBox::setBackColor(int32_t color) {
    if (backColor_ == color) return;
    backColor_ = color;
    changed(Prop::BackColor);
}

std::optional<std::string> StepBox::property(std::string_view prop) const {
    if (prop == "BackColor") return std::to_string(backColor_);
    return CheckBox::property(prop);
}

bool StepBox::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "BackColor") {
        setBackColor(static_cast<int32_t>(numericValue(value)));
        return true;
    }
    return CheckBox::setProperty(prop, value);
}

namespace {
constexpr const char* kRowNames[RhythmPage::kTrackCount] = {"BZA", "BZB", "BZC"};
constexpr Geometry kFirstBox{0, 2, 11, 24};
}  // namespace

RhythmPage::RhythmPage(MainWindow& form) : form_(form) {
    for (int k = 0; k < kTrackCount; ++k) {
        form.addElement(PicTrack, "PicTrack", k);
        // Box 0 of each row is drawn on the form; the others are loaded at start.
        StepBox& first = form.addElement(track(k), kRowNames[k], 0);
        first.setGeometry(kFirstBox);
        form.addElement(LblInst, "LblInst", k);
    }
    const char* metres[3] = {"2/4", "3/4", "4/4"};
    for (int i = 0; i < 3; ++i) form.addElement(Option1, "Option1", i, "Option1").setCaption(metres[i]);
    Option1[2].setValue(true);
    form.addElement(Cmdcill, "Cmdcill", 0).setCaption("删 除");
    form.addElement(Cmdcill, "Cmdcill", 1).setCaption("保 存");

    // The file list lies hidden over the page until the pointer asks for it.
    form.File1.setVisible(false);
    form.File1.setToolTip("选中节奏后将自动添加该节奏序号，方便自动演奏时添加自动节奏！");
    form.BZDS.setInterval(83);
}

ControlArray<StepBox>& RhythmPage::track(int k) {
    switch (k) {
    case 0: return BZA;
    case 1: return BZB;
    case 2: return BZC;
    default: throw std::out_of_range("track");
    }
}

const ControlArray<StepBox>& RhythmPage::track(int k) const { return const_cast<RhythmPage*>(this)->track(k); }

StepBox& RhythmPage::loadStepBox(int k, int index) {
    ControlArray<StepBox>& row = track(k);
    const StepBox& first = row[0];
    StepBox& box = form_.addElement(row, kRowNames[k], index);
    // A loaded element copies its first element, but stays hidden until shown.
    box.setVisible(false);
    box.setGeometry(first.geometry());
    box.setCaption(first.caption());
    box.setBackColor(first.backColor());
    box.setValue(first.value());
    for (auto& [id, observer] : loadObservers_) observer(k, box);
    return box;
}

int RhythmPage::observeLoaded(std::function<void(int, StepBox&)> observer) {
    loadObservers_.emplace_back(nextObserver_, std::move(observer));
    return nextObserver_++;
}

void RhythmPage::unobserveLoaded(int id) {
    std::erase_if(loadObservers_, [id](const auto& entry) { return entry.first == id; });
}

}  // namespace tessaly
