#pragma once
#include "forms/Form.h"

namespace tessaly {

class MainWindow;

// The chord page of the main window (panel Jiezhou(1)): the three figure boxes
// with their locks, the order box, the buttons and the audition's timer. The
// controls belong to Form1 and are registered under it; the instrument lists
// Combo1..Combo3 and the volume HxYL stay with the main window.
class ChordPage {
public:
    explicit ChordPage(MainWindow& form);

    // Figures of layers 1, 2, 3 and their locks
    TextBox& Text4;
    TextBox& Text5;
    TextBox& Text7;
    CheckBox& Check4;
    CheckBox& Check7;
    CheckBox& Check9;

    // The chord order, and the two figures shown one behind the other
    TextBox& Text6;
    TextBox& Text2;

    Button& Command3;  // a random order and figures
    Button& Command4;  // the figures into the pattern file
    CheckBox& Check6;  // audition
    ControlArray<OptionButton> Option4;  // low, middle, high speed
    Label& Label13;
    Label& Label14;

    TimerControl& HXYS;
};

// The figures a page starts with, and that stay when no pattern file exists yet.
inline constexpr const char* kDefaultFigure1 = "LG--WC--WE--WG--";
inline constexpr const char* kDefaultFigure2 = "CC--CC--CC--CC--";
inline constexpr const char* kDefaultFigure3 = "CL--------------";

}  // namespace tessaly
