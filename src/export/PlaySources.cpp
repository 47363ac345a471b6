#include "export/PlaySources.h"

#include "export/RenderProgram.h"
#include "shell/Instrument.h"

namespace tessaly {

namespace {

constexpr int kScoreTicksPerQuarter = 8;
constexpr int kSongSlotsPerQuarter = 4;

}  // namespace

PlayStart scoreFilePlay(RenderProgram& program, const std::string& path) {
    const std::string copy = program.copyIntoScores(path);
    Instrument& app = program.instrument();
    return {&app.form1.Timer3, kScoreTicksPerQuarter, 0, [&program, &app, copy] {
                program.dialogs.queueFileAnswer(copy);
                app.form1.Yuepu[2].userClick();
            }};
}

PlayStart scoreTextPlay(RenderProgram& program, const std::string& text) {
    Instrument& app = program.instrument();
    app.form1.Text3.setText(text);
    return {&app.form1.Timer3, kScoreTicksPerQuarter, 0, [&app] { app.form1.Yuepu[0].userClick(); }};
}

PlayStart editorSongPlay(RenderProgram& program) {
    Instrument& app = program.instrument();
    EditorCommandPanel& commands = app.YYBJ.commands();
    // An editor bar holds two bars of music of 2, 3 or 4 quarters.
    const int slots = app.editor.s.slotsPerBar();
    const int beatsPerBar = slots == 16 || slots == 24 || slots == 32 ? slots / (2 * kSongSlotsPerQuarter) : 0;
    return {&commands.YYDS, kSongSlotsPerQuarter, beatsPerBar, [&commands] { commands.ST2.userClick(); }};
}

PlayStart editFilePlay(RenderProgram& program, const std::string& path) {
    Instrument& app = program.instrument();
    app.form1.BJCK.userClick();
    program.dialogs.queueFileAnswer(path);
    app.YYBJ.commands().DkBianji.userClick();
    return editorSongPlay(program);
}

}  // namespace tessaly
