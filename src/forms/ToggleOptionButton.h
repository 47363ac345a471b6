#pragma once
#include "forms/Controls.h"

namespace tessaly {

// An option button drawn as a push button that stays down: a click on it
// while it is down lets it up again, and its Click handler runs either way.
class ToggleOptionButton : public OptionButton {
public:
    ToggleOptionButton(Form* form, std::string name, int index = -1, std::string group = {})
        : OptionButton(form, std::move(name), index, std::move(group)) {}

protected:
    void clickAction() override {
        if (!value()) {
            setValue(true);
            return;
        }
        setValue(false);
        fire(onClick);
    }
};

}  // namespace tessaly
