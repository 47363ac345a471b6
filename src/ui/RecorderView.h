#pragma once
#include <QWidget>

#include "ui/PictureView.h"

namespace tessaly {

class ControlBinder;
class MainRecorderPanel;

// A recorder image: the triangle, square or circle of its picture, drawn to
// fill the image, so that the smaller pressed size looks pushed in.
class RecorderImageView : public PictureView {
public:
    explicit RecorderImageView(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

// The main window's recorder on the screen: the three images, the save
// button and the elapsed time, in a row beside the tabs. The panel keeps its
// own coordinates (the images' row at top 174); the row that holds the views
// is shifted so that this row falls beside the tabs.
void buildMainRecorderView(MainRecorderPanel& panel, QWidget& window, ControlBinder& binder);

}  // namespace tessaly
