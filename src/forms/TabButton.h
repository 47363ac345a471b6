#pragma once
#include "forms/Controls.h"

namespace tessaly {

// One tab of a row of tabs: an option button whose click also comes when it is
// already the open tab, so that clicking the open tab still runs its handler
// (that is how the user gives the focus back to the keyboard).
class TabButton : public OptionButton {
public:
    TabButton(Form* form, std::string name, int index, std::string group)
        : OptionButton(form, std::move(name), index, std::move(group)) {}

protected:
    void clickAction() override {
        if (value()) fire(onClick);
        else setValue(true);
    }
};

}  // namespace tessaly
