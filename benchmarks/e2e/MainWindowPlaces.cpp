#include "MainWindowPlaces.h"

#include "forms/ControlSystem.h"
#include "forms/MainWindow.h"
#include "platform/testing/VirtualEventLoop.h"
#include "ui/MainWindowLayout.h"

MainWindowPlaces mainWindowPlaces() {
    tessaly::ControlSystem system;
    tessaly::VirtualEventLoop loop;
    tessaly::MainWindow form(system, loop);
    tessaly::placeMainWindowControls(form);
    auto centre = [](const tessaly::Control& c) {
        const tessaly::Geometry& g = c.geometry();
        return ControlCentre{g.left + g.width / 2, g.top + g.height / 2};
    };
    return {centre(form.Yuepu[2]), centre(form.Yuepu[0]), centre(form.SFYXYZ)};
}
