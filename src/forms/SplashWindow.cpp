#include "forms/SplashWindow.h"

namespace tessaly {

SplashWindow::SplashWindow(ControlSystem& system, EventLoop& loop)
    : Form(system, loop, "DZQQD"), Timer1(addTimer("Timer1")) {
    Timer1.setInterval(3000);
    Timer1.setTimerEnabled(false);
}

void SplashWindow::setCornerRadius(int radius) {
    if (cornerRadius_ == radius) return;
    cornerRadius_ = radius;
    changed(Prop::Geometry);
}

std::optional<std::string> SplashWindow::property(std::string_view prop) const {
    if (prop == "CornerRadius") return std::to_string(cornerRadius_);
    return Form::property(prop);
}

}  // namespace tessaly
