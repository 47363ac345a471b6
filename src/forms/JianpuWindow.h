#pragma once
#include "forms/Form.h"
#include "forms/UnfocusedButton.h"

namespace tessaly {

// The window "简谱" (JPXS): the score shown as numbered notation, with its
// printing and saving buttons and a line for the place where play would stop.
// It never takes the focus.
class JianpuWindow : public Form {
public:
    JianpuWindow(ControlSystem& system, EventLoop& loop);

    UnfocusedButton& DaYin;  // 打印
    UnfocusedButton& BCTP;   // 保存图片
    UnfocusedButton& DCWB;   // 导出文本
    Label& CWTS;             // the error, empty when the score reads through
    Label& ZTXX;             // what the view shows: bars, the note playing
};

}  // namespace tessaly
