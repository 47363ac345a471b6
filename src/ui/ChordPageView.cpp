#include "ui/ChordPageView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "forms/MainWindow.h"
#include "ui/ControlBinder.h"
#include "ui/InstrumentStyle.h"

namespace tessaly {

namespace {

constexpr int kRowTop = 8, kRowStep = 32, kRowHeight = 26;
constexpr int kCaptionLeft = 8, kListLeft = 54, kListWidth = 140;
constexpr int kFigureLeft = 202, kFigureWidth = 170, kLockLeft = 380, kLockWidth = 86;
constexpr int kButtonLeft = 472, kButtonWidth = 84;
constexpr int kOrderRow = kRowTop + 3 * kRowStep + 4, kLastRow = kOrderRow + kRowStep;

void place(Control& control, int left, int top, int width, int height) {
    control.setGeometry({left, top, width, height});
}

void placeChordPage(MainWindow& form) {
    ChordPage& page = form.chordPage;
    ComboBox* lists[] = {&form.Combo1, &form.Combo2, &form.Combo3};
    TextBox* figures[] = {&page.Text4, &page.Text5, &page.Text7};
    CheckBox* locks[] = {&page.Check4, &page.Check7, &page.Check9};
    for (int i = 0; i < 3; ++i) {
        const int top = kRowTop + i * kRowStep;
        place(*lists[i], kListLeft, top, kListWidth, kRowHeight);
        place(*figures[i], kFigureLeft, top, kFigureWidth, kRowHeight);
        place(*locks[i], kLockLeft, top, kLockWidth, kRowHeight);
    }
    place(page.Command3, kButtonLeft, kRowTop, kButtonWidth, kRowHeight);
    place(page.Command4, kButtonLeft, kRowTop + kRowStep, kButtonWidth, kRowHeight);

    place(page.Label14, kCaptionLeft, kOrderRow, 60, kRowHeight);
    place(page.Text6, 70, kOrderRow, 124, kRowHeight);
    place(page.Label13, kFigureLeft, kOrderRow, 34, kRowHeight);
    place(form.HxYL, kFigureLeft + 36, kOrderRow, 64, kRowHeight);
    for (int i = 0; i < 3; ++i) place(page.Option4[i], 312 + 52 * i, kOrderRow, 52, kRowHeight);

    place(page.Text2, kCaptionLeft, kLastRow, kLockLeft + kLockWidth - kCaptionLeft, kRowHeight);
    place(page.Check6, kButtonLeft, kRowTop + 2 * kRowStep, kButtonWidth, kLastRow + kRowHeight - 2 * kRowStep - kRowTop);
}

// The page's own looks: the boxes let the panel's picture show through.
QString chordPageStyleSheet() {
    return QStringLiteral(R"(
QLineEdit#figure, QLineEdit#order, QLineEdit#figurePair {
    color: #f4f8fc; background: rgba(8,16,28,0.35); border: 1px solid rgba(255,255,255,0.25); border-radius: 4px;
    padding: 0px 4px; selection-background-color: #3d7bc4; }
QLineEdit#figurePair { color: #c7d6e6; background: rgba(8,16,28,0.20); }
QLabel#layerCaption { color: #9fd0ff; }
QPushButton#chordButton { color: #13202f; background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #f4f8fc, stop:1 #c9d8ea);
    border: 1px solid #8fa8c4; border-radius: 5px; padding: 2px 4px; }
QPushButton#chordButton:hover { background: #ffffff; }
QPushButton#audition { color: #2a1a00; font-size: 16px; font-weight: bold; border: 1px solid #b8832a; border-radius: 8px;
    background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffd98a, stop:1 #e9a93c); }
QPushButton#audition:checked { color: #ffffff; border-color: #8a2c1c;
    background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #d9664a, stop:1 #a8361f); }
QRadioButton { color: #e6eef7; background: transparent; spacing: 4px; }
QRadioButton::indicator { width: 11px; height: 11px; border: 1px solid #cfe0f2; border-radius: 6px;
    background: rgba(255,255,255,0.12); }
QRadioButton::indicator:checked { background: #ffd98a; border: 3px solid #3a5674; width: 7px; height: 7px; border-radius: 6px; }
)");
}

template <typename W>
W& make(ControlBinder& binder, Control& control, QWidget& parent, const char* objectName = nullptr) {
    auto* widget = new W(&parent);
    if (objectName) widget->setObjectName(QString::fromUtf8(objectName));
    binder.bind(control, *widget);
    return *widget;
}

}  // namespace

void buildChordPage(QWidget& panel, MainWindow& form, ControlBinder& binder) {
    placeChordPage(form);
    panel.setStyleSheet(chordPageStyleSheet());
    ChordPage& page = form.chordPage;

    const char* captions[] = {"乐器一", "乐器二", "乐器三"};
    ComboBox* lists[] = {&form.Combo1, &form.Combo2, &form.Combo3};
    TextBox* figures[] = {&page.Text4, &page.Text5, &page.Text7};
    CheckBox* locks[] = {&page.Check4, &page.Check7, &page.Check9};
    for (int i = 0; i < 3; ++i) {
        auto* caption = new QLabel(QString::fromUtf8(captions[i]), &panel);
        caption->setObjectName(QStringLiteral("layerCaption"));
        caption->setGeometry(kCaptionLeft, kRowTop + i * kRowStep, kListLeft - kCaptionLeft, kRowHeight);
        make<QComboBox>(binder, *lists[i], panel).setMaxVisibleItems(20);
        make<QLineEdit>(binder, *figures[i], panel, "figure").setFont(scoreFont());
        make<QCheckBox>(binder, *locks[i], panel);
    }
    make<QPushButton>(binder, page.Command3, panel, "chordButton").setAutoDefault(false);
    make<QPushButton>(binder, page.Command4, panel, "chordButton").setAutoDefault(false);

    make<QLabel>(binder, page.Label14, panel);
    make<QLineEdit>(binder, page.Text6, panel, "order").setFont(scoreFont());
    make<QLabel>(binder, page.Label13, panel);
    make<QComboBox>(binder, form.HxYL, panel);
    for (auto& [index, option] : page.Option4) make<QRadioButton>(binder, *option, panel).setAutoExclusive(false);

    // Shown, never read back: no typing in it.
    auto& pair = make<QLineEdit>(binder, page.Text2, panel, "figurePair");
    pair.setFont(scoreFont());
    pair.setReadOnly(true);
    make<QPushButton>(binder, page.Check6, panel, "audition").setAutoDefault(false);
}

}  // namespace tessaly
