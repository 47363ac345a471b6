#include "ui/ScoreEntryView.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>

#include "forms/ScoreEntryWindow.h"
#include "ui/InstrumentStyle.h"
#include "ui/Pictures.h"

namespace tessaly {

namespace {

constexpr int kWidth = 820, kHeight = 500;
constexpr QRect kScoreCard(12, 12, 520, 476), kHelpCard(544, 12, 264, 476);

void placeScoreEntry(ScoreEntryWindow& w) {
    w.setGeometry({0, 0, kWidth, kHeight});
    w.Label2.setGeometry({24, 22, 200, 22});
    w.WJMC.setGeometry({24, 46, 496, 28});
    w.Label3.setGeometry({24, 82, 496, 40});
    w.Text1.setGeometry({24, 124, 496, 310});
    w.DKYP.setGeometry({24, 446, 120, 30});
    w.Command1.setGeometry({156, 446, 120, 30});
    w.FANHUI.setGeometry({400, 446, 120, 30});
    w.JIANPU.setGeometry({288, 446, 100, 30});
    w.Label1.setGeometry({556, 22, 240, 454});
}

}  // namespace

ScoreEntryView::ScoreEntryView(ScoreEntryWindow& model) : model_(model), binder_(model.controlSystem()) {
    setObjectName(QStringLiteral("scoreEntryWindow"));
    setFont(instrumentFont());
    setStyleSheet(instrumentStyleSheet());
    placeScoreEntry(model_);

    auto label = [this](Control& control, const char* name) {
        auto* widget = new QLabel(this);
        widget->setObjectName(QString::fromUtf8(name));
        widget->setWordWrap(true);
        binder_.bind(control, *widget);
        return widget;
    };
    label(model_.Label2, "entryCaption");
    label(model_.Label3, "entryCaption");
    label(model_.Label1, "entryHelp")->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* name = new QLineEdit(this);
    name->setObjectName(QStringLiteral("songName"));
    binder_.bind(model_.WJMC, *name);
    auto* score = new QPlainTextEdit(this);
    score->setObjectName(QStringLiteral("score"));
    score->setFont(scoreFont());
    score->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    binder_.bind(model_.Text1, *score);

    for (Button* button : {&model_.DKYP, &model_.Command1, &model_.FANHUI, static_cast<Button*>(&model_.JIANPU)}) {
        auto* widget = new QPushButton(this);
        widget->setObjectName(QStringLiteral("scoreButton"));
        widget->setAutoDefault(false);
        if (button == &model_.JIANPU) widget->setFocusPolicy(Qt::NoFocus);
        binder_.bind(*button, *widget);
    }
    binder_.bind(model_, *this);
}

void ScoreEntryView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawMainBackground(painter, rect(), {kScoreCard, kHelpCard});
}

void ScoreEntryView::closeEvent(QCloseEvent* event) {
    // The model decides: unloading hides this window and shows the main one.
    if (model_.visible()) model_.unload();
    event->accept();
}

}  // namespace tessaly
