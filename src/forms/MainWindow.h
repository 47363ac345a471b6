#pragma once
#include "forms/ChordPage.h"
#include "forms/FileListBox.h"
#include "forms/Form.h"
#include "forms/HelpPage.h"
#include "forms/RhythmPage.h"
#include "forms/MainRecorderPanel.h"
#include "forms/StatusArea.h"
#include "forms/TabButton.h"
#include "forms/UnfocusedButton.h"

namespace tessaly {

// The main window's model, Form1: its controls with their design-time
// properties. Handlers are attached by the subsystems that own them.
class MainWindow : public Form {
public:
    MainWindow(ControlSystem& system, EventLoop& loop);

    // Keyboard and score
    Button& SFYXYZ;
    TextBox& Text3;
    Label& XSWB;
    Label& FJWZ;
    Label& Label1;
    ControlArray<PictureBox> Picture1;
    ControlArray<Button> Yuepu;
    FileListBox& File1;
    Button& XINJIAN;
    Button& BJCK;
    Button& DCYP;  // export
    UnfocusedButton& JIANPU;  // the score as numbered notation
    Label& Label11;

    // Melody panel
    ControlArray<ComboBox> ComSounds;
    ControlArray<ComboBox> Zxlyl;
    ComboBox& SD;
    ComboBox& YD;
    CheckBox& Check1;
    ControlArray<CheckBox> Check3;
    ComboBox& ComDevies;
    // "输入设备": the MIDI keyboard that plays
    ComboBox& ComInput;

    // Accompaniment
    CheckBox& Check5;
    CheckBox& BzQd;
    ComboBox& Combo1;
    ComboBox& Combo2;
    ComboBox& Combo3;
    ComboBox& xuanyue;
    ComboBox& HxYL;
    ComboBox& VsbVol;

    // Shortcut page lists
    ControlArray<ComboBox> YQSZ;

    // Tabs and the panels they open (index 3 is not used)
    ControlArray<TabButton> Xxk;
    ControlArray<PictureBox> Jiezhou;

    // Clocks
    TimerControl& Timer1;
    TimerControl& Timer2;
    TimerControl& Timer3;
    TimerControl& BZDS;

    // Shortcut page: the 28 keys in one option group, the labels over the
    // lists, the effect files and the save button
    ControlArray<OptionButton> Option3;
    ControlArray<Label> YUEQI;
    FileListBox& File2;
    Button& BCSZ;

    // Exit
    Button& Command1;

    // The rhythm page's own controls
    RhythmPage rhythmPage;
    // The chord page's own controls
    ChordPage chordPage;
    // The recorder: Image1(0..2), BcLY, Label12
    MainRecorderPanel recorderPanel;
    // The help panel, and the status lines, key map and web buttons
    HelpPage helpPage;
    StatusArea statusArea;

private:
    void addShortcutPage();
};

// Pictures of the on-screen keys.
constexpr int kWhiteKeyUp = 102;
constexpr int kWhiteKeyDown = 103;
constexpr int kBlackKeyUp = 104;
constexpr int kBlackKeyDown = 105;

}  // namespace tessaly
