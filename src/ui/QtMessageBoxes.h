#pragma once
#include <QPointer>
#include <QWidget>
#include <vector>

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

    // Lets the timed boxes that are up run out before the program ends, so
    // that a box raised on the way out is seen for its whole time.
    void waitForTimedBoxes();

private:
    // The window given, or the active one while that is hidden (the editor
    // replaces the main window on the screen).
    QWidget* parentWindow() const;
    QPointer<QWidget> parent_;
    std::vector<QPointer<QWidget>> timedBoxes_;
};

}  // namespace tessaly
