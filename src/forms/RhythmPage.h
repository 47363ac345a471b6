#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/Form.h"

namespace tessaly {

class MainWindow;

// A colour as the form keeps it: red + 256 * green + 65536 * blue.
constexpr int32_t rgbColor(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }
constexpr int32_t kBeatRed = rgbColor(255, 0, 0);
constexpr int32_t kBeatYellow = rgbColor(255, 255, 0);

// A check box of the rhythm grid: one step of one track, coloured by its beat.
class StepBox : public CheckBox {
public:
    StepBox(Form* form, std::string name, int index = -1) : CheckBox(form, std::move(name), index) {}
    int32_t backColor() const { return backColor_; }
    void setBackColor(int32_t color);
    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

private:
    int32_t backColor_ = kBeatRed;
};

// The rhythm page's own controls, registered under Form1: the three track
// strips with their rows of step boxes, the instrument of each track, the
// metre and the two file buttons. The main window's model holds the rest
// (BzQd, Check5, VsbVol, File1, Label11, xuanyue); their design-time
// properties that belong to this page are set here.
class RhythmPage {
public:
    static constexpr int kTrackCount = 3;
    // Boxes 0..16 in a row; 16 exists only for the file's seventeenth character.
    static constexpr int kLastBox = 16;
    // Box i stands this far from its strip's left edge, times i.
    static constexpr int kBoxPitch = 13;

    explicit RhythmPage(MainWindow& form);

    ControlArray<PictureBox> PicTrack;
    ControlArray<StepBox> BZA;
    ControlArray<StepBox> BZB;
    ControlArray<StepBox> BZC;
    ControlArray<ComboBox> LblInst;
    ControlArray<OptionButton> Option1;
    ControlArray<Button> Cmdcill;

    // The row of boxes of track 0, 1 or 2.
    ControlArray<StepBox>& track(int k);
    const ControlArray<StepBox>& track(int k) const;

    // Creates box `index` of a track at run time as a copy of its box 0, not
    // yet visible, and tells the observers (the views that must show it).
    StepBox& loadStepBox(int k, int index);
    int observeLoaded(std::function<void(int track, StepBox& box)> observer);
    void unobserveLoaded(int id);

private:
    MainWindow& form_;
    std::vector<std::pair<int, std::function<void(int, StepBox&)>>> loadObservers_;
    int nextObserver_ = 1;
};

}  // namespace tessaly
