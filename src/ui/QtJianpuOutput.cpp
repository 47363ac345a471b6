#include "ui/QtJianpuOutput.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>

#include "drawing/JianpuPictures.h"

namespace tessaly {

std::string QtJianpuOutput::writePicture(const std::string& path, const JianpuReading& reading,
                                         const std::string& title) {
    return writeJianpuPicture(path, reading, title);
}

std::string QtJianpuOutput::print(const JianpuReading& reading, const std::string& title, bool& cancelled) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(title));
    printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                                      QPageLayout::Millimeter));
    QPrintDialog dialog(&printer, parent_);
    dialog.setWindowTitle(QStringLiteral("打印简谱"));
    if (dialog.exec() != QDialog::Accepted) {
        cancelled = true;
        return {};
    }
    cancelled = false;
    if (!printer.isValid()) return "打印机不可用。";
    printJianpu(printer, reading, title);
    return printer.printerState() == QPrinter::Error ? "打印出错。" : std::string();
}

}  // namespace tessaly
