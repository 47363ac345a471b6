#include "ui/RecorderView.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>

#include "forms/MainRecorderPanel.h"
#include "ui/ControlBinder.h"

namespace tessaly {

namespace {

// The band of the panel's coordinates that the row shows, and where on the
// window that band goes: right of the tabs, level with them.
constexpr int kBandTop = 170, kBandWidth = 250, kBandHeight = 34;
constexpr int kRowLeft = 430, kRowTop = 4;

void placeButtonAndTime(MainRecorderPanel& panel) {
    panel.BcLY.setGeometry({104, 173, 58, 27});
    panel.Label12.setGeometry({168, 175, 76, 23});
}

}  // namespace

RecorderImageView::RecorderImageView(QWidget* parent) : PictureView(parent) { setCursor(Qt::PointingHandCursor); }

void RecorderImageView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) p.setOpacity(0.55);
    const QRectF r = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    // A round plate under each shape.
    p.setPen(QPen(QColor(255, 255, 255, 90), 1));
    p.setBrush(QColor(255, 255, 255, 28));
    p.drawEllipse(r);
    const QRectF glyph = r.adjusted(r.width() * 0.28, r.height() * 0.28, -r.width() * 0.28, -r.height() * 0.28);
    p.setPen(Qt::NoPen);
    switch (pictureId()) {
    case kRecorderPlayPicture: {
        QPainterPath triangle;
        triangle.moveTo(glyph.left() + glyph.width() * 0.12, glyph.top());
        triangle.lineTo(glyph.right() + glyph.width() * 0.12, glyph.center().y());
        triangle.lineTo(glyph.left() + glyph.width() * 0.12, glyph.bottom());
        triangle.closeSubpath();
        p.fillPath(triangle, QColor(0x9b, 0xe0, 0xa8));
        break;
    }
    case kRecorderStopPicture: p.fillRect(glyph, QColor(0xdc, 0xe2, 0xec)); break;
    case kRecorderRecordPicture:
        p.setBrush(QColor(0xee, 0x55, 0x4c));
        p.drawEllipse(glyph.adjusted(-1, -1, 1, 1));
        break;
    default: break;
    }
}

void buildMainRecorderView(MainRecorderPanel& panel, QWidget& window, ControlBinder& binder) {
    placeButtonAndTime(panel);
    // Only the band's last kBandHeight pixels lie on the window; nothing of
    // it reaches above the window's top edge onto other controls.
    auto* row = new QWidget(&window);
    row->setObjectName(QStringLiteral("recorderRow"));
    row->setGeometry(kRowLeft, kRowTop - kBandTop, kBandWidth, kBandTop + kBandHeight);
    // The save button tells when there is no take to save.
    row->setStyleSheet(QStringLiteral("QPushButton#scoreButton:disabled { color: #7d8da0; background: #56677c;"
                                      " border-color: #56677c; }"
                                      "QLabel#recorderTime { color: #f4f8fc; }"));
    for (auto& [index, image] : panel.Image1) binder.bind(*image, *new RecorderImageView(row));
    auto* save = new QPushButton(row);
    save->setObjectName(QStringLiteral("scoreButton"));
    save->setAutoDefault(false);
    binder.bind(panel.BcLY, *save);
    auto* time = new QLabel(row);
    time->setObjectName(QStringLiteral("recorderTime"));
    time->setAlignment(Qt::AlignCenter);
    binder.bind(panel.Label12, *time);
}

}  // namespace tessaly
