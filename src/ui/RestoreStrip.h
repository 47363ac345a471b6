#pragma once
#include <QWidget>

namespace tessaly {

class Control;

// In the small window almost no bare form is left to click: this strip along
// its right edge is bare form the user can find. A click on it is a click on
// the form, which gives the window its size back. It covers the controls
// beneath it and moves none of them.
class RestoreStrip : public QWidget {
public:
    RestoreStrip(QWidget& window, Control& form);

    static constexpr int kWidth = 24;
    // Shows the strip while the window has its small size.
    void follow(const QSize& windowSize);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Control& form_;
};

}  // namespace tessaly
