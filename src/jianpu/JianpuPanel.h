#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "jianpu/JianpuSheet.h"

namespace tessaly {

class Dialogs;
class JianpuOutput;
class JianpuWindow;
class MainWindow;
class ScoreEntryWindow;
class TextBox;
struct SharedState;

// The handlers of the window "简谱": it follows the score box of the window
// it was opened from, with the key, tempo and metre of the main window, and
// marks the note "试听" is playing.
class JianpuPanel {
public:
    JianpuPanel(SharedState& state, MainWindow& form, ScoreEntryWindow& entry, JianpuWindow& window, Dialogs& dialogs);

    void wire();
    void setOutput(JianpuOutput* output) { output_ = output; }
    // The view tells how wide it is, in digit heights.
    void setWidth(float em);

    const JianpuSheet& sheet() const { return sheet_; }
    // The note or rest "试听" is playing, an index into the reading's events, or -1.
    int playingEvent() const { return playingEvent_; }
    // The file's or song's name, the title of prints and pictures.
    std::string title() const;
    // Called after the sheet or the playing note has changed.
    std::function<void()> onChanged;

    void JIANPU_Click(TextBox& source);
    void DaYin_Click();
    void BCTP_Click();
    void DCWB_Click();

private:
    void refresh();
    JianpuStart startInForce() const;
    // The source box's text as one line; a view of the box's own text when it
    // has no line breaks (a take, written on every key), else of joined_.
    std::string_view sourceText();

    SharedState& state_;
    MainWindow& form_;
    ScoreEntryWindow& entry_;
    JianpuWindow& window_;
    Dialogs& dialogs_;
    JianpuOutput* output_ = nullptr;
    TextBox* source_ = nullptr;
    std::string joined_;
    JianpuSheet sheet_;
    float width_ = 40;
    int playingEvent_ = -1;
    // While "试听" plays, its commands move the key and tempo lists: the
    // heading keeps what was in force when play started.
    std::optional<JianpuStart> startOfPlay_;
};

}  // namespace tessaly
