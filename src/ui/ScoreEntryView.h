#pragma once
#include <QWidget>

#include "ui/ControlBinder.h"

namespace tessaly {

class ScoreEntryWindow;

// The score entry window on the screen: the song name, the large score box
// over the window's picture, the help on the format beside it, and the
// three buttons. Closing it unloads the model, which brings the main window back.
class ScoreEntryView : public QWidget {
public:
    explicit ScoreEntryView(ScoreEntryWindow& model);

    ControlBinder& binder() { return binder_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    ScoreEntryWindow& model_;
    ControlBinder binder_;
};

}  // namespace tessaly
