#include "ui/StatusAreaView.h"

#include <QLabel>
#include <QPushButton>

#include "forms/MainWindow.h"
#include "ui/ControlBinder.h"
#include "ui/PictureView.h"

namespace tessaly {

void placeStatusArea(MainWindow& form) {
    StatusArea& area = form.statusArea;
    // Below the score, beside the damper strip and the status line: the tab
    // row right of the tabs belongs to the recorder.
    area.SjXs.setGeometry({824, 225, 148, 18});
    area.Label8.setGeometry({686, 243, 286, 16});
    area.Command2[0].setGeometry({746, 6, 72, 28});
    area.Command2[1].setGeometry({824, 6, 72, 28});
    area.Label3.setGeometry({kKeyMapFolded.left, kKeyMapFolded.top + kKeyMapFolded.height, kKeyMapFolded.width, 14});
}

void buildStatusAreaView(QWidget& window, MainWindow& model, ControlBinder& binder) {
    StatusArea& area = model.statusArea;
    auto label = [&](Control& control, const char* name) {
        auto* widget = new QLabel(&window);
        widget->setObjectName(QString::fromUtf8(name));
        binder.bind(control, *widget);
        return widget;
    };
    label(area.SjXs, "clock");
    label(area.Label8, "creditLine");
    label(area.Label3, "keyMapHint")->setAlignment(Qt::AlignCenter);
    for (auto& [index, button] : area.Command2) {
        auto* widget = new QPushButton(&window);
        widget->setObjectName(QStringLiteral("webButton"));
        widget->setAutoDefault(false);
        widget->setFocusPolicy(Qt::NoFocus);
        binder.bind(*button, *widget);
    }
    // Made last, so that unfolded it lies over the panels and the score.
    auto* frame = new PictureView(&window);
    binder.bind(area.Picture2, *frame);
    auto* image = new PictureView(frame);
    image->setCursor(Qt::PointingHandCursor);
    binder.bind(area.Image3, *image);
    frame->raise();
}

}  // namespace tessaly
