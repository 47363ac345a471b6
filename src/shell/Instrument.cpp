#include "shell/Instrument.h"

#include <cstdlib>

#include "notation/Catalogue.h"
#include "notation/KeyTables.h"
#include "notation/NoteVocabulary.h"
#include "analysis/ImportState.h"
#include "chords/ChordRegistry.h"
#include "score/ScoreRecovery.h"
#include "shell/StateRegistry.h"

namespace tessaly {

const char* const kStartHint =
    "    当键盘演奏无声时请将输入法切换为英语(美国)输入方式，演奏当中可用空格键终止演奏！";

Instrument::Instrument(Platform& platform_, std::string appDir, std::string shippedData)
    : platform(platform_),
      midi(platform_, state),
      form1(controls, platform_.loop),
      chords(state, chordState, midi, form1),
      accompaniment(state, midi, form1, chords),
      effects(platform_, state, form1),
      keyboard(platform_, state, midi, form1, accompaniment, chords, effects),
      midiKeyboard(platform_, state, midi, form1, keyboard),
      mouse(state, midi, form1),
      DZQQD(controls, platform_.loop),
      Form3(controls, platform_.loop),
      settings(platform_, state, midi, form1),
      shortcuts(platform_, state, midi, form1, effects),
      startUp(*this),
      panels(form1),
      help(form1),
      windowShell(platform_, form1),
      dialogs(platform_.dialogs ? *platform_.dialogs : unansweredDialogs),
      rhythmFiles(platform_, state, midi, form1, dialogs),
      scorePlayer(platform_, state, midi, form1, accompaniment, chords, rhythmFiles, dialogs),
      scorePanel(state, form1, scorePlayer, accompaniment, chords, dialogs, controls),
      YYLR(controls, platform_.loop),
      scoreEntry(state, YYLR, form1, dialogs),
      rhythmSequencer(platform_, state, form1, accompaniment, chords),
      patternEditing(state, midi, form1),
      chordSequencer(state, chordState, midi, form1, chords),
      chordPageHandlers(platform_, state, chordState, midi, form1, chords),
      recorder(platform_, state, recorderState.main, form1, dialogs),
      YYBJ(controls, platform_.loop),
      editor(platform_, state, midi, chords, chordState, recorderState.editor, accompaniment, form1, YYBJ, dialogs,
             controls),
      JPXS(controls, platform_.loop),
      jianpu(state, form1, YYLR, JPXS, dialogs),
      appDir_(std::move(appDir)),
      shippedData_(std::move(shippedData)) {
    if (!appDir_.empty() && appDir_.back() != '/') appDir_ += '/';
    recoveryFolders_ = recoveryFolders(appDir_, std::getenv("XDG_STATE_HOME"), std::getenv("HOME"));
    keyboard.wire();
    midiKeyboard.wire();
    mouse.wire();
    shortcuts.wire();
    startUp.wire();
    panels.wire();
    panels.setEntryAction(4, [this] { help.enterHelpTab(); });
    panels.addSeeThroughBox(4, form1.helpPage.Text1);
    for (TextBox* box : {&form1.chordPage.Text4, &form1.chordPage.Text5, &form1.chordPage.Text7, &form1.chordPage.Text6})
        panels.addSeeThroughBox(1, *box);
    panels.setEntryAction(5, [this] { shortcuts.enterShortcutTab(); });
    help.wire();
    windowShell.wire();
    scorePlayer.wire();
    scorePanel.wire();
    scoreEntry.wire();
    jianpu.wire();
    rhythmFiles.wire();
    rhythmSequencer.wire();
    patternEditing.wire();
    chordSequencer.wire();
    chordPageHandlers.wire();
    // A change of metre re-forms the chord figures too.
    patternEditing.onMetreChanged = [this](int metre) { chordPageHandlers.metreChanged(metre == 1); };
    panels.setEntryAction(1, [this] { chordPageHandlers.enterChordTab(); });
    recorder.wire();
    windowShell.pollRecorder = [this] { recorder.Timer2_Timer(); };
    form1.BCSZ.onClick = [this] { settings.BCSZ_Click(); };
    form1.ComDevies.onClick = [this] { ComDevies_Click(); };
    form1.onLoad = [this] { Form_Load(); };
    form1.onActivate = [this] { Form_Activate(); };
    fatalEndSaves.add([this] { return saveScoreForRecovery(form1, recoveryFolders_); });
    fatalEndSaves.add([this] { return saveEntryForRecovery(YYLR, recoveryFolders_); });
    fatalEndSaves.add([this] { return editor.saveForRecovery(recoveryFolders_); });
    registerVariables();
}

Instrument::~Instrument() = default;

void Instrument::registerVariables() {
    registerSharedState(controls, state, midi);
    registerChordState(controls, chordState, chords, midi);
    registerRecorderState(controls, recorderState);
    editor.registerVariables(controls);
    registerImportState(controls, editor.scoreImport.state());
    windowShell.registerVariables(controls);
}

void Instrument::start() { startUp.begin(); }

void Instrument::close() { startUp.Form1_Close(); }

void Instrument::closeFromOutside() {
    if (YYLR.loaded()) YYLR.unload();
    if (YYBJ.loaded()) YYBJ.unload();
    close();
}

void Instrument::end(int exitStatus) {
    if (ended_) return;
    ended_ = true;
    exitStatus_ = exitStatus;
    if (onEnd) onEnd();
}

void Instrument::Form_Load() {
    state.AppDir = appDir_;
    activated_ = false;
    midi.SetWaveVolume(static_cast<int32_t>(0xE000E000u), 0);
    midi.ListMidiDevices(form1.ComDevies);
    if (form1.ComDevies.listCount() > 0) form1.ComDevies.setListIndex(0);
    const int16_t pans[8] = {64, 50, 78, 40, 88, 35, 93, 64};
    for (int channel = 0; channel < 8; ++channel) midi.ChannelPan[channel] = pans[channel];
    form1.Text3.makeSeeThrough(580, 32);
    YFSZDY(state.keys);
    YFDHDY(state.keys);
    YFXSDY(state.keys);
}

void Instrument::Form_Activate() {
    if (!settings.readAtActivation()) {
        end();
        return;
    }
    effects.prepareEffects();
    form1.Text3.setText(state.ScoreText);
    if (!activated_) QDCSH();
    form1.SFYXYZ.setEnabled(true);
    form1.SFYXYZ.setFocus();
    form1.Label1.setVisible(false);
    // The focus given above reaches the button only once the window is up, as
    // its GotFocus, which shows the damper strip again: the keys and the strip
    // are ready together.
    if (form1.SFYXYZ.hasFocus()) keyboard.SFYXYZ_GotFocus();
    activated_ = true;
    midiKeyboard.start();
    form1.Timer2.setTimerEnabled(true);
    chordPageHandlers.rebuildAtActivation();
    state.AutoSyncFlag = 0;
}

void Instrument::ComDevies_Click() {
    int index = form1.ComDevies.listIndex();
    if (index < 0) return;
    midi.OpenMidi(form1.ComDevies.itemData(index));
    // The list index itself goes out as the program: one above what the
    // instrument lists mean, until an instrument is chosen again.
    for (int16_t channel = 0; channel < 3; ++channel) midi.SetProgram(channel, 0, state.MelodyProgram[channel]);
}

void Instrument::fillCatalogueLists() {
    ComboBox* instrumentLists[] = {&form1.Combo1, &form1.Combo2, &form1.Combo3, &form1.xuanyue,
                                   &form1.ComSounds[0], &form1.ComSounds[1], &form1.ComSounds[2],
                                   &form1.YQSZ[0], &form1.YQSZ[1], &form1.YQSZ[2]};
    for (int i = 0; i < kInstrumentCount; ++i)
        for (ComboBox* list : instrumentLists) list->addItem(instrumentName(i));
    ComboBox* percussionLists[] = {&form1.rhythmPage.LblInst[0], &form1.rhythmPage.LblInst[1],
                                   &form1.rhythmPage.LblInst[2], &form1.YQSZ[3]};
    for (int i = 0; i < kPercussionCount; ++i)
        for (ComboBox* list : percussionLists) list->addItem(percussionName(i));
}

void Instrument::QDCSH() {
    state.RhythmLastStep = 15;
    patternEditing.loadGrid();
    patternEditing.BZXS();
    form1.XSWB.setCaption(kStartHint);
    for (int offset = 0; offset < kOnScreenKeyCount; ++offset) {
        bool white = isWhiteKey(offset);
        form1.Picture1[offset].setPicture(white ? kWhiteKeyUp : kBlackKeyUp);
        state.IsWhiteKey[offset] = white ? -1 : 0;
    }
    fillCatalogueLists();

    form1.ComSounds[0].setListIndex(50);
    form1.ComSounds[1].setListIndex(10);
    form1.ComSounds[2].setListIndex(55);
    form1.xuanyue.setListIndex(25);
    form1.HxYL.setListIndex(2);
    state.MelodyProgram[0] = 50;
    state.MelodyProgram[1] = 10;
    state.MelodyProgram[2] = 55;
    form1.Combo1.setListIndex(3);
    form1.Combo2.setListIndex(26);
    form1.Combo3.setListIndex(47);
    form1.Zxlyl[0].setListIndex(4);
    form1.Zxlyl[1].setListIndex(3);
    form1.Zxlyl[2].setListIndex(2);
    form1.YD.setListIndex(0);
    form1.SD.setListIndex(6);
    state.TickMs = 107;
    form1.Timer1.setInterval(107);
    const int16_t velocities[4] = {85, 70, 55, 55};
    for (int channel = 0; channel < 4; ++channel) midi.ChannelVelocity[channel] = velocities[channel];
    form1.VsbVol.setListIndex(5);

    for (int16_t channel = 0; channel < 3; ++channel)
        midi.SetProgram(channel, 0, static_cast<int16_t>(form1.ComSounds[channel].listIndex() - 1));
    midi.SetProgram(3, 0, static_cast<int16_t>(form1.Combo1.listIndex() - 1));
    midi.SetProgram(4, 0, static_cast<int16_t>(form1.Combo2.listIndex() - 1));
    midi.SetProgram(5, 0, static_cast<int16_t>(form1.Combo3.listIndex() - 1));

    rhythmFiles.loadFirstFileAtStart();
    CSHX();

    state.ScoreText.clear();
    state.SinceNoteTicks = 0;
}

void Instrument::CSHX() { chordPageHandlers.CSHX(); }

}  // namespace tessaly
