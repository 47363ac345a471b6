#pragma once
#include <QWidget>

namespace tessaly {

class ControlBinder;
class MainWindow;

// The chord page inside its panel Jiezhou(1): three rows of layer instrument,
// figure and lock; the order, volume and speeds; the two figures in a row, the
// buttons and the audition. Places the controls in the model, then binds a
// widget to each.
void buildChordPage(QWidget& panel, MainWindow& form, ControlBinder& binder);

}  // namespace tessaly
