#pragma once
#include <QAbstractButton>
#include <QWidget>

#include "ui/PictureView.h"

namespace tessaly {

class OptionButton;
class StepBox;

// One box of the rhythm grid: a tall cell in the colour of its beat, filled
// bright when the step sounds and dim when it does not; the step just played
// is ringed.
class StepCell : public QAbstractButton {
public:
    StepCell(StepBox& box, QWidget* parent);
    ~StepCell() override;
    void setPlaying(bool playing);
    bool playing() const { return playing_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& pos) const override { return rect().contains(pos); }

private:
    StepBox& box_;
    int observer_ = 0;
    bool playing_ = false;
};

// The strip that holds one track's boxes: a dark rounded band.
class TrackStripView : public PictureView {
public:
    using PictureView::PictureView;

protected:
    void paintEvent(QPaintEvent* event) override;
};

// Beat numbers over the grid, one over each pair of steps the metre plays.
class BeatRuler : public QWidget {
public:
    BeatRuler(const OptionButton& threeFour, int boxPitch, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const OptionButton& threeFour_;
    int boxPitch_;
};

}  // namespace tessaly
