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
}

}  // namespace tessaly
