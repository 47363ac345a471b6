#pragma once
#include <functional>

namespace tessaly {

class MainWindow;
class MidiOut;
class StepBox;
struct SharedState;

// The rhythm page's editing: the grid of step boxes, the instrument of each
// track, the volume and the metre. Every change goes into StepTable at once,
// so that the next step plays what the page shows.
class PatternEditing {
public:
    PatternEditing(SharedState& state, MidiOut& midi, MainWindow& form);

    // Attaches the handlers to the page's design-time controls.
    void wire();
    // At start: boxes 1..16 of each row are loaded beside box 0 and shown.
    void loadGrid();

    void BZA_Click(int Index);
    void BZB_Click(int Index);
    void BZC_Click(int Index);
    void LblInst_Click(int Index);
    void LblInst_Change(int Index);
    void VsbVol_Click();
    void VsbVol_Change();
    void Option1_Click(int Index);
    // Paints the beat groups: two steps a beat, red and yellow in turn.
    void BZXS();

    // The chord half of a metre change, after the rhythm's: given the index
    // of the metre chosen (0 "2/4", 1 "3/4", 2 "4/4").
    std::function<void(int metre)> onMetreChanged;

private:
    void gridClick(int track, int index);
    void wireBox(int track, int index, StepBox& box);
    void showLastColumns(bool shown);

    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
};

}  // namespace tessaly
