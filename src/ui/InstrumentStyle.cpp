#include "ui/InstrumentStyle.h"

#include <QStringList>

namespace tessaly {

QFont instrumentFont() {
    QFont font;
    font.setFamilies(QStringList{QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Noto Sans SC"),
                      QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("Sans Serif")});
    font.setPixelSize(13);
    return font;
}

QFont scoreFont() {
    QFont font;
    font.setFamilies(QStringList{QStringLiteral("Noto Sans Mono CJK SC"), QStringLiteral("Noto Sans CJK SC"),
                      QStringLiteral("Monospace")});
    font.setPixelSize(15);
    return font;
}

QString instrumentStyleSheet() {
    return QStringLiteral(R"(
QWidget#mainWindow { color: #e6eef7; }
QLabel { color: #dbe6f2; background: transparent; }
QLabel#information { color: #ffe6a3; }
QLabel#status { color: #9fd0ff; }
QLabel#muteStrip { color: #c7d6e6; background: rgba(255,255,255,0.10); border: 1px dashed rgba(255,255,255,0.35);
                   border-radius: 4px; }
QCheckBox { color: #e6eef7; background: transparent; spacing: 6px; }
QCheckBox::indicator { width: 13px; height: 13px; border: 1px solid #cfe0f2; border-radius: 3px;
                       background: rgba(255,255,255,0.12); }
QCheckBox::indicator:checked { background: #ffd98a; border: 3px solid #3a5674; width: 9px; height: 9px; }
QComboBox { background: rgba(250,252,255,0.94); color: #17222f; border: 1px solid rgba(255,255,255,0.5);
            border-radius: 4px; padding: 1px 6px; }
QComboBox QAbstractItemView { background: #fafcff; color: #17222f; selection-background-color: #3d7bc4; }
QPushButton#tab { color: #cfe0f2; background: rgba(255,255,255,0.10); border: 1px solid rgba(255,255,255,0.22);
                  border-radius: 6px; padding: 3px 8px; }
QPushButton#tab:hover { background: rgba(255,255,255,0.20); }
QPushButton#tab:checked { color: #13202f; background: #eaf2fb; border-color: #eaf2fb; font-weight: bold; }
QPushButton#keyboardButton { color: #2a1a00; font-size: 16px; font-weight: bold; border-radius: 8px;
                             border: 1px solid #b8832a;
                             background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffd98a, stop:1 #e9a93c); }
QPushButton#keyboardButton:focus { border: 2px solid #fff3c4; }
QPlainTextEdit#score, QPlainTextEdit#helpText { color: #f4f8fc; border: 1px solid rgba(255,255,255,0.25);
                       border-radius: 6px; selection-background-color: #3d7bc4; }
QRadioButton#helpTopic { color: #e6eef7; background: transparent; }
QRadioButton#shortcutKey { color: #e6eef7; background: rgba(255,255,255,0.10); border: 1px solid rgba(255,255,255,0.28);
                          border-radius: 5px; padding: 0px 0px 0px 3px; font-size: 12px; font-weight: bold; }
QRadioButton#shortcutKey::indicator { width: 0px; height: 0px; }
QRadioButton#shortcutKey:hover { background: rgba(255,255,255,0.22); }
QRadioButton#shortcutKey:checked { color: #2a1a00; border-color: #b8832a;
                                  background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffd98a, stop:1 #e9a93c); }
QLabel#rowCaption { color: #9fd0ff; }
QLabel#listCaption { color: #cfe0f2; }
QListWidget#effectFiles { color: #f4f8fc; background: rgba(8,16,28,0.55); border: 1px solid rgba(255,255,255,0.25);
                          border-radius: 6px; padding: 4px; }
QListWidget#effectFiles::item:selected { color: #2a1a00; background: #ffd98a; border-radius: 4px; }
QPushButton#scoreButton, QPushButton#saveSettings, QPushButton#exitButton {
    color: #13202f; background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #f4f8fc, stop:1 #c9d8ea);
    border: 1px solid #8fa8c4; border-radius: 5px; padding: 2px 4px; }
QPushButton#scoreButton:hover, QPushButton#saveSettings:hover { background: #ffffff; }
QPushButton#saveSettings { color: #2a1a00; border-color: #b8832a;
    background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffd98a, stop:1 #e9a93c); }
QPushButton#exitButton { color: #ffffff; border-color: #8a2c1c;
    background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #d9664a, stop:1 #a8361f); }
QWidget#scoreEntryWindow { color: #e6eef7; }
QLabel#entryCaption { color: #9fd0ff; }
QLabel#entryHelp { color: #e6eef7; }
QLineEdit#songName { color: #17222f; background: rgba(250,252,255,0.94); border: 1px solid rgba(255,255,255,0.5);
                     border-radius: 4px; padding: 2px 6px; }
QToolTip { color: #17222f; background: #fffbe8; border: 1px solid #c9b66b; }
)");
}

}  // namespace tessaly
