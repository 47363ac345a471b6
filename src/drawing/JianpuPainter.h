#pragma once
#include <QColor>

#include "jianpu/JianpuLayout.h"

class QPagedPaintDevice;
class QPainter;

namespace tessaly {

struct JianpuInk {
    QColor ink{20, 20, 20};
    QColor marks{70, 80, 110};
    QColor playing{200, 40, 30};
    QColor playingBack{255, 226, 160};
    QColor error{210, 20, 20};
};

// Paints a layout at `em` pixels a digit height, from the painter's origin.
// Only what lies between the heights top and bottom (in em) is painted, so
// that a view paints the part it shows and a page its own lines. The event
// `playing` is marked.
void paintJianpu(QPainter& painter, const JianpuLayout& layout, double em, double top = 0, double bottom = 1e9,
                 int playing = -1, const JianpuInk& ink = {});

// Paints a layout on a paged device (a PDF file, a printer) page after page,
// breaking between lines, the layout's width filling the page's width
// inside its margins. The layout must have been made at `widthEm`.
void paintJianpuPages(QPagedPaintDevice& device, const JianpuLayout& layout);

// The width, in digit heights, a layout is made at for A4 paper and pictures.
constexpr float kJianpuPaperWidth = 36;

}  // namespace tessaly
