#pragma once
#include <QObject>
#include <QTimer>
#include <map>
#include <utility>

namespace tessaly {

class BeatRuler;
class Control;
class ControlBinder;
class MainWindow;
class StepBox;
class StepCell;

// Where the rhythm page's controls stand within the panel Jiezhou(2).
void placeRhythmPage(MainWindow& form);

// The rhythm page in the panel Jiezhou(2): the three track strips with their
// step cells, the instrument lists, volume, metre, start and auto-sync, the
// file buttons and the file list over the page. The cells of the boxes that
// are loaded at start join the page when the model loads them.
class RhythmPageView : public QObject {
public:
    RhythmPageView(QWidget& panel, MainWindow& model, ControlBinder& binder);
    ~RhythmPageView() override;

    // The cell of box `index` of a track; null before the box is loaded.
    StepCell* cell(int track, int index) const;

private:
    template <typename W>
    W& make(Control& control, QWidget& parent, const char* objectName = nullptr);
    void addCell(int track, StepBox& box);
    void addCaption(const char* text, int left, int top, int width, int height);
    // Rings the column just played while a clock carries the rhythm.
    void followPlayhead();

    QWidget& panel_;
    MainWindow& model_;
    ControlBinder& binder_;
    std::map<std::pair<int, int>, StepCell*> cells_;
    BeatRuler* ruler_ = nullptr;
    int loadObserver_ = 0;
    int metreObserver_ = 0;
    QTimer playhead_;
};

}  // namespace tessaly
