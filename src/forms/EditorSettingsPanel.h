#pragma once
#include "forms/Form.h"

namespace tessaly {

// The settings of the bar on show: each track's instrument and volume (in
// Picture3), the key, the tempo, the time signature, the effects and their
// depth, and the output device.
class EditorSettingsPanel {
public:
    explicit EditorSettingsPanel(Form& form);

    PictureBox& Picture3;
    ControlArray<ComboBox> SYYQ;  // tracks 0..11
    ControlArray<ComboBox> YQYL;  // tracks 0..11
    ComboBox& DQYD;
    ComboBox& DQSUDU;
    ControlArray<OptionButton> JPFL;  // "2/4", "3/4", "4/4"
    ControlArray<CheckBox> Check1;    // vibrato, crescendo
    ScrollBar& HScroll3;
    Label& Label7;
    ComboBox& ComDevies;
};

}  // namespace tessaly
