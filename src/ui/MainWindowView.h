#pragma once
#include <QWidget>
#include <functional>

#include "ui/ControlBinder.h"

namespace tessaly {

class RestoreStrip;

class MainWindow;

// The main window on the screen: one widget for each control of the model,
// bound to it, over the background picture.
class MainWindowView : public QWidget {
public:
    explicit MainWindowView(MainWindow& model);

    ControlBinder& binder() { return binder_; }

    // The user closes the window.
    std::function<void()> onUserClose;

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildMelodyPanel(QWidget& panel);
    void buildShortcutPanel(QWidget& panel);
    void buildScoreButtons();
    void buildKeyboard();
    template <typename W>
    W& make(Control& control, QWidget& parent, const char* objectName = nullptr);

    MainWindow& model_;
    ControlBinder binder_;
    RestoreStrip* restoreStrip_ = nullptr;
};

}  // namespace tessaly
