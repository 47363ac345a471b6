#pragma once
#include "forms/Form.h"

namespace tessaly {

// The farewell window Form3: borderless, shaped as its caption's letters
// "再 见"; its timer or a click ends the program.
class FarewellWindow : public Form {
public:
    FarewellWindow(ControlSystem& system, EventLoop& loop);

    TimerControl& Timer1;
};

}  // namespace tessaly
