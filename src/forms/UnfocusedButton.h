#pragma once
#include "forms/Controls.h"

namespace tessaly {

// A button that never takes the focus: clicking it leaves the typing keys
// playing in the window that had them.
class UnfocusedButton : public Button {
public:
    using Button::Button;

protected:
    bool focusableKind() const override { return false; }
};

}  // namespace tessaly
