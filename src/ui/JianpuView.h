#pragma once
#include <QWidget>

#include "ui/ControlBinder.h"

class QScrollArea;

namespace tessaly {

class JianpuPanel;
class JianpuWindow;

// The window "简谱" on the screen: the buttons over the notation, which only
// paints the panel's layout, the error line under it. It never takes the
// keyboard's focus, so the typing keys go on playing in the main window.
class JianpuView : public QWidget {
public:
    JianpuView(JianpuWindow& model, JianpuPanel& panel);
    ~JianpuView() override;

    ControlBinder& binder() { return binder_; }
    // The window opens beside this one the first time, where the screen has room.
    void setNeighbour(QWidget* window) { neighbour_ = window; }
    // Pixels a digit height.
    static constexpr double kEm = 26;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void changed();
    void followPlay();
    void placeBesideNeighbour();

    JianpuWindow& model_;
    JianpuPanel& panel_;
    ControlBinder binder_;
    QScrollArea* scroll_ = nullptr;
    QWidget* canvas_ = nullptr;
    int visibleObserver_ = 0;
    std::size_t shownLength_ = 0;
    QWidget* neighbour_ = nullptr;
    bool placed_ = false;
};

}  // namespace tessaly
