#pragma once
#include <functional>
#include <utility>
#include <vector>

#include "forms/Form.h"

namespace tessaly {

// The bar on show in the music editor: the seven note boxes, the five rows of
// percussion boxes, the bar's scroll bar, number and label, and the text that
// explains the notes. Index 0 of each percussion row exists from the start;
// the other boxes are loaded and unloaded at run time.
class EditorBarPanel {
public:
    explicit EditorBarPanel(Form& form);

    PictureBox& Picture1;
    Label& Label9;
    ControlArray<TextBox> YF1;
    ControlArray<CheckBox> DJY1, DJY2, DJY3, DJY4, DJY5;
    ScrollBar& HScroll1;
    TextBox& XJZS;
    Label& XJXSS;

    // Row 1..5 of the percussion boxes (DJY1..DJY5); any other row is fatal.
    ControlArray<CheckBox>& DJY(int row);

    // Loads box k of a row beside box 0, with box 0's top and size; loading
    // a box that is there already is fatal.
    CheckBox& loadStep(int row, long k);
    void unloadStep(int row, long k);

    // Told of every box loaded (true) or unloaded (false): row, index.
    using StepObserver = std::function<void(int row, long index, bool loaded)>;
    int observeSteps(StepObserver observer);
    void unobserveSteps(int id);

private:
    void stepsChanged(int row, long index, bool loaded);

    Form& form_;
    std::vector<std::pair<int, StepObserver>> observers_;
    int nextObserver_ = 1;
};

// Where the rows of the bar stand inside Picture1: row r (0..11) at this top.
constexpr int kEditorRowPitch = 24;
constexpr int editorRowTop(int row) { return 2 + row * kEditorRowPitch; }
constexpr int kStepBoxWidth = 18;
constexpr int kStepBoxHeight = 20;

}  // namespace tessaly
