#include "ui/MainWindowView.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QPlainTextEdit>
#include <QPushButton>

#include "forms/MainWindow.h"
#include "notation/NoteVocabulary.h"
#include "ui/ChordPageView.h"
#include "ui/HelpPageView.h"
#include "ui/InstrumentStyle.h"
#include "ui/KeyCapButton.h"
#include "ui/MainWindowLayout.h"
#include "ui/PictureView.h"
#include "ui/RhythmPageView.h"
#include "ui/Pictures.h"
#include "ui/RecorderView.h"
#include "ui/RestoreStrip.h"
#include "ui/StatusAreaView.h"

namespace tessaly {

MainWindowView::MainWindowView(MainWindow& model) : model_(model), binder_(model.controlSystem()) {
    setObjectName(QStringLiteral("mainWindow"));
    setFont(instrumentFont());
    setStyleSheet(instrumentStyleSheet());
    placeMainWindowControls(model_);

    for (auto& [index, tab] : model_.Xxk) make<QPushButton>(*tab, *this, "tab");
    for (auto& [index, panel] : model_.Jiezhou) {
        auto& view = make<PictureView>(*panel, *this, "panel");
        if (index == 0) buildMelodyPanel(view);
        if (index == 2) new RhythmPageView(view, model_, binder_);
        if (index == 1) buildChordPage(view, model_, binder_);
        if (index == 4) buildHelpPageView(view, model_, binder_);
        if (index == 5) buildShortcutPanel(view);
    }

    auto& score = make<QPlainTextEdit>(model_.Text3, *this, "score");
    score.setFont(scoreFont());
    score.setLineWrapMode(QPlainTextEdit::WidgetWidth);
    buildScoreButtons();

    auto& keyboardButton = make<QPushButton>(model_.SFYXYZ, *this, "keyboardButton");
    // Every key must reach the instrument: no input method may take them.
    keyboardButton.setAttribute(Qt::WA_InputMethodEnabled, false);
    keyboardButton.setAutoDefault(false);

    auto& information = make<QLabel>(model_.XSWB, *this, "information");
    information.setWordWrap(true);
    information.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    make<QLabel>(model_.FJWZ, *this, "status");
    auto& damper = make<QLabel>(model_.Label1, *this, "muteStrip");
    damper.setAlignment(Qt::AlignCenter);
    // The damper works under a pointer moved with no button held.
    damper.setMouseTracking(true);
    buildKeyboard();
    make<QPushButton>(model_.Command1, *this, "exitButton").setAutoDefault(false);
    buildMainRecorderView(model_.recorderPanel, *this, binder_);
    buildStatusAreaView(*this, model_, binder_);

    binder_.bind(model_, *this);
    restoreStrip_ = new RestoreStrip(*this, model_);
    restoreStrip_->follow(size());
}

template <typename W>
W& MainWindowView::make(Control& control, QWidget& parent, const char* objectName) {
    auto* widget = new W(&parent);
    if (objectName) widget->setObjectName(QString::fromUtf8(objectName));
    binder_.bind(control, *widget);
    return *widget;
}

void MainWindowView::buildMelodyPanel(QWidget& panel) {
    for (const PanelCaption& caption : melodyPanelCaptions()) {
        auto* label = new QLabel(QString::fromUtf8(caption.text), &panel);
        label->setGeometry(caption.place);
    }
    for (int i = 0; i < 3; ++i) {
        make<QComboBox>(model_.ComSounds[i], panel).setMaxVisibleItems(20);
        make<QComboBox>(model_.Zxlyl[i], panel);
        make<QCheckBox>(model_.Check3[i], panel);
    }
    // The tempo box takes typed values too: editable before it is bound.
    auto* tempo = new QComboBox(&panel);
    tempo->setEditable(true);
    tempo->setInsertPolicy(QComboBox::NoInsert);
    binder_.bind(model_.SD, *tempo);
    make<QComboBox>(model_.YD, panel).setMaxVisibleItems(12);
    make<QCheckBox>(model_.Check1, panel);
    make<QComboBox>(model_.ComInput, panel);
    make<QComboBox>(model_.ComDevies, panel);
}

void MainWindowView::buildShortcutPanel(QWidget& panel) {
    for (const PanelCaption& caption : shortcutPageCaptions()) {
        auto* label = new QLabel(QString::fromUtf8(caption.text), &panel);
        label->setObjectName(QStringLiteral("rowCaption"));
        label->setGeometry(caption.place);
    }
    // One group for the 28 keys; the model keeps them exclusive, and may leave none chosen.
    auto* keys = new QButtonGroup(&panel);
    keys->setExclusive(false);
    for (auto& [index, option] : model_.Option3) {
        auto& key = make<KeyCapButton>(*option, panel, "shortcutKey");
        key.setAutoExclusive(false);
        keys->addButton(&key, static_cast<int>(index));
    }
    for (auto& [index, label] : model_.YUEQI) {
        auto& caption = make<QLabel>(*label, panel, "listCaption");
        // A list's label shows with its list, so that the effect files, which
        // take the lists' place, lie over no label.
        ComboBox& list = model_.YQSZ[index];
        caption.setVisible(list.visible());
        QPointer<QLabel> guarded(&caption);
        list.observe([guarded](Control& shown, Prop prop) {
            if (guarded && prop == Prop::Visible) guarded->setVisible(shown.visible());
        });
    }
    for (auto& [index, list] : model_.YQSZ) make<QComboBox>(*list, panel).setMaxVisibleItems(20);
    // The effect files side by side, as many to a row as fit.
    auto& effects = make<QListWidget>(model_.File2, panel, "effectFiles");
    effects.setFlow(QListView::LeftToRight);
    effects.setWrapping(true);
    effects.setResizeMode(QListView::Adjust);
    effects.setGridSize(QSize(130, 26));
    effects.raise();
    make<QPushButton>(model_.BCSZ, panel, "saveSettings").setAutoDefault(false);
}

void MainWindowView::buildScoreButtons() {
    for (auto& [index, button] : model_.Yuepu) make<QPushButton>(*button, *this, "scoreButton").setAutoDefault(false);
    make<QPushButton>(model_.XINJIAN, *this, "scoreButton").setAutoDefault(false);
    make<QPushButton>(model_.BJCK, *this, "scoreButton").setAutoDefault(false);
    make<QPushButton>(model_.DCYP, *this, "scoreButton").setAutoDefault(false);
    // Opening the notation leaves the keyboard with the keys.
    auto& jianpu = make<QPushButton>(model_.JIANPU, *this, "scoreButton");
    jianpu.setAutoDefault(false);
    jianpu.setFocusPolicy(Qt::NoFocus);
}

void MainWindowView::buildKeyboard() {
    std::vector<PictureView*> blackKeys;
    for (int offset = 0; offset < kOnScreenKeyCount; ++offset) {
        auto& key = make<PictureView>(model_.Picture1[offset], *this);
        if (!isWhiteKey(offset)) blackKeys.push_back(&key);
    }
    for (PictureView* key : blackKeys) key->raise();
}

void MainWindowView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawMainBackground(painter, rect(), mainWindowCards());
}

void MainWindowView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (restoreStrip_) restoreStrip_->follow(size());
}

void MainWindowView::closeEvent(QCloseEvent* event) {
    if (onUserClose) onUserClose();
    event->accept();
}

}  // namespace tessaly
