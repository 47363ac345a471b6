#pragma once

namespace tessaly {

class Editor;

// Editing the bar on show: its notes and percussion, moving between bars,
// inserting, clearing, the number of bars and the time signature. Notes reach
// the tables when a note box loses the focus; hits at once.
class BarEditing {
public:
    explicit BarEditing(Editor& editor) : e_(editor) {}

    void YF1_LostFocus(int Index);
    // DJY1_Click .. DJY5_Click: row 1..5, the box's index.
    void DJY_Click(int row, int Index);
    void HScroll1_Change();
    void CHARU_Click();
    void QinKong_Click();
    void ZDXJZS_Click();
    void JPFL_Click(int Index);

    // "实际小节数是(1-2)小节" for bar 0: an editor bar is two bars of music.
    void showBarLabel(long bar);
    // Every box of the five rows set from the hits of the bar, each with its event.
    void showPercussion(long bar);

private:
    // Every box of the five rows cleared, each with its event.
    void clearAllSteps();

    Editor& e_;
};

}  // namespace tessaly
