#include "forms/EditorCommandPanel.h"

namespace tessaly {

EditorCommandPanel::EditorCommandPanel(Form& form)
    : BCBXJ(form.add<Button>("BCBXJ")),
      CHARU(form.add<Button>("CHARU")),
      QinKong(form.add<Button>("QinKong")),
      ZDXJZS(form.add<Button>("ZDXJZS")),
      ST1(form.add<ToggleOptionButton>("ST1", -1, "ST1")),
      ST2(form.add<CheckBox>("ST2")),
      BCBJ(form.add<Button>("BCBJ")),
      DkBianji(form.add<Button>("DkBianji")),
      DCBJ(form.add<Button>("DCBJ")),
      DRYP(form.add<Button>("DRYP")),
      BZWJ(form.add<Button>("BZWJ")),
      TUICHU(form.add<Button>("TUICHU")),
      YYDS(form.addTimer("YYDS")) {
    BCBXJ.setCaption("保存");
    BCBXJ.setToolTip("对于修改了乐器，音量等项目的小节请点击保存该小节的设置！");
    CHARU.setCaption("插入");
    CHARU.setToolTip("在当前小节后插入新的小节！后面本来有的小节将被覆盖！");
    QinKong.setCaption("清空");
    ZDXJZS.setCaption("设置");
    ST1.setCaption("试听本节效果");
    ST1.setToolTip("只要有修改的小节都应试听以便软件记住你的修改！");
    ST2.setCaption("从开始处启动");
    BCBJ.setCaption("保存编辑");
    DkBianji.setCaption("打开编辑");
    DCBJ.setCaption("导出");
    DCBJ.setToolTip("把编辑的乐曲导出为MIDI文件或WAV、MP3音频，可在其他音乐软件或手机上播放！");
    DRYP.setCaption("导入乐谱");
    DRYP.setToolTip("打开txt乐谱，旋律放入乐器1和乐器2，并配上主窗口的和弦与节奏！");
    BZWJ.setCaption("帮助");
    TUICHU.setCaption("退出窗口");

    const int buttonTop = 410, fileTop = 446, height = 28;
    BCBXJ.setGeometry({8, buttonTop, 60, height});
    CHARU.setGeometry({74, buttonTop, 60, height});
    QinKong.setGeometry({140, buttonTop, 60, height});
    ZDXJZS.setGeometry({206, buttonTop, 60, height});
    ST1.setGeometry({280, buttonTop, 112, height});
    ST2.setGeometry({398, buttonTop, 120, height});
    DRYP.setGeometry({530, buttonTop, 96, height});
    BCBJ.setGeometry({8, fileTop, 84, height});
    DkBianji.setGeometry({98, fileTop, 84, height});
    DCBJ.setGeometry({534, fileTop, 84, height});
    BZWJ.setGeometry({624, fileTop, 60, height});
    TUICHU.setGeometry({690, fileTop, 90, height});
}

}  // namespace tessaly
