#pragma once
#include "forms/Form.h"

namespace tessaly {

// The editor's recorder: the option group LUYINJI (0 play, 1 stop, 2 record,
// 3 save), its one-second timer Lyjsj, the time label LYSJ and the quality
// list yinzi. Its controls belong to the form it is built on.
class EditorRecorderPanel {
public:
    explicit EditorRecorderPanel(Form& form);

    ControlArray<OptionButton> LUYINJI;
    TimerControl& Lyjsj;
    Label& LYSJ;
    ComboBox& yinzi;
};

}  // namespace tessaly
