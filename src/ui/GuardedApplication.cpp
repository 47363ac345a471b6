#include "ui/GuardedApplication.h"

#include <QMessageBox>
#include <exception>

#include "runtime/FatalFailure.h"
#include "ui/QtDialogs.h"

namespace tessaly {

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    // Once failed, nothing of the program runs any more: its timers are still
    // and only the box that tells of the failure lives.
    if (failed_ && event->type() == QEvent::Timer && !belongsToFailureBox(receiver)) return true;
    std::string message;
    try {
        return QApplication::notify(receiver, event);
    } catch (const FatalFailure& failure) {
        message = failure.what();
    } catch (const std::exception& error) {
        message = error.what();
    }
    reportFailure(message);
    return true;
}

void GuardedApplication::reportFailure(const std::string& message) {
    if (handler_) handler_(message);
    else endWithMessage(message);
}

void GuardedApplication::endWithMessage(const std::string& message) {
    if (failed_) return;
    failed_ = true;
    QString text = QStringLiteral("运行时错误：%1").arg(QString::fromStdString(message));
    std::string kept;
    try {
        if (beforeEnd_) kept = beforeEnd_();
    } catch (...) {
        // Saving is a courtesy: the program ends all the same.
    }
    if (!kept.empty()) text += QStringLiteral("\n\n") + QString::fromStdString(kept);
    auto* box = new QMessageBox(QMessageBox::Critical, QStringLiteral("运行时错误"), text);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setStyleSheet(dialogStyleSheet());
    failureBox_ = box;
    box->exec();
    exit(kFailureExitCode);
}

bool GuardedApplication::belongsToFailureBox(QObject* receiver) const {
    for (QObject* o = receiver; o; o = o->parent())
        if (o == failureBox_) return true;
    return false;
}

}  // namespace tessaly
