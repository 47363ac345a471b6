#include "ui/QtMessageBoxes.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QTimer>

#include "ui/TextConversion.h"

namespace tessaly {

void QtMessageBoxes::timedBox(const std::string& title, const std::string& text, int timeoutMs) {
    auto* box = new QMessageBox(QMessageBox::Information, QString::fromStdString(title), toWidgetText(text),
                                QMessageBox::Ok, parent_.data());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::NonModal);
    box->show();
    QTimer::singleShot(timeoutMs, box, &QWidget::close);
}

void QtMessageBoxes::plainBox(const std::string& text) {
    QMessageBox box(QMessageBox::NoIcon, QGuiApplication::applicationDisplayName(), toWidgetText(text),
                    QMessageBox::Ok, parent_.data());
    box.exec();
}

}  // namespace tessaly
