#include "forms/MainRecorderPanel.h"

namespace tessaly {

namespace {
constexpr int kNormalTop = 174, kNormalSize = 25;
constexpr int kNormalLeft[3] = {8, 40, 72};
constexpr int kPressedTop = 177, kPressedSize = 19;
constexpr int kPressedLeft[3] = {13, 40, 75};
}  // namespace

MainRecorderPanel::MainRecorderPanel(Form& form)
    : BcLY(form.add<Button>("BcLY")), Label12(form.add<Label>("Label12")) {
    const int pictures[3] = {kRecorderPlayPicture, kRecorderStopPicture, kRecorderRecordPicture};
    for (int i = 0; i < 3; ++i) form.addElement(Image1, "Image1", i).setPicture(pictures[i]);
    showAllNormal();
    BcLY.setCaption("保存");
    BcLY.setEnabled(false);
    Label12.setCaption("00:00:00");
}

void MainRecorderPanel::showNormal(int index) {
    Image1[index].setGeometry({kNormalLeft[index], kNormalTop, kNormalSize, kNormalSize});
}

void MainRecorderPanel::showPressed(int index) {
    if (index == 1) return showNormal(index);
    Image1[index].setGeometry({kPressedLeft[index], kPressedTop, kPressedSize, kPressedSize});
}

void MainRecorderPanel::showAllNormal() {
    for (int i = 0; i < 3; ++i) showNormal(i);
}

}  // namespace tessaly
