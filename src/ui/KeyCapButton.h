#pragma once
#include <QRadioButton>

namespace tessaly {

// An option button drawn as a key cap, without the round indicator: the
// whole cap answers a click, not only its caption.
class KeyCapButton : public QRadioButton {
public:
    using QRadioButton::QRadioButton;

protected:
    bool hitButton(const QPoint& pos) const override { return rect().contains(pos); }
};

}  // namespace tessaly
