#pragma once

namespace tessaly {

class Editor;

// Plays the song slot by slot: ST1 the bar on show once, ST2 the whole song.
// The timer YYDS runs YYSB once a slot; YYSB sets the expression, applies a
// bar's settings when the bar changes and sounds the slot by XJFS.
class EditorSequencer {
public:
    explicit EditorSequencer(Editor& editor) : e_(editor) {}

    void ST1_Click();
    void ST2_Click();
    void YYDS_Timer();
    void YYSB();
    void XJFS();

    // Codes of every melody slot from its token, and the percussion records'
    // sounds and flags, over the whole song.
    void prepare();
    // Note-offs for every note a melody channel can hold: 455 messages.
    void stopAllNotes();

private:
    void updateExpression();
    void sendAccents();
    // The end of a play: both starts cleared, ST2 captioned for a start again,
    // the timer stopped.
    void endPlayControls();
    // Silences what a track holds: a chord's notes are not remembered.
    void silenceTrack(int track);

    Editor& e_;
};

}  // namespace tessaly
