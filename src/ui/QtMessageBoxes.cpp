#include "ui/QtMessageBoxes.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMessageBox>
#include <QTimer>

#include "ui/TextConversion.h"

namespace tessaly {

QWidget* QtMessageBoxes::parentWindow() const {
    if (parent_ && parent_->isVisible()) return parent_.data();
    if (QWidget* active = QApplication::activeWindow()) return active;
    return parent_.data();
}

void QtMessageBoxes::timedBox(const std::string& title, const std::string& text, int timeoutMs) {
    auto* box = new QMessageBox(QMessageBox::Information, QString::fromStdString(title), toWidgetText(text),
                                QMessageBox::Ok, parentWindow());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::NonModal);
    box->show();
    QTimer::singleShot(timeoutMs, box, &QWidget::close);
}

void QtMessageBoxes::plainBox(const std::string& text) {
    QMessageBox box(QMessageBox::NoIcon, QGuiApplication::applicationDisplayName(), toWidgetText(text),
                    QMessageBox::Ok, parentWindow());
    box.exec();
}

}  // namespace tessaly
