#pragma once
#include <QWidget>

#include "ui/ControlBinder.h"

namespace tessaly {

class SplashWindow;

// The splash window on the screen: borderless, a drawn title card cut to the
// rounded corners the model asks for, shown and hidden as the model is.
class SplashView : public QWidget {
public:
    explicit SplashView(SplashWindow& model);
    ~SplashView() override;

    ControlBinder& binder() { return binder_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void applyCorners();

    SplashWindow& model_;
    ControlBinder binder_;
    int observer_;
};

}  // namespace tessaly
