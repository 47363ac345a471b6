#pragma once
#include <string>

#include "Harness.h"
#include "editor/Editor.h"

namespace tessaly::testing {

// The program started, with the music editor opened from the main window's
// button and the messages of the opening taken.
struct EditorHarness : Harness {
    Editor& editor = app->editor;
    EditorWindow& yybj = app->YYBJ;
    EditorState& song = app->editor.s;
    ScriptedDialogs& dialogs = app->unansweredDialogs;

    EditorHarness() {
        app->form1.BJCK.userClick();
        midiPort.take();
    }

    // Types the notes of a track into its box and leaves the box, as a user does.
    void writeNotes(int track, const std::string& text) {
        TextBox& box = yybj.bar().YF1[track];
        box.setFocus();
        box.setText(text);
        yybj.bar().XJZS.setFocus();
    }
    // A percussion box clicked by the user: row 1..5 is track 6 + row.
    void hit(int row, int slot) { yybj.bar().DJY(row)[slot].userClick(); }
    void showBar(int bar) { yybj.bar().HScroll1.setValue(bar); }
    std::string file(const std::string& name) const { return (appDir / "演奏记录" / name).string(); }
};

}  // namespace tessaly::testing
