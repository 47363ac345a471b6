#include "ui/FarewellView.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include "forms/FarewellWindow.h"
#include "ui/TextConversion.h"
#include "ui/TitleCards.h"
#include "ui/WindowShapes.h"

namespace tessaly {

namespace {

constexpr QSize kFarewellSize(640, 280);
constexpr int kLetterSize = 220;

}  // namespace

FarewellView::FarewellView(FarewellWindow& model) : model_(model), binder_(model.controlSystem()) {
    setObjectName(QStringLiteral("farewell"));
    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setCursor(Qt::PointingHandCursor);
    setFixedSize(kFarewellSize);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
    observer_ = model_.observe([this](Control&, Prop prop) {
        if (prop == Prop::Caption) applyShape();
    });
    binder_.bind(model_, *this);
    applyShape();
}

FarewellView::~FarewellView() { model_.unobserve(observer_); }

void FarewellView::applyShape() {
    letters_ = centredTextPath(toWidgetText(model_.caption()), farewellFont(kLetterSize), size());
    setMask(textRegion(toWidgetText(model_.caption()), farewellFont(kLetterSize), size()));
    update();
}

void FarewellView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    applyShape();
}

void FarewellView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawFarewellFill(painter, rect());
    // A dark rim along the inside of each stroke sets the letters off whatever lies behind.
    painter.setPen(QPen(QColor(0x5a, 0x1e, 0x0c), 8));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(letters_);
}

}  // namespace tessaly
