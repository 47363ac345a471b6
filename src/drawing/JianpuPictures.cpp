#include "drawing/JianpuPictures.h"

#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <filesystem>

#include "drawing/JianpuPainter.h"
#include "jianpu/JianpuLayout.h"

namespace tessaly {

namespace {

constexpr double kPngEm = 60;  // pixels a digit height: 2160 pixels across, about 260 dpi on A4
constexpr double kSvgEm = 20;
constexpr int kPdfResolution = 600;

std::string extensionOf(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return extension;
}

JianpuLayout paperLayout(const JianpuReading& reading, const std::string& title) {
    JianpuLayoutOptions options;
    options.width = kJianpuPaperWidth;
    options.title = title;
    return layoutJianpu(reading, options);
}

void a4(QPagedPaintDevice& device) {
    device.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                                     QPageLayout::Millimeter));
}

bool writePng(const QString& path, const JianpuLayout& layout) {
    QImage image(static_cast<int>(layout.width * kPngEm), static_cast<int>(layout.height * kPngEm),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        paintJianpu(painter, layout, kPngEm);
    }
    return image.save(path, "PNG");
}

bool writeSvg(const QString& path, const JianpuLayout& layout, const QString& title) {
    QSvgGenerator svg;
    svg.setFileName(path);
    const QSize size(static_cast<int>(layout.width * kSvgEm), static_cast<int>(layout.height * kSvgEm));
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(0, 0), size));
    svg.setTitle(title);
    QPainter painter;
    if (!painter.begin(&svg)) return false;
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
    paintJianpu(painter, layout, kSvgEm);
    return painter.end();
}

bool writePdf(const QString& path, const JianpuLayout& layout, const QString& title) {
    QPdfWriter pdf(path);
    pdf.setResolution(kPdfResolution);
    pdf.setTitle(title);
    a4(pdf);
    paintJianpuPages(pdf, layout);
    return true;
}

}  // namespace

bool isJianpuPicturePath(const std::string& path) {
    const std::string extension = extensionOf(path);
    return extension == ".png" || extension == ".svg" || extension == ".pdf";
}

std::string writeJianpuPicture(const std::string& path, const JianpuReading& reading, const std::string& title) {
    const std::string extension = extensionOf(path);
    const JianpuLayout layout = paperLayout(reading, title);
    // Written beside the file first, so that a failed write leaves the old one.
    const std::string part = path + ".part";
    const QString partName = QString::fromStdString(part), qtitle = QString::fromStdString(title);
    bool written = false;
    if (extension == ".png") written = writePng(partName, layout);
    else if (extension == ".svg") written = writeSvg(partName, layout, qtitle);
    else if (extension == ".pdf") written = writePdf(partName, layout, qtitle);
    else return "不认识的图片格式：" + path + "（请用 .png、.svg 或 .pdf）";
    std::error_code error;
    if (written && std::filesystem::is_regular_file(part, error) && std::filesystem::file_size(part, error) > 0) {
        std::filesystem::rename(part, path, error);
        if (!error) return {};
    }
    std::filesystem::remove(part, error);
    return "无法写入文件：" + path;
}

void printJianpu(QPagedPaintDevice& device, const JianpuReading& reading, const std::string& title) {
    paintJianpuPages(device, paperLayout(reading, title));
}

}  // namespace tessaly
