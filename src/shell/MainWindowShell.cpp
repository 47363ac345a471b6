#include "shell/MainWindowShell.h"

#include "forms/MainWindow.h"
#include "forms/VariableAccessors.h"
#include "platform/Platform.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"

namespace tessaly {

const char* const kCreditLine = "Tessaly 电子琴 —— 键盘与鼠标就是你的乐器，祝你演奏愉快！        ";
// Music played on General MIDI instruments, and General MIDI SoundFonts under free licences.
const char* const kShowcaseAddress = "https://musical-artifacts.com/artifacts?tags=midi";
const char* const kSoundFontAddress = "https://musical-artifacts.com/artifacts?formats=sf2&tags=general-midi";

MainWindowShell::MainWindowShell(Platform& platform, MainWindow& form) : platform_(platform), form_(form) {
    state.CreditLine = kCreditLine;
    form_.statusArea.Label8.setCaption(state.CreditLine);
}

void MainWindowShell::wire() {
    form_.Timer2.onTimer = [this] { Timer2_Timer(); };
    form_.onClick = [this] { Form_Click(); };
    form_.statusArea.Image3.onClick = [this] { Image3_Click(); };
    for (auto& [index, button] : form_.statusArea.Command2) {
        int i = static_cast<int>(index);
        button->onClick = [this, i] { Command2_Click(i); };
    }
}

void MainWindowShell::registerVariables(ControlSystem& controls) {
    controls.registerVariable("MiniWindow", scalar(state.MiniWindow));
    controls.registerVariable("KeyMapUnfolded", scalar(state.KeyMapUnfolded));
    controls.registerVariable("CreditLine", scalar(state.CreditLine));
}

void MainWindowShell::Timer2_Timer() {
    form_.statusArea.SjXs.setCaption(dateTimeText(platform_.clock.now()));
    if (pollRecorder) pollRecorder();
    rotateCreditLine();
}

void MainWindowShell::rotateCreditLine() {
    // The line runs leftwards: its first character goes to the end.
    const std::string& line = state.CreditLine;
    state.CreditLine = charSubstr(line, 1) + charSubstr(line, 0, 1);
    form_.statusArea.Label8.setCaption(state.CreditLine);
}

void MainWindowShell::Form_Click() {
    state.MiniWindow = truth(!state.MiniWindow);
    Geometry size = form_.geometry();
    size.width = state.MiniWindow ? kSmallWidth : kFullWidth;
    size.height = state.MiniWindow ? kSmallHeight : kFullHeight;
    form_.setGeometry(size);
}

void MainWindowShell::Image3_Click() {
    StatusArea& area = form_.statusArea;
    state.KeyMapUnfolded = truth(!state.KeyMapUnfolded);
    if (state.KeyMapUnfolded) {
        form_.Text3.setVisible(false);
        area.Picture2.setGeometry(kKeyMapUnfolded);
        area.Image3.setGeometry({0, 0, kKeyMapUnfolded.width, kKeyMapUnfolded.height});
        area.Label3.setCaption(kKeyMapUnfoldedHint);
    } else {
        form_.Text3.setVisible(true);
        area.Picture2.setGeometry(kKeyMapFolded);
        area.Image3.setGeometry({0, 0, kKeyMapFolded.width, kKeyMapFolded.height});
        area.Label3.setCaption(kKeyMapFoldedHint);
    }
}

void MainWindowShell::Command2_Click(int Index) {
    const char* address = Index == 0 ? kShowcaseAddress : kSoundFontAddress;
    if (!platform_.urls.open(address)) platform_.boxes.timedBox("网络错误", "网络连接出错，请检查网络情况！", 5000);
}

}  // namespace tessaly
