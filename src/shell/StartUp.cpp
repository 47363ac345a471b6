#include "shell/StartUp.h"

#include "shell/AppFolder.h"
#include "shell/Instrument.h"

namespace tessaly {

void StartUp::wire() {
    app_.DZQQD.onLoad = [this] { DZQQD_Form_Load(); };
    app_.DZQQD.Timer1.onTimer = [this] { DZQQD_Timer(); };
    app_.form1.Command1.onClick = [this] { Command1_Click(); };
    app_.Form3.Timer1.onTimer = [this] { Form3_Timer(); };
    app_.Form3.onClick = [this] { Form3_Click(); };
}

void StartUp::begin() {
    app_.DZQQD.load();
    if (!app_.ended()) app_.DZQQD.show();
}

void StartUp::DZQQD_Form_Load() {
    app_.DZQQD.setCornerRadius(35);
    // A second instance touches no file: it is refused before the folder is prepared.
    if (!app_.platform.instanceLock.acquire(app_.appDir())) {
        app_.platform.boxes.timedBox("提示", kAlreadyRunning, 5000);
        app_.end();
        return;
    }
    app_.state.AppDir = app_.appDir();
    removeLeftoverSaves(app_.appDir());
    if (auto problem = seedAppFolder(app_.appDir(), app_.shippedData())) {
        app_.platform.boxes.plainBox(*problem);
        app_.end(1);
        return;
    }
    app_.settings.writeDefaultsIfMissing();
    app_.DZQQD.Timer1.setTimerEnabled(true);
}

void StartUp::DZQQD_Timer() {
    app_.DZQQD.Timer1.setTimerEnabled(false);
    app_.form1.show();
    if (app_.ended()) return;
    app_.DZQQD.unload();
}

void StartUp::Command1_Click() { shutDown(false); }

void StartUp::Form1_Close() {
    shutDown(true);
    app_.form1.unload();
}

void StartUp::shutDown(bool closingWindow) {
    app_.midi.CloseMidi();
    // Nothing may send to the closed device during the farewell: the clocks
    // that play stop with it (the date clock alone goes on), and the window
    // takes no more keys or clicks.
    MainWindow& form = app_.form1;
    form.stopTimers(&form.Timer2);
    if (Control* focused = app_.controls.focused(); focused && focused->form() == &form)
        app_.controls.dropFocus(*focused);
    form.setEnabled(false);
    if (closingWindow) app_.platform.mci.send("CLOSE NN");
    app_.DZQQD.unload();
    app_.Form3.show();
    app_.Form3.Timer1.setTimerEnabled(true);
}

void StartUp::Form3_Timer() { app_.end(); }

void StartUp::Form3_Click() { app_.end(); }

}  // namespace tessaly
