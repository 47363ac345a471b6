#include "ui/EditorView.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include "forms/EditorWindow.h"
#include "ui/InstrumentStyle.h"
#include "ui/Pictures.h"
#include "ui/WindowPlacement.h"

namespace tessaly {

namespace {

QString editorStyleSheet() {
    return instrumentStyleSheet() + QStringLiteral(R"(
QLineEdit#notes { border: 1px solid rgba(255,255,255,0.35); border-radius: 3px; padding: 0px 1px; }
QLineEdit#barNumber { background: rgba(250,252,255,0.94); color: #17222f; border-radius: 3px; }
QLabel#trackCaption { color: #9fd0ff; }
QLabel#notation { color: #ffe6a3; }
QLabel#recorderTime { color: #ffe6a3; }
QCheckBox#step { spacing: 0px; padding-left: 2px; border-radius: 2px; }
QCheckBox#step::indicator { border: 1px solid #3a5674; background: rgba(255,255,255,0.75); }
QRadioButton { color: #e6eef7; }
QPushButton#command { color: #13202f; background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #f4f8fc, stop:1 #c9d8ea);
    border: 1px solid #8fa8c4; border-radius: 5px; padding: 2px 4px; }
QPushButton#command:checked { color: #2a1a00; border-color: #b8832a;
    background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffd98a, stop:1 #e9a93c); }
QPushButton#command:disabled { color: #7a8899; }
)");
}

// The note boxes show a slot's two characters over the slot's percussion box:
// a monospaced face spaced to ten pixels a character.
QFont noteFont() {
    QFont font = scoreFont();
    font.setPixelSize(15);
    const qreal advance = QFontMetricsF(font).horizontalAdvance(QLatin1Char('M'));
    font.setLetterSpacing(QFont::AbsoluteSpacing, 10.0 - advance);
    return font;
}

// The captions that belong to no control.
constexpr const char* kTrackCaptions[12] = {"乐器1", "乐器2", "乐器3", "乐器4",  "乐器5",  "乐器6",
                                            "乐器7", "乐器8", "乐器9", "乐器10", "乐器11", "乐器12"};

}  // namespace

EditorView::EditorView(EditorWindow& model, WindowPlacement* placement)
    : model_(model), placement_(placement), binder_(model.controlSystem()) {
    setObjectName(QStringLiteral("editorWindow"));
    setFont(instrumentFont());
    setStyleSheet(editorStyleSheet());
    buildBar();
    buildSettings();
    buildCommands();
    buildRecorder();
    binder_.bind(model_, *this);
    stepObserver_ = model_.bar().observeSteps([this](int row, long index, bool loaded) {
        if (loaded) stepLoaded(row, index);
        else stepUnloaded(row, index);
    });
    formObserver_ = model_.observe([this](Control&, Prop prop) {
        if (prop == Prop::Geometry) QTimer::singleShot(0, this, [this] { centre(); });
    });
    centre();
    if (placement_) placement_->standIn(*this);
}

EditorView::~EditorView() {
    model_.unobserve(formObserver_);
    model_.bar().unobserveSteps(stepObserver_);
}

template <typename W>
W& EditorView::make(Control& control, QWidget& parent, const char* objectName) {
    auto* widget = new W(&parent);
    if (objectName) widget->setObjectName(QString::fromUtf8(objectName));
    binder_.bind(control, *widget);
    return *widget;
}

void EditorView::addCaption(const char* text, const QRect& place, QWidget& parent) {
    auto* label = new QLabel(QString::fromUtf8(text), &parent);
    label->setObjectName(QStringLiteral("trackCaption"));
    label->setGeometry(place);
}

void EditorView::buildBar() {
    EditorBarPanel& bar = model_.bar();
    auto& notation = make<QLabel>(bar.Label9, *this, "notation");
    notation.setWordWrap(true);
    const Geometry& picture = bar.Picture1.geometry();
    for (int row = 0; row < 12; ++row)
        addCaption(kTrackCaptions[row], QRect(8, picture.top + editorRowTop(row), picture.left - 12, 22), *this);
    grid_ = &make<QWidget>(bar.Picture1, *this);
    for (auto& [t, box] : bar.YF1) {
        auto& edit = make<QLineEdit>(*box, *grid_, "notes");
        edit.setFont(noteFont());
        // Notes are letters: no input method may hold them back.
        edit.setAttribute(Qt::WA_InputMethodEnabled, false);
    }
    for (int row = 1; row <= 5; ++row)
        for (auto& [index, box] : bar.DJY(row)) stepLoaded(row, index);
    auto& scroll = make<QScrollBar>(bar.HScroll1, *this);
    scroll.setOrientation(Qt::Horizontal);
    make<QLineEdit>(bar.XJZS, *this, "barNumber");
    make<QLabel>(bar.XJXSS, *this);
}

void EditorView::buildSettings() {
    EditorSettingsPanel& p = model_.settings();
    QWidget& lists = make<QWidget>(p.Picture3, *this);
    for (int t = 0; t < 12; ++t) {
        make<QComboBox>(p.SYYQ[t], lists).setMaxVisibleItems(20);
        make<QComboBox>(p.YQYL[t], lists);
    }
    addCaption("音调", QRect(166, 378, 32, 24), *this);
    make<QComboBox>(p.DQYD, *this).setMaxVisibleItems(12);
    addCaption("速度", QRect(266, 378, 32, 24), *this);
    // The tempo takes typed values too: editable before it is bound.
    auto* tempo = new QComboBox(this);
    tempo->setEditable(true);
    tempo->setInsertPolicy(QComboBox::NoInsert);
    binder_.bind(p.DQSUDU, *tempo);
    for (auto& [i, option] : p.JPFL) make<QRadioButton>(*option, *this).setAutoExclusive(false);
    for (auto& [i, box] : p.Check1) make<QCheckBox>(*box, *this);
    auto& depth = make<QScrollBar>(p.HScroll3, *this);
    depth.setOrientation(Qt::Horizontal);
    make<QLabel>(p.Label7, *this);
    addCaption("输出设备", QRect(236, 446, 62, 26), *this);
    make<QComboBox>(p.ComDevies, *this);
}

void EditorView::buildCommands() {
    EditorCommandPanel& c = model_.commands();
    for (Control* button : std::initializer_list<Control*>{&c.BCBXJ, &c.CHARU, &c.QinKong, &c.ZDXJZS, &c.ST1, &c.ST2,
                                                           &c.BCBJ, &c.DkBianji, &c.DRYP, &c.DCBJ, &c.BZWJ, &c.TUICHU})
        make<QPushButton>(*button, *this, "command").setAutoDefault(false);
    // The two play controls stay down while they play.
    for (Control* play : {static_cast<Control*>(&c.ST1), static_cast<Control*>(&c.ST2)})
        if (auto* button = qobject_cast<QPushButton*>(binder_.widgetOf(*play))) button->setCheckable(true);
}

void EditorView::buildRecorder() {
    EditorRecorderPanel& r = model_.recorder();
    addCaption("录音机", QRect(12, r.LUYINJI[0].geometry().top + 2, 48, 24), *this);
    // Each option stays down while it is the chosen one.
    for (auto& [i, option] : r.LUYINJI) make<QPushButton>(*option, *this, "command").setAutoDefault(false);
    make<QComboBox>(r.yinzi, *this);
    make<QLabel>(r.LYSJ, *this, "recorderTime");
}

void EditorView::stepLoaded(int row, long index) {
    CheckBox& box = model_.bar().DJY(row)[index];
    auto& widget = make<QCheckBox>(box, *grid_, "step");
    widget.show();
    steps_[{row, index}] = &widget;
}

void EditorView::stepUnloaded(int row, long index) {
    auto it = steps_.find({row, index});
    if (it == steps_.end()) return;
    if (it->second) {
        it->second->hide();
        it->second->deleteLater();
    }
    steps_.erase(it);
}

void EditorView::centre() {
    if (placement_) {
        placement_->centreOverMain(*this);
        return;
    }
    QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    if (!screen) return;
    const QRect area = screen->availableGeometry();
    move(area.left() + (area.width() - width()) / 2, area.top() + (area.height() - height()) / 2);
}

void EditorView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Geometry& picture1 = model_.bar().Picture1.geometry();
    const Geometry& picture3 = model_.settings().Picture3.geometry();
    const int bottom = picture1.top + picture1.height;
    drawMainBackground(painter, rect(),
                       {QRect(4, picture1.top - 4, picture3.left + picture3.width + 4, bottom - picture1.top + 10),
                        QRect(4, bottom + 10, width() - 8, 476 - bottom), QRect(4, 486, width() - 8, 44)});
}

void EditorView::closeEvent(QCloseEvent* event) {
    // The model decides: leaving the editor unloads its window, which hides this view.
    event->ignore();
    model_.unload();
}

EditorViewHost::EditorViewHost(EditorWindow& model) : model_(model) {
    observer_ = model_.observe([this](Control& form, Prop prop) {
        if (prop != Prop::Visible) return;
        if (form.visible() && !view_) {
            view_ = new EditorView(model_, placement_);
            view_->show();
            view_->activateWindow();
        } else if (!form.visible() && view_) {
            view_->hide();
            view_->deleteLater();
            view_.clear();
        }
    });
}

EditorViewHost::~EditorViewHost() {
    model_.unobserve(observer_);
    delete view_.data();
}

}  // namespace tessaly
