#include "ui/RhythmPageView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <optional>
#include <string>

#include "forms/MainWindow.h"
#include "runtime/Text.h"
#include "ui/ControlBinder.h"
#include "ui/StepGridWidgets.h"

namespace tessaly {

namespace {

constexpr int kListLeft = 8, kListWidth = 112;
constexpr int kStripLeft = 128, kStripTop = 23, kStripStep = 32, kStripHeight = 28;
constexpr int kStripWidth = (RhythmPage::kLastBox + 1) * RhythmPage::kBoxPitch + 2;
constexpr int kRight = 362, kRowHeight = 26;
constexpr int kFileTop = 124, kFileLeft = 70, kFileWidth = kStripLeft + kStripWidth - kFileLeft;
constexpr int kPlayheadMs = 30;

void place(Control& control, int left, int top, int width, int height) {
    control.setGeometry({left, top, width, height});
}

QString pageStyle() {
    return QStringLiteral(R"(
QPushButton#rhythmStart { color: #0f2a12; font-size: 14px; font-weight: bold; border-radius: 6px;
    border: 1px solid #3f8f4a; background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #a6ebae, stop:1 #52bf61); }
QPushButton#rhythmStart:checked { color: #ffffff; border-color: #8a2c1c;
    background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #e0745a, stop:1 #b0402a); }
QRadioButton { color: #e6eef7; background: transparent; spacing: 5px; }
QRadioButton::indicator { width: 12px; height: 12px; border: 1px solid #cfe0f2; border-radius: 7px;
    background: rgba(255,255,255,0.12); }
QRadioButton::indicator:checked { background: #ffd98a; border: 3px solid #3a5674; width: 8px; height: 8px; }
QLabel#rhythmFile { color: #ffe6a3; background: rgba(255,255,255,0.08); border: 1px dashed rgba(255,255,255,0.35);
    border-radius: 4px; padding: 0px 6px; }
QListWidget#rhythmFiles { color: #f4f8fc; background: rgba(8,16,28,0.92); border: 1px solid rgba(255,255,255,0.35);
    border-radius: 6px; padding: 2px; }
QListWidget#rhythmFiles::item:selected { color: #2a1a00; background: #ffd98a; }
)");
}

}  // namespace

void placeRhythmPage(MainWindow& form) {
    RhythmPage& page = form.rhythmPage;
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) {
        place(page.LblInst[k], kListLeft, kStripTop + 1 + k * kStripStep, kListWidth, kRowHeight);
        place(page.PicTrack[k], kStripLeft, kStripTop + k * kStripStep, kStripWidth, kStripHeight);
    }
    place(form.BzQd, kRight, 8, 92, 28);
    place(form.Check5, kRight + 100, 8, 94, 28);
    place(form.VsbVol, kRight + 36, 44, 70, 24);
    for (int i = 0; i < 3; ++i) place(page.Option1[i], kRight + 64 * i, 76, 62, 24);
    place(page.Cmdcill[0], kRight, 106, 92, kRowHeight);
    place(page.Cmdcill[1], kRight + 102, 106, 92, kRowHeight);
    place(form.xuanyue, kRight + 62, 138, 132, 24);
    // The list stands right on top of the label that calls it up.
    place(form.Label11, kFileLeft, kFileTop, kFileWidth, kRowHeight);
    place(form.File1, kFileLeft, 4, kFileWidth, kFileTop - 4);
}

RhythmPageView::RhythmPageView(QWidget& panel, MainWindow& model, ControlBinder& binder)
    : QObject(&panel), panel_(panel), model_(model), binder_(binder) {
    RhythmPage& page = model_.rhythmPage;
    placeRhythmPage(model_);
    panel_.setStyleSheet(pageStyle());
    // The pointer over the bare page sends the file list away.
    panel_.setMouseTracking(true);

    ruler_ = new BeatRuler(page.Option1[1], RhythmPage::kBoxPitch, &panel_);
    ruler_->setGeometry(kStripLeft, 5, kStripWidth, 16);
    metreObserver_ = page.Option1[1].observe([this](Control&, Prop prop) {
        if (prop == Prop::Value) ruler_->update();
    });
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) {
        make<QComboBox>(page.LblInst[k], panel_).setMaxVisibleItems(20);
        make<TrackStripView>(page.PicTrack[k], panel_);
        for (auto& [index, box] : page.track(k)) addCell(k, *box);
    }
    loadObserver_ = page.observeLoaded([this](int track, StepBox& box) { addCell(track, box); });

    make<QPushButton>(model_.BzQd, panel_, "rhythmStart").setAutoDefault(false);
    make<QCheckBox>(model_.Check5, panel_);
    addCaption("音量", kRight, 44, 34, 24);
    // The volume takes typed numbers too: editable before it is bound.
    auto* volume = new QComboBox(&panel_);
    volume->setEditable(true);
    volume->setInsertPolicy(QComboBox::NoInsert);
    binder_.bind(model_.VsbVol, *volume);
    for (auto& [index, option] : page.Option1) make<QRadioButton>(*option, panel_).setAutoExclusive(false);
    for (auto& [index, button] : page.Cmdcill) make<QPushButton>(*button, panel_, "scoreButton").setAutoDefault(false);
    addCaption("和弦乐器", kRight, 138, 60, 24);
    make<QComboBox>(model_.xuanyue, panel_).setMaxVisibleItems(20);

    addCaption("节奏文件", kListLeft, kFileTop, 60, kRowHeight);
    make<QLabel>(model_.Label11, panel_, "rhythmFile").setMouseTracking(true);
    make<QListWidget>(model_.File1, panel_, "rhythmFiles").raise();

    QObject::connect(&playhead_, &QTimer::timeout, this, [this] { followPlayhead(); });
    playhead_.start(kPlayheadMs);
}

RhythmPageView::~RhythmPageView() {
    model_.rhythmPage.unobserveLoaded(loadObserver_);
    model_.rhythmPage.Option1[1].unobserve(metreObserver_);
}

template <typename W>
W& RhythmPageView::make(Control& control, QWidget& parent, const char* objectName) {
    auto* widget = new W(&parent);
    if (objectName) widget->setObjectName(QString::fromUtf8(objectName));
    binder_.bind(control, *widget);
    return *widget;
}

void RhythmPageView::addCell(int track, StepBox& box) {
    QWidget* strip = binder_.widgetOf(model_.rhythmPage.PicTrack[track]);
    if (!strip) return;
    auto* cell = new StepCell(box, strip);
    binder_.bind(box, *cell);
    cell->show();
    cells_[{track, box.index()}] = cell;
}

void RhythmPageView::addCaption(const char* text, int left, int top, int width, int height) {
    auto* label = new QLabel(QString::fromUtf8(text), &panel_);
    label->setGeometry(left, top, width, height);
}

StepCell* RhythmPageView::cell(int track, int index) const {
    auto it = cells_.find({track, index});
    return it == cells_.end() ? nullptr : it->second;
}

void RhythmPageView::followPlayhead() {
    if (!panel_.isVisible()) return;
    auto number = [this](const char* name) {
        std::optional<std::string> value = model_.controlSystem().get(name);
        return value ? static_cast<int>(numericValue(*value)) : 0;
    };
    const bool carried = model_.BZDS.timerEnabled() ||
                         (model_.Check5.value() == 1 && (model_.Timer1.timerEnabled() || model_.Timer3.timerEnabled()));
    // RhythmStep names the step to come: the one before it has just sounded.
    const int next = number("RhythmStep");
    const int played = next == 0 ? number("RhythmLastStep") : next - 1;
    for (auto& [place, cell] : cells_) cell->setPlaying(carried && place.second == played);
}

}  // namespace tessaly
