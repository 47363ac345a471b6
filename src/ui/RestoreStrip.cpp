#include "ui/RestoreStrip.h"

#include <QMouseEvent>
#include <QPainter>

#include "forms/Control.h"
#include "forms/StatusArea.h"

namespace tessaly {

RestoreStrip::RestoreStrip(QWidget& window, Control& form) : QWidget(&window), form_(form) {
    setObjectName(QStringLiteral("restoreStrip"));
    setCursor(Qt::PointingHandCursor);
    setToolTip(QStringLiteral("点击恢复窗口大小"));
    hide();
}

void RestoreStrip::follow(const QSize& windowSize) {
    const bool small = windowSize.width() <= kSmallWidth && windowSize.height() <= kSmallHeight;
    setGeometry(windowSize.width() - kWidth, 0, kWidth, windowSize.height());
    setVisible(small);
    if (small) raise();
}

void RestoreStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(12, 24, 40, 235));
    painter.setPen(QColor(255, 255, 255, 70));
    painter.drawLine(0, 0, 0, height());
    // Two arrows pointing outwards: the window grows again.
    painter.setPen(QPen(QColor(0xff, 0xd9, 0x8a), 2));
    const int x = width() / 2, y = height() / 2;
    for (int dir : {-1, 1}) {
        const int tip = y + dir * 22;
        painter.drawLine(x, y + dir * 6, x, tip);
        painter.drawLine(x - 5, tip - dir * 5, x, tip);
        painter.drawLine(x + 5, tip - dir * 5, x, tip);
    }
}

void RestoreStrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) form_.userClick();
}

}  // namespace tessaly
