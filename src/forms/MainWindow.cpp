#include "forms/MainWindow.h"

#include <string>

namespace tessaly {

namespace {

void addItems(ListControl& list, std::initializer_list<const char*> items) {
    for (const char* item : items) list.addItem(item);
}

void addVelocities(ListControl& list) { addItems(list, {"25", "40", "55", "70", "85", "100", "120"}); }

}  // namespace

MainWindow::MainWindow(ControlSystem& system, EventLoop& loop)
    : Form(system, loop, "Form1"),
      SFYXYZ(add<Button>("SFYXYZ")),
      Text3(add<TextBox>("Text3")),
      XSWB(add<Label>("XSWB")),
      FJWZ(add<Label>("FJWZ")),
      Label1(add<Label>("Label1")),
      File1(add<FileListBox>("File1")),
      XINJIAN(add<Button>("XINJIAN")),
      BJCK(add<Button>("BJCK")),
      DCYP(add<Button>("DCYP")),
      JIANPU(add<UnfocusedButton>("JIANPU")),
      Label11(add<Label>("Label11")),
      SD(add<ComboBox>("SD")),
      YD(add<ComboBox>("YD")),
      Check1(add<CheckBox>("Check1")),
      ComDevies(add<ComboBox>("ComDevies")),
      ComInput(add<ComboBox>("ComInput")),
      Check5(add<CheckBox>("Check5")),
      BzQd(add<CheckBox>("BzQd")),
      Combo1(add<ComboBox>("Combo1")),
      Combo2(add<ComboBox>("Combo2")),
      Combo3(add<ComboBox>("Combo3")),
      xuanyue(add<ComboBox>("xuanyue")),
      HxYL(add<ComboBox>("HxYL")),
      VsbVol(add<ComboBox>("VsbVol")),
      Timer1(addTimer("Timer1")),
      Timer2(addTimer("Timer2")),
      Timer3(addTimer("Timer3")),
      BZDS(addTimer("BZDS")),
      File2(add<FileListBox>("File2")),
      BCSZ(add<Button>("BCSZ")),
      Command1(add<Button>("Command1")),
      rhythmPage(*this),
      chordPage(*this),
      recorderPanel(*this),
      helpPage(*this),
      statusArea(*this) {
    setCaption("Tessaly201705");

    SFYXYZ.setCaption("键盘");
    SFYXYZ.setToolTip("当键盘演奏无声时用此键恢复键盘演奏功能！");
    Label1.setCaption("消    音    板");
    Check1.setCaption("抬手静音");
    Check5.setCaption("自动同步");
    Check5.setToolTip("勾选后在自动演奏时可同时启动节奏！演奏中快捷方式为Shift键！");
    BzQd.setCaption("启动");
    BzQd.setToolTip("点击启动节奏试听，演奏中也可用小键盘的\"+\"号启动，\"-\"号停止，在自动演奏时用\"JP\"选择并同步启动！");

    for (int i = 0; i < 65; ++i) addElement(Picture1, "Picture1", i);
    for (int i = 0; i < 5; ++i) addElement(Yuepu, "Yuepu", i);
    Yuepu[0].setCaption("试听");
    Yuepu[1].setCaption("删除");
    Yuepu[2].setCaption("打开");
    Yuepu[3].setCaption("清空");
    Yuepu[4].setCaption("保存");
    Yuepu[0].setToolTip("试听乐谱编辑窗口中的文件！");
    Yuepu[1].setToolTip("删除最后一次打开的乐谱文件或录音文件并不可恢复！");
    Yuepu[2].setToolTip("打开演奏记录文件夹中的乐谱文档并自动开始演奏！");
    Yuepu[3].setToolTip("点击这里将清空乐谱编辑窗口中的乐谱，并允许开始新的演奏！");
    Yuepu[4].setToolTip("保存乐谱编辑窗口中的乐谱为文本文件，以便下次进行自动演奏或录音或编辑！");
    XINJIAN.setCaption("新建");
    XINJIAN.setToolTip("新建乐谱文件！");
    BJCK.setCaption("编辑");
    BJCK.setToolTip("使用音乐编辑窗口进行音乐编辑！");
    DCYP.setCaption("导出");
    DCYP.setToolTip("把乐谱编辑窗口中的乐谱导出为MIDI文件或WAV、MP3音频，可在其他音乐软件或手机上播放！");
    JIANPU.setCaption("简谱");
    JIANPU.setToolTip("打开简谱窗口：乐谱以简谱显示，演奏时随写随显示，可打印、保存为图片！");

    for (int i = 0; i < 3; ++i) {
        addElement(ComSounds, "ComSounds", i);
        addVelocities(addElement(Zxlyl, "Zxlyl", i));
        addElement(Check3, "Check3", i).setCaption("颤音");
    }
    ComSounds[2].setToolTip("本通道乐器采用复音的方法演奏，演奏时将同时发出演奏本身的音符与低八度音符！");

    for (int tempo = 40; tempo <= 130; tempo += 5) SD.addItem(std::to_string(tempo));
    SD.setToolTip("选取或直接输入需要的演奏速度（请输入40-140之间的整数）！");
    addItems(YD, {"C", "bD", "D", "bE", "E", "F", "bG", "G", "bA", "A", "bB", "B"});

    addVelocities(HxYL);
    addItems(VsbVol, {"50", "60", "70", "80", "90", "100", "110", "120"});
    for (int i = 0; i < 4; ++i) addElement(YQSZ, "YQSZ", i);

    const char* tabCaptions[] = {"旋 律", "和 弦", "节 奏", "", "帮 助", "设 置"};
    for (int i : {0, 1, 2, 4, 5}) {
        addElement(Xxk, "Xxk", i, "Xxk").setCaption(tabCaptions[i]);
        addElement(Jiezhou, "Jiezhou", i).setVisible(i == 0);
    }
    Xxk[0].setValue(true);

    Timer2.setInterval(1000);
    const char* smallWindowTip = "在窗体空白处点击鼠标可以有效地缩小窗体，方便在桌面放置乐谱，再次点击即可恢复！";
    Text3.setToolTip(smallWindowTip);
    XSWB.setToolTip(smallWindowTip);

    addShortcutPage();
    Command1.setCaption("退出");
}

void MainWindow::addShortcutPage() {
    const char* effectKeys[6][2] = {{"Ins", "Insert"}, {"Hom", "Home"}, {"Pup", "PageUp"},
                                    {"Del", "Delete"}, {"End", "End"}, {"Pdo", "PageDown"}};
    for (int i = 0; i < 28; ++i) {
        OptionButton& option = addElement(Option3, "Option3", i, "Option3");
        if (i < 12) {
            std::string key = "F" + std::to_string(i + 1);
            option.setCaption(key);
            option.setToolTip("点击我即可设置\"" + key + "\"键拥有的乐器切换快捷方式！");
        } else if (i < 22) {
            std::string digit = std::to_string(i - 12);
            option.setCaption(digit);
            option.setToolTip("点击我即可设置小键盘数字\"" + digit + "\"键所拥有的打击乐器的快捷方式！");
        } else {
            option.setCaption(effectKeys[i - 22][0]);
            option.setToolTip(std::string("点击我即可设置\"") + effectKeys[i - 22][1] +
                              "\"键所拥有的特殊音效播放的快捷方式！");
        }
    }
    const char* labels[4] = {"乐器1", "乐器2", "乐器3", "打击乐器"};
    for (int i = 0; i < 4; ++i) addElement(YUEQI, "YUEQI", i).setCaption(labels[i]);
    File2.setPattern("*.wav");
    BCSZ.setCaption("保  存");
}

}  // namespace tessaly
