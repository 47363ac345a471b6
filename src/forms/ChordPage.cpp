#include "forms/ChordPage.h"

#include "forms/MainWindow.h"

namespace tessaly {

namespace {

constexpr const char* kFigureHintStart =
    "此处使用1和弦中最低到最高音里的任意 135 音符或 CC和弦音符！对其他和弦软件会自动计算给出！";

}  // namespace

ChordPage::ChordPage(MainWindow& form)
    : Text4(form.add<TextBox>("Text4")),
      Text5(form.add<TextBox>("Text5")),
      Text7(form.add<TextBox>("Text7")),
      Check4(form.add<CheckBox>("Check4")),
      Check7(form.add<CheckBox>("Check7")),
      Check9(form.add<CheckBox>("Check9")),
      Text6(form.add<TextBox>("Text6")),
      Text2(form.add<TextBox>("Text2")),
      Command3(form.add<Button>("Command3")),
      Command4(form.add<Button>("Command4")),
      Check6(form.add<CheckBox>("Check6")),
      Label13(form.add<Label>("Label13")),
      Label14(form.add<Label>("Label14")),
      HXYS(form.addTimer("HXYS")) {
    for (TextBox* figure : {&Text4, &Text5, &Text7}) figure->setMaxLength(16);
    Text4.setText(kDefaultFigure1);
    Text5.setText(kDefaultFigure2);
    Text7.setText(kDefaultFigure3);
    Text4.setToolTip(std::string(kFigureHintStart) + "同时本处音符为每小节发声！");
    Text5.setToolTip(std::string(kFigureHintStart) + "同时本处音符为每两小节发声一次！");
    Text7.setToolTip("设置音符将在和弦顺序的最后一小节发声！");
    for (CheckBox* lock : {&Check4, &Check7, &Check9}) lock->setCaption("锁定音符");

    Text6.setMaxLength(17);
    Text6.setToolTip("在此输入17位以下 1_7之间数字可以改变和弦循环顺序！");
    Text2.setMaxLength(32);
    Text2.setText(Text4.text() + Text5.text());

    Command3.setCaption("生成随机节奏");
    Command3.setToolTip("在这里生成新的节奏模板和演奏顺序！");
    Command4.setCaption("保 存");
    Command4.setToolTip("保存自己编辑的和弦");
    Check6.setCaption("启 动");
    Check6.setToolTip("启动或停止和弦试听！");
    const char* speeds[] = {"低速", "中速", "高速"};
    for (int i = 0; i < 3; ++i) form.addElement(Option4, "Option4", i, "Option4").setCaption(speeds[i]);
    Label13.setCaption("音量");
    Label14.setCaption("和弦顺序");
    form.HxYL.setToolTip("和弦演奏音量！");
}

}  // namespace tessaly
