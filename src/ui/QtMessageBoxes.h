#pragma once
#include <QPointer>
#include <QWidget>

#include "platform/MessageBoxes.h"

namespace tessaly {

// Message boxes on the screen: the timed box stays up beside the running
// program and closes by itself; the plain box waits for the user.
class QtMessageBoxes : public MessageBoxes {
public:
    // Boxes are centred over this window once it is given.
    void setParentWindow(QWidget* window) { parent_ = window; }

    void timedBox(const std::string& title, const std::string& text, int timeoutMs) override;
    void plainBox(const std::string& text) override;

private:
    // The window given, or the active one while that is hidden (the editor
    // replaces the main window on the screen).
    QWidget* parentWindow() const;
    QPointer<QWidget> parent_;
};

}  // namespace tessaly
