#include "drawing/JianpuPainter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <map>

namespace tessaly {

namespace {

QFont fontOf(JianpuRole role, double pixels) {
    QFont font;
    font.setFamilies({QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Noto Sans Mono CJK SC")});
    font.setPixelSize(std::max(1, static_cast<int>(pixels + 0.5)));
    if (role == JianpuRole::Title || role == JianpuRole::Heading) font.setBold(true);
    return font;
}

QColor colourOf(const JianpuGlyph& glyph, int playing, const JianpuInk& ink) {
    if (glyph.event >= 0 && glyph.event == playing) return ink.playing;
    switch (glyph.role) {
    case JianpuRole::Mark: case JianpuRole::KeyChange: return ink.marks;
    case JianpuRole::ErrorToken: case JianpuRole::ErrorMessage: return ink.error;
    default: return ink.ink;
    }
}

bool within(double y, double top, double bottom) { return y >= top && y < bottom; }

}  // namespace

void paintJianpu(QPainter& painter, const JianpuLayout& layout, double em, double top, double bottom, int playing,
                 const JianpuInk& ink) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // Fonts by role and size, made once a paint.
    std::map<std::pair<int, int>, std::pair<QFont, QFontMetricsF>> fonts;
    auto font = [&](const JianpuGlyph& g) -> std::pair<QFont, QFontMetricsF>& {
        const auto key = std::pair(static_cast<int>(g.role), static_cast<int>(g.size * 100));
        auto it = fonts.find(key);
        if (it == fonts.end()) {
            QFont f = fontOf(g.role, g.size * em);
            it = fonts.emplace(key, std::pair(f, QFontMetricsF(f, painter.device()))).first;
        }
        return it->second;
    };

    // The playing note's columns stand on a light ground.
    if (playing >= 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink.playingBack);
        for (const JianpuGlyph& g : layout.glyphs)
            if (g.event == playing && (g.role == JianpuRole::Digit || g.role == JianpuRole::Dash) &&
                within(g.y, top, bottom))
                painter.drawRoundedRect(QRectF((g.x - 0.45) * em, (g.y - 0.95) * em, 0.9 * em, 1.3 * em), 0.15 * em,
                                        0.15 * em);
    }

    for (const JianpuGlyph& g : layout.glyphs) {
        if (!within(g.y, top, bottom)) continue;
        auto& [f, metrics] = font(g);
        painter.setFont(f);
        painter.setPen(colourOf(g, playing, ink));
        const QString text = QString::fromStdString(g.text);
        double x = g.x * em;
        if (g.centred) x -= metrics.horizontalAdvance(text) / 2;
        painter.drawText(QPointF(x, g.y * em), text);
        if (g.role == JianpuRole::ErrorToken) {
            const double width = metrics.horizontalAdvance(text);
            painter.drawLine(QPointF(x, (g.y + 0.15) * em), QPointF(x + width, (g.y + 0.15) * em));
        }
    }

    painter.setPen(Qt::NoPen);
    for (const JianpuDotMark& d : layout.dots) {
        if (!within(d.y, top, bottom)) continue;
        painter.setBrush(d.event >= 0 && d.event == playing ? ink.playing : ink.ink);
        painter.drawEllipse(QPointF(d.x * em, d.y * em), d.radius * em, d.radius * em);
    }
    for (const JianpuRule& r : layout.rules) {
        if (!within(r.y1, top, bottom)) continue;
        painter.setPen(QPen(ink.ink, std::max(1.0, r.thickness * em), Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(r.x1 * em, r.y1 * em), QPointF(r.x2 * em, r.y2 * em));
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink.ink, std::max(1.0, 0.05 * em)));
    for (const JianpuArc& a : layout.arcs) {
        if (!within(a.y, top, bottom)) continue;
        QPainterPath path(QPointF(a.x1 * em, a.y * em));
        const double middle = (a.x1 + a.x2) / 2 * em;
        path.quadTo(QPointF(middle, (a.y - 2 * a.height) * em), QPointF(a.x2 * em, a.y * em));
        painter.drawPath(path);
    }
    painter.restore();
}

void paintJianpuPages(QPagedPaintDevice& device, const JianpuLayout& layout) {
    QPainter painter(&device);
    const double em = device.width() / static_cast<double>(layout.width);
    const double pageEm = device.height() / em;
    const std::vector<float>& lines = layout.lineTops;
    double pageTop = 0;
    std::size_t next = 0;  // the first line not yet on a page
    for (bool first = true;; first = false) {
        // A page takes whole lines while they fit; what follows the last line
        // (the error, the margin) goes with it.
        std::size_t line = next;
        while (line < lines.size() && lines[line] + layout.lineHeight <= pageTop + pageEm) ++line;
        if (line == next && line < lines.size()) ++line;  // a line taller than a page
        const double pageBottom = line < lines.size() ? lines[line] : std::max<double>(layout.height, pageTop + 1);
        if (!first) device.newPage();
        painter.save();
        painter.translate(0, -pageTop * em);
        paintJianpu(painter, layout, em, pageTop, pageBottom);
        painter.restore();
        if (line >= lines.size()) break;
        next = line;
        pageTop = pageBottom;
    }
}

}  // namespace tessaly
