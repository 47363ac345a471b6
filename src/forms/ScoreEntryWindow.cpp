#include "forms/ScoreEntryWindow.h"

namespace tessaly {

const char* const kScoreEntryHelp =
    "乐谱格式说明：\r\n"
    "1. L、W、K、H、M 五个字母表示音区，从最低音、低音、中音、高音到最高音。\r\n"
    "2. C、D、E、F、G、A、B 七个字母表示七个音，即简谱的 1 到 7（哆唻咪法嗦啦希）。\r\n"
    "3. 一个音区字母加一个音名字母组成一个音符，如 KC 是中音 1。\r\n"
    "4. 音符后面写 1 到 99 的数字表示时长，以八分之一拍为单位，如 KC8 是一拍；"
    "和前一个音符时长相同时数字可以省略。\r\n"
    "5. XZ 表示休止，后面同样写它自己的时长；TZ 表示乐曲结束。\r\n"
    "建议每行输入一个乐句，重复的乐句可以复制后粘贴。保存后的文件可以在主窗口用“打开”按钮打开演奏，"
    "也可以在音乐编辑窗口用导入按钮导入。";

ScoreEntryWindow::ScoreEntryWindow(ControlSystem& system, EventLoop& loop)
    : Form(system, loop, "YYLR"),
      WJMC(add<TextBox>("WJMC")),
      Label2(add<Label>("Label2")),
      Text1(add<TextBox>("Text1")),
      Label3(add<Label>("Label3")),
      Label1(add<Label>("Label1")),
      DKYP(add<Button>("DKYP")),
      Command1(add<Button>("Command1")),
      FANHUI(add<Button>("FANHUI")),
      JIANPU(add<UnfocusedButton>("JIANPU")) {
    setCaption("乐谱录入201705");
    Label2.setCaption("请在这里输入歌曲名字");
    Label3.setCaption("请在下面的文本框中输入乐谱(请使用大写的英文字母(乐谱格式如(KC8KDKEKF4KGKAKB)))");
    Label1.setCaption(kScoreEntryHelp);
    DKYP.setCaption("打开");
    Command1.setCaption("保存");
    FANHUI.setCaption("返回主窗口");
    JIANPU.setCaption("简谱");
}

void ScoreEntryWindow::restoreDesignState() {
    WJMC.setText("");
    Text1.setText("");
}

}  // namespace tessaly
