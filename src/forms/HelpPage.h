#pragma once
#include "forms/Form.h"

namespace tessaly {

class MainWindow;

// The help panel's controls, registered under Form1: the topics Option2(0..6)
// in one group and the box Text1 that shows the chosen topic.
class HelpPage {
public:
    explicit HelpPage(MainWindow& form);

    ControlArray<OptionButton> Option2;
    TextBox& Text1;
};

}  // namespace tessaly
