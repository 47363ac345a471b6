#pragma once
#include "forms/Form.h"
#include "forms/UnfocusedButton.h"

namespace tessaly {

// The score entry window YYLR: a song name, a large box for the score typed
// from sheet music, the help on the format, and open, save and return.
class ScoreEntryWindow : public Form {
public:
    ScoreEntryWindow(ControlSystem& system, EventLoop& loop);

    TextBox& WJMC;
    Label& Label2;  // over WJMC
    TextBox& Text1;
    Label& Label3;  // over Text1
    Label& Label1;  // the help on the format
    Button& DKYP;
    Button& Command1;
    Button& FANHUI;
    UnfocusedButton& JIANPU;  // the score typed here as numbered notation

protected:
    void restoreDesignState() override;
};

extern const char* const kScoreEntryHelp;

}  // namespace tessaly
