#include "ui/StepGridWidgets.h"

#include <QPainter>

#include "forms/RhythmPage.h"

namespace tessaly {

namespace {

QColor colourOf(int32_t formColour) {
    return QColor(formColour & 0xFF, (formColour >> 8) & 0xFF, (formColour >> 16) & 0xFF);
}

}  // namespace

StepCell::StepCell(StepBox& box, QWidget* parent) : QAbstractButton(parent), box_(box) {
    setCursor(Qt::PointingHandCursor);
    // The colour is the box's own property, which no binding shows.
    observer_ = box_.observe([this](Control&, Prop prop) {
        if (prop == Prop::BackColor) update();
    });
}

StepCell::~StepCell() { box_.unobserve(observer_); }

void StepCell::setPlaying(bool playing) {
    if (playing_ == playing) return;
    playing_ = playing;
    update();
}

void StepCell::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF cell = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor beat = colourOf(box_.backColor());
    if (isChecked()) {
        p.setBrush(beat);
        p.setPen(QPen(beat.lighter(130), 1));
        p.drawRoundedRect(cell, 2.5, 2.5);
        // A dark bar in the middle: a sounding step reads at a glance in either colour.
        p.fillRect(QRectF(cell.center().x() - 1.5, cell.top() + 4, 3, cell.height() - 8), QColor(40, 20, 0, 200));
    } else {
        QColor dim = beat;
        dim.setAlpha(55);
        p.setBrush(dim);
        p.setPen(QPen(QColor(beat.red(), beat.green(), beat.blue(), 150), 1));
        p.drawRoundedRect(cell, 2.5, 2.5);
    }
    if (playing_) {
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(255, 255, 255, 230), 2));
        p.drawRoundedRect(cell.adjusted(0.5, 0.5, -0.5, -0.5), 2.5, 2.5);
    }
}

void TrackStripView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor(8, 16, 28, 150));
    p.setPen(QPen(QColor(255, 255, 255, 60), 1));
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

BeatRuler::BeatRuler(const OptionButton& threeFour, int boxPitch, QWidget* parent)
    : QWidget(parent), threeFour_(threeFour), boxPitch_(boxPitch) {}

void BeatRuler::paintEvent(QPaintEvent*) {
    QPainter p(this);
    QFont small = font();
    small.setPixelSize(10);
    p.setFont(small);
    p.setPen(QColor(159, 208, 255));
    const int beats = threeFour_.value() ? 6 : 8;
    for (int beat = 0; beat < beats; ++beat) {
        const QRect over(beat * 2 * boxPitch_, 0, 2 * boxPitch_, height());
        p.drawText(over, Qt::AlignCenter, QString::number(beat + 1));
    }
}

}  // namespace tessaly
