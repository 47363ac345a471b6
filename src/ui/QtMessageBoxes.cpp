#include "ui/QtMessageBoxes.h"

#include <QApplication>
#include <QGuiApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>

#include "ui/QtDialogs.h"
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
    box->setStyleSheet(dialogStyleSheet());
    box->setWindowModality(Qt::NonModal);
    box->show();
    // A precise timer: a coarse one may close the box up to 5 % early.
    QTimer::singleShot(timeoutMs, Qt::PreciseTimer, box, &QWidget::close);
    timedBoxes_.emplace_back(box);
}

void QtMessageBoxes::waitForTimedBoxes() {
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [this, &loop] {
        std::erase_if(timedBoxes_, [](const QPointer<QWidget>& box) { return box.isNull() || !box->isVisible(); });
        if (timedBoxes_.empty()) loop.quit();
    });
    poll.start(50);
    loop.exec();
}

void QtMessageBoxes::plainBox(const std::string& text) {
    // A box without a title of its own bears the name of the window it opens over.
    QWidget* over = parentWindow();
    const QString title = over ? over->window()->windowTitle() : QGuiApplication::applicationDisplayName();
    QMessageBox box(QMessageBox::NoIcon, title, toWidgetText(text), QMessageBox::Ok, over);
    box.setStyleSheet(dialogStyleSheet());
    box.exec();
}

}  // namespace tessaly
