// The instrument: the headless program on the real event loop, shown in a window.
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <QWidget>

#include "platform/posix/FlockInstanceLock.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/testing/RecordingPlatform.h"
#include "shell/AppFolder.h"
#include "shell/Instrument.h"

namespace {

// Letters and digits map to their own codes; the rest by Qt key.
int virtualKey(const QKeyEvent& e) {
    int k = e.key();
    if ((k >= Qt::Key_A && k <= Qt::Key_Z) || (k >= Qt::Key_0 && k <= Qt::Key_9)) return k;
    if (k >= Qt::Key_F1 && k <= Qt::Key_F12) return 112 + (k - Qt::Key_F1);
    switch (k) {
    case Qt::Key_Space: return 32;
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Shift: return 16;
    case Qt::Key_Minus: return 189;
    case Qt::Key_Equal: return 187;
    case Qt::Key_BracketLeft: return 219;
    case Qt::Key_Semicolon: return 186;
    case Qt::Key_Apostrophe: return 222;
    case Qt::Key_Comma: return 188;
    case Qt::Key_Period: return 190;
    case Qt::Key_Slash: return 191;
    }
    return 0;
}

class KeyboardWindow : public QWidget {
public:
    explicit KeyboardWindow(tessaly::Instrument& app) : app_(app) {
        setWindowTitle(QString::fromStdString(app.form1.caption()));
        auto* layout = new QVBoxLayout(this);
        score_ = new QPlainTextEdit(this);
        score_->setReadOnly(true);
        score_->setFocusPolicy(Qt::NoFocus);
        hint_ = new QLabel(this);
        layout->addWidget(score_);
        layout->addWidget(hint_);
        setFocusPolicy(Qt::StrongFocus);
        auto refresh = [this](tessaly::Control&, tessaly::Prop) { update(); };
        app.form1.Text3.observe(refresh);
        app.form1.XSWB.observe(refresh);
        update();
        resize(600, 300);
    }
    void update() {
        score_->setPlainText(QString::fromStdString(app_.form1.Text3.text()));
        hint_->setText(QString::fromStdString(app_.form1.XSWB.caption()));
    }

protected:
    void keyPressEvent(QKeyEvent* e) override { deliver(e, true); }
    void keyReleaseEvent(QKeyEvent* e) override { deliver(e, false); }

private:
    void deliver(QKeyEvent* e, bool down) {
        auto key = static_cast<int16_t>(virtualKey(*e));
        auto shift = static_cast<int16_t>((e->modifiers() & Qt::ShiftModifier) ? 1 : 0);
        auto& event = down ? app_.form1.SFYXYZ.onKeyDown : app_.form1.SFYXYZ.onKeyUp;
        if (key && event) event(key, shift);
    }
    tessaly::Instrument& app_;
    QPlainTextEdit* score_;
    QLabel* hint_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("tessaly");
    tessaly::QtEventLoop loop;
    tessaly::EventLog log;
    tessaly::RecordingMidiPort midi(loop);
    tessaly::RecordingWaveOut wave(log);
    tessaly::RecordingMessageBoxes boxes(log);
    tessaly::FlockInstanceLock instanceLock;
    tessaly::Platform platform{loop, midi, wave, boxes, instanceLock};
    tessaly::Instrument app(platform, tessaly::appFolderFromEnvironment(), TESSALY_BUILD_DATA_DIR);
    app.onEnd = [] { QApplication::quit(); };
    app.start();
    // The start itself can end the program (another instance is running).
    if (app.ended()) return 0;
    KeyboardWindow window(app);
    window.show();
    return QApplication::exec();
}
