#pragma once
#include <QPainterPath>
#include <QWidget>

#include "ui/ControlBinder.h"

namespace tessaly {

class FarewellWindow;

// The farewell window on the screen: borderless and shaped as the letters of
// the model's caption, so that only the letters show; a click on them is the
// model's click.
class FarewellView : public QWidget {
public:
    explicit FarewellView(FarewellWindow& model);
    ~FarewellView() override;

    ControlBinder& binder() { return binder_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void applyShape();

    FarewellWindow& model_;
    ControlBinder binder_;
    QPainterPath letters_;
    int observer_;
};

}  // namespace tessaly
