#pragma once

class QWidget;

namespace tessaly {

class ControlBinder;
class MainWindow;

// Where the clock, the credit line, the web buttons and the key map's hint
// stand on the main window; the key map's own places are the model's.
void placeStatusArea(MainWindow& form);

// The clock and the credit line in the tab row beside the web buttons, and
// the key map picture with its hint under the panels.
void buildStatusAreaView(QWidget& window, MainWindow& model, ControlBinder& binder);

}  // namespace tessaly
