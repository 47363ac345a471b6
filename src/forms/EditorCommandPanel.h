#pragma once
#include "forms/Form.h"
#include "forms/ToggleOptionButton.h"

namespace tessaly {

// The editor's buttons: those that work on the bar, the two that play, the
// edit files, the score import, help and leaving; and the sequencer's timer.
class EditorCommandPanel {
public:
    explicit EditorCommandPanel(Form& form);

    Button& BCBXJ;
    Button& CHARU;
    Button& QinKong;
    Button& ZDXJZS;
    ToggleOptionButton& ST1;
    CheckBox& ST2;
    Button& BCBJ;
    Button& DkBianji;
    Button& DCBJ;  // export
    Button& DRYP;
    Button& BZWJ;
    Button& TUICHU;
    TimerControl& YYDS;
};

}  // namespace tessaly
