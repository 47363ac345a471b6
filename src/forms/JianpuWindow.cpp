#include "forms/JianpuWindow.h"

namespace tessaly {

JianpuWindow::JianpuWindow(ControlSystem& system, EventLoop& loop)
    : Form(system, loop, "JPXS"),
      DaYin(add<UnfocusedButton>("DaYin")),
      BCTP(add<UnfocusedButton>("BCTP")),
      DCWB(add<UnfocusedButton>("DCWB")),
      CWTS(add<Label>("CWTS")),
      ZTXX(add<Label>("ZTXX")) {
    setCaption("简谱");
    DaYin.setCaption("打印");
    DaYin.setToolTip("把简谱打印出来，或在打印对话框中选择打印到 PDF 文件！");
    BCTP.setCaption("保存图片");
    BCTP.setToolTip("把简谱保存为 PNG 或 SVG 图片！");
    DCWB.setCaption("导出文本");
    DCWB.setToolTip("把简谱导出为“1=C 4/4”格式的简谱文本，可用排版软件读入！");
}

}  // namespace tessaly
