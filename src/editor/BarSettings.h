#pragma once
#include <cstdint>

namespace tessaly {

class Editor;

// The settings of a bar: the lists act at once on the live settings; BCXJ
// keeps them in the bar's settings text and CXTSB brings them back.
class BarSettings {
public:
    explicit BarSettings(Editor& editor) : e_(editor) {}

    // Builds the settings text of CurrentBar from the controls.
    void BCXJ();
    // Applies the settings text of CurrentBar to the controls and live settings.
    void CXTSB();

    void SYYQ_Click(int Index);
    void YQYL_Click(int Index);
    void DQSUDU_Click();
    void DQSUDU_LostFocus();
    void DQYD_Click();
    void Check1_Click(int Index);
    void HScroll3_Change();

    // The expression a play starts from: 0 for a swell, else full.
    void resetExpression();
    // The percussion message of track 7..11 as its list and volume make it.
    int32_t percussionMessage(int track) const;

private:
    // "11", "10", "01" or "00" from the two effect boxes.
    void storeEffects();

    Editor& e_;
};

}  // namespace tessaly
