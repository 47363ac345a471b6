#include "forms/FarewellWindow.h"

namespace tessaly {

FarewellWindow::FarewellWindow(ControlSystem& system, EventLoop& loop)
    : Form(system, loop, "Form3"), Timer1(addTimer("Timer1")) {
    setCaption("再 见");
    Timer1.setInterval(4000);
    Timer1.setTimerEnabled(false);
}

}  // namespace tessaly
