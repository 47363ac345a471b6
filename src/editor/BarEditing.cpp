#include "editor/BarEditing.h"

#include <algorithm>

#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "editor/TextSlicer.h"
#include "platform/Dialogs.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"

namespace tessaly {

namespace {

constexpr int16_t kSlotsPerBarMinusOne[3] = {15, 23, 31};

std::string upperAscii(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

}  // namespace

const char* const kBarCountTitle = "选择小节总数";
const char* const kBarCountPrompt = "请输入音乐需要的小节总数\r\n     （音乐每两小节为软件的一小节）";

void BarEditing::YF1_LostFocus(int Index) {
    EditorState& s = e_.s;
    TextBox& box = e_.bar().YF1[Index];
    const long bar = s.CurrentBar;
    const int16_t slots = s.slotsPerBar();
    s.BarStrings(bar, Index).clear();
    box.setText(upperAscii(box.text()));
    const std::size_t width = 2 * static_cast<std::size_t>(std::max<int16_t>(slots, 0));
    if (box.length() < width) box.setText(box.text() + std::string(width - box.length(), '-'));
    s.BarStrings(bar, Index) = box.text();
    TextSlicer text(box.text());
    for (long slot = 1; slot <= slots; ++slot) {
        std::string& token = s.SlotTokens(s.slotOf(bar, slot - 1), Index);
        token = text.mid(2 * slot - 1, 2);
        s.SlotNotes(s.slotOf(bar, slot - 1), Index) = SYYPSB(token);
    }
}

void BarEditing::DJY_Click(int row, int Index) {
    EditorState& s = e_.s;
    const int track = 6 + row;
    const long bar = s.CurrentBar;
    s.BarStrings(bar, track).clear();
    s.SlotTokens(s.slotOf(bar, Index), track) = e_.bar().DJY(row)[Index].value() == 1 ? "O" : "-";
    // The fourth row fills a gap with two characters where the others use one.
    const char* gap = row == 4 ? "--" : "-";
    std::string text;
    for (long slot = 0; slot < s.slotsPerBar(); ++slot) {
        std::string& token = s.SlotTokens(s.slotOf(bar, slot), track);
        if (token.empty()) token = gap;
        text += token;
    }
    s.BarStrings(bar, track) = text;
}

void BarEditing::showBarLabel(long bar) {
    e_.bar().XJXSS.setCaption("实际小节数是(" + std::to_string(2 * bar + 1) + "-" + std::to_string(2 * bar + 2) +
                              ")小节");
}

void BarEditing::showPercussion(long bar) {
    EditorState& s = e_.s;
    for (long slot = 0; slot < s.slotsPerBar(); ++slot)
        for (int row = 1; row <= 5; ++row)
            e_.bar().DJY(row)[slot].setValue(s.SlotTokens(s.slotOf(bar, slot), 6 + row) == "O" ? 1 : 0);
}

void BarEditing::HScroll1_Change() {
    EditorState& s = e_.s;
    s.CurrentBar = e_.bar().HScroll1.value();
    e_.bar().XJZS.setText(std::to_string(s.CurrentBar));
    showBarLabel(s.CurrentBar);
    if (charLength(s.BarHead[s.CurrentBar]) > 4) e_.barSettings.CXTSB();
    for (int t = 0; t < kMelodyTracks; ++t) e_.bar().YF1[t].setText(s.BarStrings(s.CurrentBar, t));
    showPercussion(s.CurrentBar);
}

void BarEditing::clearAllSteps() {
    for (int row = 1; row <= 5; ++row) {
        // A box's event may not load or unload boxes, but take no chances with the array.
        std::vector<long> indexes;
        for (auto& [index, box] : e_.bar().DJY(row)) indexes.push_back(index);
        for (long index : indexes) e_.bar().DJY(row)[index].setValue(0);
    }
}

void BarEditing::CHARU_Click() {
    EditorState& s = e_.s;
    // Tracks 10 and 11 of the next bar and the last two note boxes keep what they had.
    for (int i = 0; i <= 4; ++i) {
        e_.bar().YF1[i].setText("");
        s.BarStrings(s.CurrentBar + 1, i).clear();
        s.BarStrings(s.CurrentBar + 1, i + 5).clear();
    }
    // Still on the bar being left: its hits go with the boxes.
    clearAllSteps();
    s.CurrentBar = toInt32(static_cast<long long>(s.CurrentBar) + 1);
    e_.bar().XJZS.setText(std::to_string(s.CurrentBar));
    if (s.BarCount <= s.CurrentBar) s.BarCount = toInt32(static_cast<long long>(s.CurrentBar) + 1);
    s.LastSlotIndex = s.lastSlotOfSong();
    e_.bar().HScroll1.setMax(s.BarCount);
}

void BarEditing::QinKong_Click() {
    EditorState& s = e_.s;
    for (int t = 0; t < kMelodyTracks; ++t) {
        e_.bar().YF1[t].setText("");
        s.BarStrings(s.CurrentBar, t).clear();
    }
    for (int t = kMelodyTracks; t < kTracks; ++t) s.BarStrings(s.CurrentBar, t).clear();
    clearAllSteps();
}

void BarEditing::ZDXJZS_Click() {
    std::optional<std::string> answer = e_.dialogs.inputBox(kBarCountPrompt, kBarCountTitle, "");
    // Cancel answers an empty text, which is no number either.
    std::optional<double> number = exactNumericValue(answer.value_or(""));
    if (!number) throw FatalFailure(FailureKind::TypeMismatch, answer.value_or(""));
    const int16_t n = roundToInt16(*number);
    if (n == 0) return;
    EditorState& s = e_.s;
    s.BarCount = n;
    s.LastSlotIndex = s.lastSlotOfSong();
    e_.bar().HScroll1.setMax(s.BarCount);
}

void BarEditing::JPFL_Click(int Index) {
    EditorState& s = e_.s;
    s.SlotsPerBarMinusOne = kSlotsPerBarMinusOne[Index];
    e_.form.fitToTimeSignature(Index);
    for (auto& [t, box] : e_.bar().YF1) box->setMaxLength(2 * s.slotsPerBar());
    e_.form.placePicture3();
    e_.window.unloadSteps();
    e_.window.JZXSGC();
}

}  // namespace tessaly
