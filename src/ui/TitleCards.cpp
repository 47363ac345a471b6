#include "ui/TitleCards.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QStringList>

#include "forms/MainWindow.h"
#include "ui/Pictures.h"

namespace tessaly {

namespace {

QFont face(const QStringList& families, int pixelSize, QFont::Weight weight) {
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

void drawBackdrop(QPainter& p, const QRectF& r) {
    QLinearGradient night(r.topLeft(), r.bottomRight());
    night.setColorAt(0, QColor(0x0e, 0x18, 0x2e));
    night.setColorAt(0.6, QColor(0x18, 0x36, 0x58));
    night.setColorAt(1, QColor(0x12, 0x40, 0x52));
    p.fillRect(r, night);
    QRadialGradient glow(QPointF(r.width() * 0.8, r.height() * 0.1), r.width() * 0.55);
    glow.setColorAt(0, QColor(0xff, 0xd9, 0x8a, 70));
    glow.setColorAt(1, QColor(0xff, 0xd9, 0x8a, 0));
    p.fillRect(r, glow);
}

// Five lines bending like a phrase, with a few notes riding on them.
void drawStaff(QPainter& p, const QRectF& r, qreal top) {
    auto lineAt = [&r, top](int line) {
        QPainterPath staff;
        const qreal y = top + line * 8;
        staff.moveTo(r.left(), y + 10);
        staff.cubicTo(r.width() * 0.3, y - 18, r.width() * 0.65, y + 22, r.right(), y - 6);
        return staff;
    };
    p.setPen(QPen(QColor(255, 255, 255, 34), 1));
    for (int line = 0; line < 5; ++line) p.drawPath(lineAt(line));
    const qreal at[] = {0.14, 0.24, 0.35, 0.81, 0.9};
    const int step[] = {3, 1, 2, 0, 2};
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 60));
    for (int i = 0; i < 5; ++i) {
        QPainterPath line = lineAt(step[i]);
        QPointF head = line.pointAtPercent(at[i]);
        p.save();
        p.translate(head);
        p.rotate(-20);
        p.drawEllipse(QPointF(0, 0), 5.5, 4);
        p.restore();
        p.fillRect(QRectF(head.x() + 4.5, head.y() - 26, 1.4, 26), QColor(255, 255, 255, 60));
    }
}

// Two octaves and a bit of keys, one of them held down.
void drawKeys(QPainter& p, const QRectF& bed) {
    const int whites = 17;
    const qreal w = bed.width() / whites;
    for (int i = 0; i < whites; ++i)
        drawPicture(p, QRectF(bed.left() + i * w, bed.top(), w, bed.height()), i == 9 ? kWhiteKeyDown : kWhiteKeyUp);
    // A black key after the 1st, 2nd, 4th, 5th and 6th white key of each octave.
    for (int i = 0; i < whites - 1; ++i) {
        const int inOctave = i % 7;
        if (inOctave == 2 || inOctave == 6) continue;
        const qreal bw = w * 0.6;
        drawPicture(p, QRectF(bed.left() + (i + 1) * w - bw / 2, bed.top(), bw, bed.height() * 0.6), kBlackKeyUp);
    }
}

}  // namespace

void drawSplashCard(QPainter& p, const QRect& area) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    const QRectF r(area);
    drawBackdrop(p, r);
    drawStaff(p, r, r.height() * 0.44);

    const QStringList latin{QStringLiteral("DejaVu Serif"), QStringLiteral("Noto Serif CJK SC"), QStringLiteral("Serif")};
    const QStringList cjk{QStringLiteral("Noto Sans CJK SC"), QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("Sans Serif")};

    const QRectF titleBox(r.left(), r.top() + r.height() * 0.08, r.width(), r.height() * 0.32);
    QPainterPath title;
    const QFont titleFont = face(latin, static_cast<int>(r.height() * 0.24), QFont::Bold);
    title.addText(0, 0, titleFont, QStringLiteral("Tessaly"));
    const QRectF box = title.boundingRect();
    title.translate(titleBox.center() - box.center());
    p.fillPath(title.translated(2, 3), QColor(0, 0, 0, 90));
    QLinearGradient gold(title.boundingRect().topLeft(), title.boundingRect().bottomLeft());
    gold.setColorAt(0, QColor(0xff, 0xf1, 0xc8));
    gold.setColorAt(1, QColor(0xe9, 0xa9, 0x3c));
    p.fillPath(title, gold);

    p.setFont(face(cjk, static_cast<int>(r.height() * 0.065), QFont::Normal));
    p.setPen(QColor(0xcf, 0xe0, 0xf2));
    const QRectF subtitle(r.left(), titleBox.bottom() - 2, r.width(), r.height() * 0.11);
    p.drawText(subtitle, Qt::AlignCenter, QStringLiteral("指尖上的乐队 · 键盘弹奏的电子琴"));

    const QRectF bed(r.left() + r.width() * 0.1, r.top() + r.height() * 0.64, r.width() * 0.8, r.height() * 0.24);
    p.fillRect(bed.adjusted(-6, -6, 6, 4), QColor(0x0a, 0x10, 0x1c, 150));
    drawKeys(p, bed);

    p.setFont(face(cjk, static_cast<int>(r.height() * 0.04), QFont::Normal));
    p.setPen(QColor(0x9f, 0xd0, 0xff, 200));
    p.drawText(QRectF(r.left(), bed.bottom() + 4, r.width(), r.bottom() - bed.bottom() - 6), Qt::AlignCenter,
               QStringLiteral("正在准备乐器……"));
    p.restore();
}

void drawFarewellFill(QPainter& p, const QRect& area) {
    p.save();
    const QRectF r(area);
    QLinearGradient warm(r.topLeft(), r.bottomLeft());
    warm.setColorAt(0, QColor(0xff, 0xf1, 0xc8));
    warm.setColorAt(0.45, QColor(0xff, 0xc4, 0x5a));
    warm.setColorAt(1, QColor(0xd9, 0x5b, 0x2b));
    p.fillRect(r, warm);
    QLinearGradient sheen(r.topLeft(), r.topRight());
    sheen.setColorAt(0, QColor(255, 255, 255, 0));
    sheen.setColorAt(0.5, QColor(255, 255, 255, 70));
    sheen.setColorAt(1, QColor(255, 255, 255, 0));
    p.fillRect(QRectF(r.left(), r.top(), r.width(), r.height() * 0.4), sheen);
    p.restore();
}

}  // namespace tessaly
