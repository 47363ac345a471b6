#include "ui/JianpuView.h"

#include <QCloseEvent>
#include <QScreen>
#include <QHBoxLayout>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "drawing/JianpuPainter.h"
#include "forms/JianpuWindow.h"
#include "jianpu/JianpuPanel.h"
#include "ui/InstrumentStyle.h"

namespace tessaly {

namespace {

// The notation, painted from the panel's layout where it is exposed.
class JianpuCanvas : public QWidget {
public:
    explicit JianpuCanvas(JianpuPanel& panel) : panel_(panel) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::white);
        const double em = JianpuView::kEm;
        // Glyphs stand on their baselines: a little above the exposed part counts too.
        const double top = event->rect().top() / em - 1, bottom = event->rect().bottom() / em + 1.5;
        paintJianpu(painter, panel_.sheet().layout(), em, top, bottom, panel_.playingEvent());
    }

private:
    JianpuPanel& panel_;
};

}  // namespace

JianpuView::JianpuView(JianpuWindow& model, JianpuPanel& panel)
    : QWidget(nullptr, Qt::Window | Qt::WindowDoesNotAcceptFocus), model_(model), panel_(panel),
      binder_(model.controlSystem()) {
    setObjectName(QStringLiteral("jianpuWindow"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setFont(instrumentFont());
    setWindowTitle(QString::fromStdString(model_.caption()));
    resize(900, 560);

    auto* column = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    for (Button* button : {static_cast<Button*>(&model_.DaYin), static_cast<Button*>(&model_.BCTP),
                           static_cast<Button*>(&model_.DCWB)}) {
        auto* widget = new QPushButton(this);
        widget->setFocusPolicy(Qt::NoFocus);
        widget->setAutoDefault(false);
        binder_.bind(*button, *widget);
        row->addWidget(widget);
    }
    auto* status = new QLabel(this);
    binder_.bind(model_.ZTXX, *status);
    row->addWidget(status, 1);
    column->addLayout(row);

    scroll_ = new QScrollArea(this);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidgetResizable(false);
    scroll_->setBackgroundRole(QPalette::Base);
    canvas_ = new JianpuCanvas(panel_);
    scroll_->setWidget(canvas_);
    scroll_->viewport()->installEventFilter(this);
    column->addWidget(scroll_, 1);

    auto* error = new QLabel(this);
    error->setWordWrap(true);
    error->setStyleSheet(QStringLiteral("color: #c81414;"));
    binder_.bind(model_.CWTS, *error);
    column->addWidget(error);

    panel_.onChanged = [this] { changed(); };
    visibleObserver_ = model_.observe([this](Control&, Prop prop) {
        if (prop != Prop::Visible) return;
        if (model_.visible()) {
            placeBesideNeighbour();
            show();
        } else {
            hide();
        }
    });
}

JianpuView::~JianpuView() {
    panel_.onChanged = nullptr;
    model_.unobserve(visibleObserver_);
}

bool JianpuView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == scroll_->viewport() && event->type() == QEvent::Resize)
        panel_.setWidth(static_cast<float>(scroll_->viewport()->width() / kEm));
    return QWidget::eventFilter(watched, event);
}

void JianpuView::changed() {
    const JianpuLayout& layout = panel_.sheet().layout();
    canvas_->resize(static_cast<int>(layout.width * kEm), static_cast<int>(layout.height * kEm));
    canvas_->update();
    followPlay();
}

// The note "试听" plays stays in sight; a take being written shows its end.
void JianpuView::followPlay() {
    const JianpuLayout& layout = panel_.sheet().layout();
    const int playing = panel_.playingEvent();
    if (playing >= 0) {
        for (const JianpuGlyph& g : layout.glyphs)
            if (g.event == playing) {
                scroll_->ensureVisible(static_cast<int>(g.x * kEm), static_cast<int>(g.y * kEm), 40,
                                       static_cast<int>(2 * kEm));
                break;
            }
        return;
    }
    const std::size_t length = panel_.sheet().text().size();
    if (length > shownLength_) scroll_->verticalScrollBar()->setValue(scroll_->verticalScrollBar()->maximum());
    shownLength_ = length;
}

// Under the main window where the screen has room, else over it, else along
// the screen's bottom over the main window's keys, clear of its score panel.
void JianpuView::placeBesideNeighbour() {
    if (placed_ || !neighbour_ || !neighbour_->isVisible()) return;
    placed_ = true;
    QScreen* screen = neighbour_->screen();
    if (!screen) return;
    const QRect room = screen->availableGeometry();
    const QRect main = neighbour_->frameGeometry();
    constexpr int kTitleBar = 30, kLeast = 260, kMost = 560;
    const int below = room.bottom() - main.bottom() - kTitleBar, above = main.top() - room.top() - kTitleBar;
    const int width = std::max(main.width(), 640);
    if (below >= kLeast) setGeometry(main.left(), main.bottom() + kTitleBar, width, std::min(below, kMost));
    else if (above >= kLeast) setGeometry(main.left(), main.top() - std::min(above, kMost), width, std::min(above, kMost));
    else setGeometry(main.left(), room.bottom() - kLeast + 1, width, kLeast - kTitleBar);
}

void JianpuView::closeEvent(QCloseEvent* event) {
    if (model_.visible()) model_.hide();
    event->accept();
}

}  // namespace tessaly
