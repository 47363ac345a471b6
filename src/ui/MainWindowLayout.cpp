#include "ui/MainWindowLayout.h"

#include <iterator>

#include "forms/MainWindow.h"
#include "notation/NoteVocabulary.h"
#include "ui/HelpPageView.h"
#include "ui/StatusAreaView.h"

namespace tessaly {

namespace {

constexpr int kFormWidth = kFullWidth, kFormHeight = kFullHeight;
constexpr QRect kPanelArea(8, 36, 564, 166);
constexpr QRect kScoreArea(580, 36, 398, 166);
constexpr int kScoreButtonHeight = 26;
constexpr QRect kKeyboardArea(8, 270, 970, 94);
constexpr int kWhiteKeyWidth = 25, kBlackKeyWidth = 15;
constexpr int kRowTop = 12, kRowStep = 36, kRowHeight = 26;
// The last row: the damper check box, then the keyboard and the output device under their captions.
constexpr int kInputCaptionLeft = 106, kInputListLeft = kInputCaptionLeft + 64, kOutputCaptionLeft = 310;

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
    place(form.Check1, 12, lastRow, 92, kRowHeight);
    place(form.ComInput, kInputListLeft, lastRow, kOutputCaptionLeft - 8 - kInputListLeft, kRowHeight);
    place(form.ComDevies, kOutputCaptionLeft + 64, lastRow, 552 - kOutputCaptionLeft - 64, kRowHeight);
}

// Three rows of key caps, one for each kind of key, then the lists that
// assign what a key holds, side by side under their labels.
constexpr int kKeyLeft = 62, kKeyStep = 40, kKeyWidth = 38, kKeyRowTop = 10, kKeyRowStep = 30, kKeyHeight = 24;
constexpr int kEffectKeyStep = 54, kEffectKeyWidth = 50;
constexpr int kListTop = 124, kListLabelTop = 104, kListLeft = 12, kListStep = 136, kListWidth = 128;

void placeShortcutPage(MainWindow& form) {
    for (int i = 0; i < 28; ++i) {
        const int row = i < 12 ? 0 : i < 22 ? 1 : 2;
        const int column = i < 12 ? i : i < 22 ? i - 12 : i - 22;
        // The effect keys' three-letter captions need wider caps.
        const int step = row == 2 ? kEffectKeyStep : kKeyStep, width = row == 2 ? kEffectKeyWidth : kKeyWidth;
        place(form.Option3[i], kKeyLeft + column * step, kKeyRowTop + row * kKeyRowStep, width, kKeyHeight);
    }
    place(form.BCSZ, 460, kKeyRowTop + 2 * kKeyRowStep - 1, 92, kKeyHeight + 2);
    for (int i = 0; i < 4; ++i) {
        place(form.YUEQI[i], kListLeft + i * kListStep, kListLabelTop, kListWidth, 18);
        place(form.YQSZ[i], kListLeft + i * kListStep, kListTop, kListWidth, kRowHeight);
    }
    // The effect files take the place of the lists and their labels, which
    // are hidden while they show.
    place(form.File2, kListLeft, kListLabelTop, 4 * kListStep - 8, 56);
}

// The buttons of the score in one row under the score box.
void placeScoreButtons(MainWindow& form) {
    Control* row[] = {&form.XINJIAN, &form.Yuepu[2], &form.Yuepu[4], &form.Yuepu[0],
                      &form.Yuepu[3], &form.Yuepu[1], &form.BJCK, &form.DCYP, &form.JIANPU};
    const int count = static_cast<int>(std::size(row)), gap = 6;
    const int left = kScoreArea.left() + 8, width = (kScoreArea.width() - 16 - (count - 1) * gap) / count;
    const int top = kScoreArea.bottom() - 7 - kScoreButtonHeight;
    for (int i = 0; i < count; ++i) place(*row[i], left + i * (width + gap), top, width, kScoreButtonHeight);
}

}  // namespace

void placeMainWindowControls(MainWindow& form) {
    place(form, 0, 0, kFormWidth, kFormHeight);
    int slot = 0;
    for (auto& [index, tab] : form.Xxk) place(*tab, 12 + 80 * slot++, 6, 76, 28);
    for (auto& [index, panel] : form.Jiezhou)
        place(*panel, kPanelArea.left(), kPanelArea.top(), kPanelArea.width(), kPanelArea.height());
    placeMelodyPanel(form);
    place(form.Text3, kScoreArea.left() + 8, kScoreArea.top() + 8, kScoreArea.width() - 16,
          kScoreArea.height() - 22 - kScoreButtonHeight);
    placeScoreButtons(form);
    placeShortcutPage(form);
    place(form.Command1, kFormWidth - 84, 6, 72, 28);

    place(form.SFYXYZ, 14, 212, 88, 40);
    place(form.XSWB, 114, 206, 398, 52);
    // The status line, then the damper strip beside the clock, then the
    // credit line; the tab row holds the recorder.
    place(form.FJWZ, 686, 206, 286, 18);
    place(form.Label1, 686, 225, 130, 18);
    placeKeyboard(form);
    placeHelpPage(form);
    placeStatusArea(form);
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
    captions.push_back({"输入设备", QRect(kInputCaptionLeft, kRowTop + 3 * kRowStep + 8, 64, kRowHeight)});
    captions.push_back({"输出设备", QRect(kOutputCaptionLeft, kRowTop + 3 * kRowStep + 8, 64, kRowHeight)});
    return captions;
}

std::vector<PanelCaption> shortcutPageCaptions() {
    std::vector<PanelCaption> captions;
    const char* rows[] = {"功能键", "小键盘", "音效键"};
    for (int row = 0; row < 3; ++row)
        captions.push_back({rows[row], QRect(12, kKeyRowTop + row * kKeyRowStep, 48, kKeyHeight)});
    return captions;
}

}  // namespace tessaly
