#include "editor/Editor.h"

#include "forms/ControlSystem.h"
#include "forms/VariableAccessors.h"
#include "midi/MidiOut.h"

namespace tessaly {

Editor::Editor(Platform& platform_, SharedState& shared_, MidiOut& midi_, ChordLayers& chords_,
               ChordState& chordState, EditorRecorderState& recorderState, Accompaniment& accompaniment_,
               MainWindow& mainForm_, EditorWindow& form_, Dialogs& dialogs_, ControlSystem& controls_)
    : state_(std::make_unique<EditorState>()),
      s(*state_),
      platform(platform_),
      shared(shared_),
      midi(midi_),
      chords(chords_),
      accompaniment(accompaniment_),
      mainForm(mainForm_),
      form(form_),
      dialogs(dialogs_),
      controls(controls_),
      barEditing(*this),
      barSettings(*this),
      sequencer(*this),
      files(*this),
      window(*this),
      scoreImport(*this, chordState),
      recorder(platform_, shared_, recorderState, dialogs_) {
    form.onLoad = [this] { window.Form_Load(); };
    form.onActivate = [this] { window.Form_Activate(); };
    form.onUnload = [this] { window.Form_Unload(); };
    wire();
}

Editor::~Editor() = default;

void Editor::wireStep(int row, long index) {
    bar().DJY(row)[index].onClick = [this, row, index] { barEditing.DJY_Click(row, static_cast<int>(index)); };
}

void Editor::wire() {
    EditorBarPanel& b = bar();
    for (auto& [t, box] : b.YF1) {
        const int track = static_cast<int>(t);
        box->onLostFocus = [this, track] { barEditing.YF1_LostFocus(track); };
    }
    for (int row = 1; row <= 5; ++row)
        for (auto& [index, box] : b.DJY(row)) wireStep(row, index);
    b.HScroll1.onChange = [this] { barEditing.HScroll1_Change(); };

    EditorSettingsPanel& p = settings();
    for (int t = 0; t < 12; ++t) {
        p.SYYQ[t].onClick = p.SYYQ[t].onChange = [this, t] { barSettings.SYYQ_Click(t); };
        p.YQYL[t].onClick = p.YQYL[t].onChange = [this, t] { barSettings.YQYL_Click(t); };
    }
    p.DQSUDU.onClick = [this] { barSettings.DQSUDU_Click(); };
    p.DQSUDU.onLostFocus = [this] { barSettings.DQSUDU_LostFocus(); };
    p.DQYD.onClick = p.DQYD.onChange = [this] { barSettings.DQYD_Click(); };
    for (int i = 0; i < 2; ++i) p.Check1[i].onClick = [this, i] { barSettings.Check1_Click(i); };
    p.HScroll3.onChange = [this] { barSettings.HScroll3_Change(); };
    for (int i = 0; i < 3; ++i) p.JPFL[i].onClick = [this, i] { barEditing.JPFL_Click(i); };
    p.ComDevies.onClick = [this] { window.ComDevies_Click(); };

    EditorCommandPanel& c = commands();
    c.BCBXJ.onClick = [this] { barSettings.BCXJ(); };
    c.CHARU.onClick = [this] { barEditing.CHARU_Click(); };
    c.QinKong.onClick = [this] { barEditing.QinKong_Click(); };
    c.ZDXJZS.onClick = [this] { barEditing.ZDXJZS_Click(); };
    c.ST1.onClick = [this] { sequencer.ST1_Click(); };
    c.ST2.onClick = [this] { sequencer.ST2_Click(); };
    c.BCBJ.onClick = [this] { files.BCBJ_Click(); };
    c.DkBianji.onClick = [this] { files.DkBianji_Click(); };
    c.DCBJ.onClick = [this] {
        if (exportSong) exportSong();
    };
    c.BZWJ.onClick = [this] { window.BZWJ_Click(); };
    c.TUICHU.onClick = [this] { window.TUICHU_Click(); };
    c.YYDS.onTimer = [this] { sequencer.YYDS_Timer(); };
    scoreImport.wire();
    recorder.wire(form.recorder());
}

void Editor::registerVariables(ControlSystem& r) {
    r.registerVariable("SlotTokens", table2(s.SlotTokens));
    r.registerVariable("SlotNotes", table2(s.SlotNotes));
    r.registerVariable("BarStrings", table2(s.BarStrings));
    r.registerVariable("BarHead", table(s.BarHead));
    r.registerVariable("BarCount", scalar(s.BarCount));
    r.registerVariable("LastSlotIndex", scalar(s.LastSlotIndex));
    r.registerVariable("CurrentBar", scalar(s.CurrentBar));
    r.registerVariable("SlotsPerBarMinusOne", scalar(s.SlotsPerBarMinusOne));
    r.registerVariable("SlotsPerBar", {[this](const std::vector<long>& i, std::string_view f) {
                                          variable_access::expect(i, 0, f);
                                          return std::to_string(s.slotsPerBar());
                                      },
                                      nullptr});
    r.registerVariable("BarKeyText", table(s.BarKeyText));
    r.registerVariable("BarTempoText", table(s.BarTempoText));
    r.registerVariable("BarDepthText", table(s.BarDepthText));
    r.registerVariable("BarEffectText", table(s.BarEffectText));
    r.registerVariable("TrackProgram", table(s.TrackProgram));
    r.registerVariable("DepthStep", scalar(s.DepthStep));
    r.registerVariable("ExprValue", scalar(s.ExprValue));
    r.registerVariable("AccentValue", scalar(s.AccentValue));
    r.registerVariable("LastPitch", table(s.LastPitch));
    r.registerVariable("SlotInBar", scalar(s.SlotInBar));
    r.registerVariable("PlayCountdown", scalar(s.PlayCountdown));
    r.registerVariable("LastShownBar", scalar(s.LastShownBar));
    r.registerVariable("EditFilePath", scalar(s.EditFilePath));
    r.registerVariable("FileLine", table(s.FileLine));
    r.registerVariable("LoadedSlots", scalar(s.LoadedSlots));
    r.registerVariable("EditorStarted", scalar(s.EditorStarted));
    r.registerVariable("ShownSlotsMinusOne", scalar(s.ShownSlotsMinusOne));
    r.registerVariable("ImportCursor", scalar(s.ImportCursor));
}

}  // namespace tessaly
