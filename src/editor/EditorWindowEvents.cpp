#include "editor/EditorWindowEvents.h"

#include <cstdint>

#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "notation/Catalogue.h"
#include "notation/NoteVocabulary.h"
#include "platform/Platform.h"
#include "rhythm/Accompaniment.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

// The defaults of a new song, by track: instrument list index, volume list index.
struct TrackDefault {
    int instrument, volume;
};
constexpr TrackDefault kTrackDefaults[kTracks] = {{1, 6},  {50, 6}, {79, 6}, {83, 6}, {35, 4}, {25, 4},
                                                  {5, 4},  {1, 6},  {3, 6},  {4, 6},  {41, 6}, {17, 4}};

// Beat groups of the grid take turns in four colours.
constexpr int kGroupColors[4] = {13, 10, 9, 14};

int32_t rgb(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }

}  // namespace

int32_t classicColor(int index) {
    static const int32_t colors[16] = {
        rgb(0, 0, 0),     rgb(0, 0, 128),   rgb(0, 128, 0),   rgb(0, 128, 128), rgb(128, 0, 0),     rgb(128, 0, 128),
        rgb(128, 128, 0), rgb(192, 192, 192), rgb(128, 128, 128), rgb(0, 0, 255), rgb(0, 255, 0), rgb(0, 255, 255),
        rgb(255, 0, 0),   rgb(255, 0, 255), rgb(255, 255, 0), rgb(255, 255, 255)};
    return colors[index & 15];
}

void EditorWindowEvents::Form_Load() {
    e_.form.makeControls();
    e_.wire();
    e_.recorder.Form_Load();
    e_.s.EditorStarted = kFalse;
    // The window's file dialog starts empty in the scores folder.
    e_.s.DialogFileName.clear();
    e_.s.DialogFolder = e_.shared.AppDir + "演奏记录/";
}

void EditorWindowEvents::Form_Activate() {
    EditorState& s = e_.s;
    if (!s.EditorStarted) {
        s.CurrentBar = 0;
        s.SlotsPerBarMinusOne = 15;
        e_.form.setCaption("音乐编辑器");
        BJQD();
    }
    ComboBox& devices = e_.settings().ComDevies;
    e_.midi.ListMidiDevices(devices);
    if (devices.listCount() > 0) devices.setListIndex(0);
    e_.midi.SetWaveVolume(0x70007000, 0);
    QKYP(s);
    s.ExprValue = 120;
    s.ShownSlotsMinusOne = 15;
    e_.midi.SendMidiOut(176, 11, s.ExprValue);
    for (int16_t channel = 0; channel <= 2; ++channel) e_.midi.SendMidiOut(toInt16(176 + channel), 1, 0);
    s.EditorStarted = kTrue;
}

void EditorWindowEvents::BJQD() {
    EditorState& s = e_.s;
    EditorSettingsPanel& p = e_.settings();
    s.SlotsPerBarMinusOne = 15;
    for (auto& [t, box] : e_.bar().YF1) {
        box->setMaxLength(2 * s.slotsPerBar());
        box->setBackColor(classicColor(static_cast<int>(t) + 1));
    }
    for (int row = 1; row <= 5; ++row) e_.bar().DJY(row)[0].setBackColor(classicColor(13));
    JZXSGC();
    for (int i = 0; i < kInstrumentCount; ++i)
        for (int t = 0; t < kMelodyTracks; ++t) p.SYYQ[t].addItem(instrumentName(i));
    for (int i = 0; i < kPercussionCount; ++i)
        for (int t = kMelodyTracks; t < kTracks; ++t) p.SYYQ[t].addItem(percussionName(i));
    for (int t = 0; t < kTracks; ++t) {
        p.SYYQ[t].setListIndex(kTrackDefaults[t].instrument);
        p.YQYL[t].setListIndex(kTrackDefaults[t].volume);
    }
    p.DQYD.setListIndex(0);
    p.DQSUDU.setListIndex(6);
    e_.shared.TickMs = editorTickMs(numericValue(p.DQSUDU.text()));
    e_.shared.NoteBase = toInt16(kLowestNoteBase + p.DQYD.listIndex());
    // A new song's first audition runs at this slot, not at the tempo shown.
    e_.shared.TickMs = 188;
    for (int t = 0; t < kMelodyTracks; ++t)
        e_.midi.SetProgram(static_cast<int16_t>(t), 0, static_cast<int16_t>(p.SYYQ[t].listIndex() - 1));
}

void EditorWindowEvents::JZXSGC() {
    EditorState& s = e_.s;
    for (long k = 1; k <= s.SlotsPerBarMinusOne; ++k) {
        const long group = k / 4;
        for (int row = 1; row <= 5; ++row) {
            CheckBox& box = e_.bar().loadStep(row, k);
            e_.wireStep(row, k);
            box.setVisible(true);
            Geometry g = box.geometry();
            g.left = static_cast<int>(20 * k + group);
            box.setGeometry(g);
            box.setBackColor(classicColor(kGroupColors[group % 4]));
        }
    }
    s.ShownSlotsMinusOne = s.SlotsPerBarMinusOne;
}

void EditorWindowEvents::unloadSteps() {
    for (long k = 1; k <= e_.s.ShownSlotsMinusOne; ++k)
        for (int row = 1; row <= 5; ++row) e_.bar().unloadStep(row, k);
}

void EditorWindowEvents::DKJZWJ() {
    const int16_t slotsMinusOne = e_.s.SlotsPerBarMinusOne;
    const int signature = slotsMinusOne == 15 ? 0 : slotsMinusOne == 23 ? 1 : slotsMinusOne == 31 ? 2 : -1;
    if (signature >= 0) {
        e_.settings().JPFL[signature].setValue(true);
        e_.form.fitToTimeSignature(signature);
    }
    e_.form.placePicture3();
    unloadSteps();
    JZXSGC();
}

void EditorWindowEvents::ComDevies_Click() {
    ComboBox& devices = e_.settings().ComDevies;
    e_.midi.OpenMidi(devices.itemData(devices.listIndex()));
    // The melody instruments go to each device anew.
    for (int t = 0; t < kMelodyTracks; ++t) {
        const int index = e_.settings().SYYQ[t].listIndex();
        if (index > 0) e_.midi.SetProgram(static_cast<int16_t>(t), 0, static_cast<int16_t>(index - 1));
    }
}

void EditorWindowEvents::TUICHU_Click() { e_.form.unload(); }

void EditorWindowEvents::Form_Unload() {
    e_.s.ImportCursor = 1;
    e_.accompaniment.resetCounters();
    e_.shared.AccompanimentTick = 0;
    for (int16_t channel = 0; channel <= 6; ++channel)
        for (int k = 0; k <= 64; ++k) e_.midi.StopNote(channel, toInt16(e_.shared.NoteBase + k));
    ReturnFromEditor();
    e_.mainForm.show();
    if (e_.mainForm.SFYXYZ.canTakeFocus()) e_.mainForm.SFYXYZ.setFocus();
}

void EditorWindowEvents::ReturnFromEditor() {
    MainWindow& f = e_.mainForm;
    f.ComSounds[0].setListIndex(52);
    f.ComSounds[1].setListIndex(15);
    f.ComSounds[2].setListIndex(79);
    f.xuanyue.setListIndex(25);
    f.HxYL.setListIndex(2);
    f.Combo1.setListIndex(4);
    f.Combo2.setListIndex(35);
    f.Combo3.setListIndex(47);
    f.Zxlyl[0].setListIndex(4);
    f.Zxlyl[1].setListIndex(3);
    f.Zxlyl[2].setListIndex(2);
    f.YD.setListIndex(0);
    f.SD.setListIndex(6);
    f.VsbVol.setListIndex(5);

    const int16_t programs[3] = {52, 15, 79};
    for (int i = 0; i < 3; ++i) e_.shared.MelodyProgram[i] = programs[i];
    e_.shared.NoteBase = toInt16(kLowestNoteBase + f.YD.listIndex());
    // The rhythm's sounds, which the editor's song overwrote, from the rhythm
    // page's instrument lists; where a list is not there the key stays.
    const int16_t volume = toInt16(static_cast<long long>(numericValue(f.VsbVol.text())));
    for (int i = 0; i < 3; ++i) {
        auto* instrument =
            dynamic_cast<ListControl*>(e_.controls.findControl("Form1.LblInst(" + std::to_string(i) + ")"));
        for (int record = 0; record <= 15; ++record) {
            StepSlot& step = e_.midi.StepTable[record][i];
            if (instrument) step.Key = toInt16(kFirstPercussionKey + instrument->listIndex());
            step.ShortMsg = MidiOut::percussionMessage(step.Key, volume);
        }
    }
    e_.shared.TickMs = tickMsForTempo(numericValue(f.SD.text()));
    for (int16_t channel = 0; channel < 3; ++channel)
        e_.midi.SetProgram(channel, 0, static_cast<int16_t>(f.ComSounds[channel].listIndex() - 1));
    e_.midi.SetProgram(3, 0, static_cast<int16_t>(f.Combo1.listIndex() - 1));
    e_.midi.SetProgram(4, 0, static_cast<int16_t>(f.Combo2.listIndex() - 1));
    e_.midi.SetProgram(5, 0, static_cast<int16_t>(f.Combo3.listIndex() - 1));
}

void EditorWindowEvents::BZWJ_Click() {
    // The box names the button's own value as text, which is false during its
    // click; the help text is not what it shows.
    e_.platform.boxes.timedBox("提示", "假", 5000);
}

}  // namespace tessaly
