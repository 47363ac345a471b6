#include "forms/EditorRecorderPanel.h"

namespace tessaly {

EditorRecorderPanel::EditorRecorderPanel(Form& form)
    : Lyjsj(form.addTimer("Lyjsj")), LYSJ(form.add<Label>("LYSJ")), yinzi(form.add<ComboBox>("yinzi")) {
    const char* captions[4] = {"播放", "停止", "录音", "保存"};
    for (int i = 0; i < 4; ++i) form.addElement(LUYINJI, "LUYINJI", i, "LUYINJI").setCaption(captions[i]);
    Lyjsj.setInterval(1000);
    LYSJ.setCaption("当前: 00:00");
    for (const char* quality : {"CD音质", "好音质", "普通音质"}) yinzi.addItem(quality);
    yinzi.setToolTip("根据需要选择适应的录音音质！");

    // One row under the editor's buttons.
    const int top = 494, height = 28;
    for (int i = 0; i < 4; ++i) LUYINJI[i].setGeometry({64 + 58 * i, top, 54, height});
    yinzi.setGeometry({306, top, 104, height});
    LYSJ.setGeometry({424, top, 120, height});
}

}  // namespace tessaly
