#pragma once
#include <QWidget>
#include <functional>

#include "forms/Control.h"

namespace tessaly {

// Shows a changed property of a control on its widget.
using ApplyChange = std::function<void(Prop)>;

// The part of a binding that depends on the control's kind: connects the
// widget's user signals to the control and returns what shows the kind's own
// properties. Throws std::logic_error when the widget cannot show the kind.
ApplyChange bindKind(Control& control, QWidget& widget);

}  // namespace tessaly
