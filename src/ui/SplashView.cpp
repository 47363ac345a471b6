#include "ui/SplashView.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include "forms/SplashWindow.h"
#include "ui/TitleCards.h"
#include "ui/WindowShapes.h"

namespace tessaly {

namespace {

constexpr QSize kSplashSize(560, 320);

}  // namespace

SplashView::SplashView(SplashWindow& model) : model_(model), binder_(model.controlSystem()) {
    setObjectName(QStringLiteral("splash"));
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground, false);
    setFixedSize(kSplashSize);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
    // The corners follow the model's radius, which it announces as a change of shape.
    observer_ = model_.observe([this](Control&, Prop prop) {
        if (prop == Prop::Geometry) applyCorners();
    });
    binder_.bind(model_, *this);
    applyCorners();
}

SplashView::~SplashView() { model_.unobserve(observer_); }

void SplashView::applyCorners() { setMask(roundedRegion(size(), model_.cornerRadius())); }

void SplashView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    applyCorners();
}

void SplashView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawSplashCard(painter, rect());
}

}  // namespace tessaly
