#pragma once

class QWidget;

namespace tessaly {

class ControlBinder;
class MainWindow;

// Where the help panel's controls stand within the panel Jiezhou(4).
void placeHelpPage(MainWindow& form);

// The help panel in Jiezhou(4): the topics in a column, the text beside them,
// its paragraphs wrapped to the box.
void buildHelpPageView(QWidget& panel, MainWindow& model, ControlBinder& binder);

}  // namespace tessaly
