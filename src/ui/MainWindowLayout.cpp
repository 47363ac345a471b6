#include "ui/MainWindowLayout.h"

#include "forms/MainWindow.h"
#include "notation/NoteVocabulary.h"

namespace tessaly {

namespace {

constexpr int kFormWidth = 986, kFormHeight = 369;
constexpr QRect kPanelArea(8, 36, 564, 166);
constexpr QRect kScoreArea(580, 36, 398, 166);
constexpr QRect kKeyboardArea(8, 262, 970, 102);
constexpr int kWhiteKeyWidth = 25, kBlackKeyWidth = 15;
constexpr int kRowTop = 12, kRowStep = 36, kRowHeight = 26;

void place(Control& control, int left, int top, int width, int height) {
    control.setGeometry({left, top, width, height});
}

void placeKeyboard(MainWindow& form) {
    const int whiteCount = [] {
        int n = 0;
        for (int offset = 0; offset < kOnScreenKeyCount; ++offset) n += isWhiteKey(offset) ? 1 : 0;
        return n;
    }();
    const int left = kKeyboardArea.left() + (kKeyboardArea.width() - whiteCount * kWhiteKeyWidth) / 2;
    const int top = kKeyboardArea.top() + 4;
    const int whiteHeight = kKeyboardArea.height() - 8, blackHeight = whiteHeight * 3 / 5;
    int whites = 0;
    for (int offset = 0; offset < kOnScreenKeyCount; ++offset) {
        if (isWhiteKey(offset)) {
            place(form.Picture1[offset], left + whites * kWhiteKeyWidth, top, kWhiteKeyWidth, whiteHeight);
            ++whites;
        } else {
            // Astride the line between the two white keys around it.
            place(form.Picture1[offset], left + whites * kWhiteKeyWidth - kBlackKeyWidth / 2, top, kBlackKeyWidth,
                  blackHeight);
        }
    }
}

void placeMelodyPanel(MainWindow& form) {
    for (int i = 0; i < 3; ++i) {
        const int top = kRowTop + i * kRowStep;
        place(form.ComSounds[i], 62, top, 196, kRowHeight);
        place(form.Zxlyl[i], 300, top, 62, kRowHeight);
        place(form.Check3[i], 374, top, 64, kRowHeight);
    }
    place(form.SD, 484, kRowTop, 68, kRowHeight);
    place(form.YD, 484, kRowTop + kRowStep, 68, kRowHeight);
    const int lastRow = kRowTop + 3 * kRowStep + 8;
    place(form.Check1, 12, lastRow, 96, kRowHeight);
    place(form.Check5, 112, lastRow, 96, kRowHeight);
    place(form.ComDevies, 300, lastRow, 252, kRowHeight);
}

}  // namespace

void placeMainWindowControls(MainWindow& form) {
    place(form, 0, 0, kFormWidth, kFormHeight);
    int slot = 0;
    for (auto& [index, tab] : form.Xxk) place(*tab, 12 + 80 * slot++, 6, 76, 28);
    for (auto& [index, panel] : form.Jiezhou)
        place(*panel, kPanelArea.left(), kPanelArea.top(), kPanelArea.width(), kPanelArea.height());
    placeMelodyPanel(form);
    place(form.Text3, kScoreArea.left() + 8, kScoreArea.top() + 8, kScoreArea.width() - 16, kScoreArea.height() - 16);

    place(form.SFYXYZ, 14, 212, 88, 40);
    place(form.XSWB, 114, 206, 556, 52);
    place(form.FJWZ, 686, 210, 286, 20);
    place(form.Label1, 686, 234, 286, 20);
    placeKeyboard(form);
}

std::vector<QRect> mainWindowCards() { return {kPanelArea, kScoreArea, kKeyboardArea}; }

std::vector<PanelCaption> melodyPanelCaptions() {
    std::vector<PanelCaption> captions;
    const char* instruments[] = {"乐器一", "乐器二", "乐器三"};
    for (int i = 0; i < 3; ++i) {
        const int top = kRowTop + i * kRowStep;
        captions.push_back({instruments[i], QRect(12, top, 48, kRowHeight)});
        captions.push_back({"音量", QRect(266, top, 34, kRowHeight)});
    }
    captions.push_back({"速度", QRect(448, kRowTop, 36, kRowHeight)});
    captions.push_back({"音调", QRect(448, kRowTop + kRowStep, 36, kRowHeight)});
    captions.push_back({"输出设备", QRect(232, kRowTop + 3 * kRowStep + 8, 64, kRowHeight)});
    return captions;
}

}  // namespace tessaly
