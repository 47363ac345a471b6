#include "score/ScorePanel.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <filesystem>

#include "chords/ChordLayers.h"
#include "forms/ControlSystem.h"
#include "forms/MainWindow.h"
#include "platform/Dialogs.h"
#include "rhythm/Accompaniment.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "runtime/FileAccess.h"
#include "runtime/Text.h"
#include "score/ScoreFiles.h"
#include "score/ScorePlayer.h"
#include "state/SharedState.h"

namespace tessaly {

const char* const kScoreFilter = "乐谱记录txt|*.txt";
const char* const kAutoPlayHint = "正在进行自动演奏,点击<保存>按钮可把音乐保存为txt格式的乐谱文件！";

ScorePanel::ScorePanel(SharedState& state, MainWindow& form, ScorePlayer& player, Accompaniment& accompaniment,
                       ChordLayers& chords, Dialogs& dialogs, ControlSystem& controls)
    : state_(state),
      form_(form),
      player_(player),
      accompaniment_(accompaniment),
      chords_(chords),
      dialogs_(dialogs),
      controls_(controls) {}

void ScorePanel::wire() {
    for (int i = 0; i < 5; ++i) form_.Yuepu[i].onClick = [this, i] { Yuepu_Click(i); };
    form_.Yuepu[0].onMouseDown = [this](int, int, float, float) { Yuepu_MouseDown(0); };
    form_.XINJIAN.onClick = [this] { XINJIAN_Click(); };
    form_.BJCK.onClick = [this] { BJCK_Click(); };
}

void ScorePanel::stopPlaying() {
    form_.Timer3.setInterval(0);
    form_.Timer3.setTimerEnabled(false);
    player_.stopMelody();
    chords_.HX1K();
}

void ScorePanel::startPlay() {
    state_.ScorePos = 1;
    accompaniment_.resetCounters();
    state_.AccompanimentTick = 0;
    player_.YSCX();
}

void ScorePanel::Yuepu_MouseDown(int Index) {
    if (Index != 0) return;
    // Pressing silences everything at once, even when the click will start play.
    stopPlaying();
    form_.BZDS.setTimerEnabled(false);
    form_.Yuepu[0].setCaption("试听");
}

void ScorePanel::Yuepu_Click(int Index) {
    switch (Index) {
    case 0: audition(); break;
    case 1: deleteFile(); break;
    case 2: open(); break;
    case 3: clear(); break;
    case 4: save(); break;
    default: break;
    }
}

void ScorePanel::audition() {
    if (!state_.AutoPlaying) {
        form_.Picture1[state_.SoundingNote].setPicture(kWhiteKeyUp);
        std::string upper = form_.Text3.text();
        std::transform(upper.begin(), upper.end(), upper.begin(),
                       [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        form_.Text3.setText(upper);
        state_.ScoreText = form_.Text3.text();
        form_.Yuepu[0].setCaption("停止");
        form_.XSWB.setCaption(kAutoPlayHint);
        startPlay();
    } else {
        form_.Timer3.setTimerEnabled(false);
        player_.stopMelody();
        chords_.HX1K();
        form_.BZDS.setTimerEnabled(false);
        form_.BzQd.setValue(0);
        form_.Yuepu[0].setCaption("试听");
    }
    // Inverted whatever play did meanwhile: an error at the first token leaves it true.
    state_.AutoPlaying = truth(!state_.AutoPlaying);
}

void ScorePanel::deleteFile() {
    std::error_code error;
    if (state_.FilePathInUse.empty() || !std::filesystem::remove(state_.FilePathInUse, error))
        throw FatalFailure(FailureKind::InvalidCall,
                           fileCauseMessage(error ? error.value() : ENOENT, state_.FilePathInUse));
    state_.ScoreText.clear();
    form_.Text3.setText("");
    form_.FJWZ.setCaption("成功删除文件。。。");
}

void ScorePanel::open() {
    stopPlaying();
    state_.ScoreText.clear();
    form_.Text3.setText("");
    std::optional<std::string> path = dialogs_.openFile(kScoreFilter, state_.AppDir + "演奏记录");
    if (!path) return;
    state_.FilePathInUse = *path;
    if (path->empty()) return;
    // A file that vanished after the dialog counts as not there.
    int error = 0;
    std::error_code fsError;
    std::optional<std::string> text = readScoreFile(*path, &error);
    // A score longer than its 16-bit length fails as the player's first read
    // would, before the box is handed a text it cannot hold.
    if (!text && error == kFileTooLong) toInt16(static_cast<long long>(std::filesystem::file_size(*path, fsError)));
    if (!text) return;
    toInt16(static_cast<long long>(charLength(*text)));
    state_.ScoreText = *text;
    form_.File1.setVisible(false);
    form_.Text3.setText(state_.ScoreText);
    state_.ScorePos = 1;
    state_.AutoPlaying = kTrue;
    form_.Yuepu[0].setCaption("停止");
    form_.XSWB.setCaption(kAutoPlayHint);
    form_.FJWZ.setCaption("自动演奏中。。。");
    startPlay();
}

void ScorePanel::clear() {
    form_.Text3.setText("");
    state_.ScoreText.clear();
    form_.Timer1.setTimerEnabled(false);
    state_.ScorePos = 1;
    accompaniment_.resetCounters();
    form_.SFYXYZ.setEnabled(true);
    form_.SFYXYZ.setFocus();
    form_.FJWZ.setCaption("成功清空乐谱。。。");
}

void ScorePanel::save() {
    stopPlaying();
    state_.ScoreText = form_.Text3.text();
    std::optional<std::string> chosen = dialogs_.saveFile(kScoreFilter, state_.AppDir + "演奏记录");
    if (!chosen) return;
    std::string name = scoreSaveName(*chosen);
    if (!state_.ScoreText.empty() && !writeScoreFile(name, state_.ScoreText))
        throw FatalFailure(FailureKind::InvalidCall, "无法写入文件：" + name);
    state_.FilePathInUse = name;
    state_.AutoPlaying = kFalse;
    form_.Yuepu[0].setCaption("试听");
    form_.FJWZ.setCaption("成功保存乐谱。。。");
}

void ScorePanel::showWindowInstead(const char* formName) {
    // The window comes with its own model; until it is registered the button does nothing.
    auto* window = dynamic_cast<Form*>(controls_.findControl(formName));
    if (!window) return;
    window->show();
    form_.hide();
}

void ScorePanel::XINJIAN_Click() { showWindowInstead("YYLR"); }
void ScorePanel::BJCK_Click() { showWindowInstead("YYBJ"); }

}  // namespace tessaly
