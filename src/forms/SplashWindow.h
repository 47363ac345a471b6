#pragma once
#include "forms/Form.h"

namespace tessaly {

// The splash window DZQQD: a picture with rounded corners, shown while the
// program prepares its folder, handing over to the main window when its
// timer runs out.
class SplashWindow : public Form {
public:
    SplashWindow(ControlSystem& system, EventLoop& loop);

    // Radius of the rounded corners the view cuts the window to.
    int cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(int radius);

    TimerControl& Timer1;

    std::optional<std::string> property(std::string_view prop) const override;

private:
    int cornerRadius_ = 0;
};

}  // namespace tessaly
