#include "forms/EditorBarPanel.h"

#include <algorithm>

#include "runtime/FatalFailure.h"

namespace tessaly {

namespace {
constexpr const char* kRowNames[5] = {"DJY1", "DJY2", "DJY3", "DJY4", "DJY5"};

const char* const kNotationText =
    "音符的写法：每个音符占两个字母，第一个字母是音区（L最低音、W低音、K中音、H高音、M最高音），"
    "第二个字母是音名（C哆 D唻 E咪 F法 G嗦 A啦 B希），如KC是中音哆；XZ是休止，TZ是结束，"
    "--表示继续上一个音。每个音符占十六分之一音符的时间。";
}  // namespace

EditorBarPanel::EditorBarPanel(Form& form)
    : Picture1(form.add<PictureBox>("Picture1")),
      Label9(form.add<Label>("Label9")),
      HScroll1(form.add<ScrollBar>("HScroll1")),
      XJZS(form.add<TextBox>("XJZS")),
      XJXSS(form.add<Label>("XJXSS")),
      form_(form) {
    Picture1.setGeometry({70, 52, 465, 12 * kEditorRowPitch + 2});
    Label9.setCaption(kNotationText);
    Label9.setGeometry({8, 6, 773, 40});
    for (int t = 0; t < 7; ++t) {
        TextBox& box = form.addElement(YF1, "YF1", t);
        box.setGeometry({0, editorRowTop(t), 325, 22});
    }
    for (int row = 1; row <= 5; ++row) {
        CheckBox& first = form.addElement(DJY(row), kRowNames[row - 1], 0);
        first.setGeometry({0, editorRowTop(6 + row), kStepBoxWidth, kStepBoxHeight});
    }
    HScroll1.setRange(0, 200);
    HScroll1.setGeometry({8, 348, 300, 22});
    XJZS.setText("0");
    XJZS.setGeometry({314, 348, 52, 22});
    XJXSS.setCaption("实际小节数是(1-2)小节");
    XJXSS.setGeometry({374, 348, 220, 22});
}

ControlArray<CheckBox>& EditorBarPanel::DJY(int row) {
    switch (row) {
    case 1: return DJY1;
    case 2: return DJY2;
    case 3: return DJY3;
    case 4: return DJY4;
    case 5: return DJY5;
    default: throw FatalFailure(FailureKind::SubscriptOutOfRange, "DJY" + std::to_string(row));
    }
}

CheckBox& EditorBarPanel::loadStep(int row, long k) {
    ControlArray<CheckBox>& boxes = DJY(row);
    if (boxes.contains(k)) throw FatalFailure(FailureKind::InvalidCall, "控件已加载 " + std::to_string(k));
    const Geometry design = boxes[0].geometry();
    CheckBox& box = form_.addElement(boxes, kRowNames[row - 1], k);
    box.setGeometry(design);
    stepsChanged(row, k, true);
    return box;
}

void EditorBarPanel::unloadStep(int row, long k) {
    ControlArray<CheckBox>& boxes = DJY(row);
    CheckBox& box = boxes[k];  // a box that is not there is fatal
    if (k == 0) throw FatalFailure(FailureKind::InvalidCall, "不能卸载设计时的控件");
    boxes.erase(k);
    form_.removeControl(box);
    stepsChanged(row, k, false);
}

int EditorBarPanel::observeSteps(StepObserver observer) {
    observers_.emplace_back(nextObserver_, std::move(observer));
    return nextObserver_++;
}

void EditorBarPanel::unobserveSteps(int id) {
    std::erase_if(observers_, [id](const auto& o) { return o.first == id; });
}

void EditorBarPanel::stepsChanged(int row, long index, bool loaded) {
    auto observers = observers_;
    for (auto& [id, observer] : observers) observer(row, index, loaded);
}

}  // namespace tessaly
