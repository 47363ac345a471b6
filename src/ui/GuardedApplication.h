#pragma once
#include <QApplication>
#include <QPointer>
#include <functional>
#include <string>

namespace tessaly {

// The application object that stands between Qt and the program's handlers: a
// run-time failure (or any exception) escaping a handler, from a widget or a
// timer, never unwinds through Qt. By default it ends the program with a
// message box that names the failure.
class GuardedApplication : public QApplication {
public:
    GuardedApplication(int& argc, char** argv);

    // What to do with the message of a failure instead of the default ending.
    using FailureHandler = std::function<void(const std::string& message)>;
    void setFailureHandler(FailureHandler handler) { handler_ = std::move(handler); }
    // Run once before the ending box: saves what it can of the user's work and
    // returns the lines that say where, which the box shows under the failure.
    void setBeforeFatalEnd(std::function<std::string()> save) { beforeEnd_ = std::move(save); }
    bool failed() const { return failed_; }

    bool notify(QObject* receiver, QEvent* event) override;

    // A failure caught outside event delivery (during start-up) ends the same way.
    void reportFailure(const std::string& message);

private:
    void endWithMessage(const std::string& message);
    bool belongsToFailureBox(QObject* receiver) const;

    FailureHandler handler_;
    std::function<std::string()> beforeEnd_;
    bool failed_ = false;
    QPointer<QWidget> failureBox_;
};

// The exit status of a program ended by a run-time failure.
constexpr int kFailureExitCode = 3;

}  // namespace tessaly
