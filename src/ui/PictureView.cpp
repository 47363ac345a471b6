#include "ui/PictureView.h"

#include <QEvent>
#include <QPainter>

#include "ui/Pictures.h"

namespace tessaly {

PictureView::PictureView(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::NoFocus); }

void PictureView::setPictureId(int id) {
    if (pictureId_ == id) return;
    pictureId_ = id;
    update();
}

void PictureView::paintEvent(QPaintEvent*) {
    if (pictureId_ == 0) return;
    QPainter painter(this);
    // A disabled picture is dimmed: on the keyboard it tells that keys are dead.
    if (!isEnabled()) painter.setOpacity(0.55);
    drawPicture(painter, QRectF(rect()), pictureId_);
}

void PictureView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) update();
    QWidget::changeEvent(event);
}

}  // namespace tessaly
