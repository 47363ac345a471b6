#include "editor/BarSettings.h"

#include <cmath>

#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "midi/MidiOut.h"
#include "notation/Catalogue.h"
#include "notation/NoteVocabulary.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

int16_t wholeValue(const std::string& text) {
    const double value = std::floor(numericValue(text));
    if (std::fabs(value) > 32768) throw FatalFailure(FailureKind::Overflow, text);
    return toInt16(static_cast<long long>(value));
}

}  // namespace

int32_t BarSettings::percussionMessage(int track) const {
    const int key = kFirstPercussionKey + e_.settings().SYYQ[track].listIndex();
    return toInt32(static_cast<long long>(e_.midi.LayerVelocity[track]) * 65536 + key * 256 + 153);
}

void BarSettings::resetExpression() { e_.s.ExprValue = e_.s.DepthStep > 0 ? 0 : 120; }

void BarSettings::storeEffects() {
    const EditorSettingsPanel& p = e_.settings();
    e_.s.BarEffectText[e_.s.CurrentBar] =
        std::string(p.Check1[0].value() == 1 ? "1" : "0") + (p.Check1[1].value() == 1 ? "1" : "0");
}

void BarSettings::BCXJ() {
    EditorState& s = e_.s;
    EditorSettingsPanel& p = e_.settings();
    const int16_t tempo = roundToInt16(numericValue(p.DQSUDU.text()));
    const int32_t bar = s.CurrentBar;
    s.BarKeyText[bar] = zeroFilled(p.DQYD.listIndex(), 2);
    s.BarTempoText[bar] = hexField(tempo);
    storeEffects();
    s.BarDepthText[bar] = zeroFilled(p.HScroll3.value() + 20, 2);
    s.BarHead[bar].clear();
    s.BarHead[bar] = zeroFilled(bar, 4);
    std::string fields;
    for (int t = 0; t < kTracks; ++t) {
        e_.midi.LayerVelocity[t] = wholeValue(p.YQYL[t].text());
        s.TrackProgram[t] = p.SYYQ[t].listIndex() - (isMelodyTrack(t) ? 1 : 0);
        fields += hexField(s.TrackProgram[t]) + hexField(e_.midi.LayerVelocity[t]);
    }
    s.BarHead[bar] = zeroFilled(bar, 4) + fields + s.BarDepthText[bar] + s.BarEffectText[bar] + s.BarKeyText[bar] +
                     s.BarTempoText[bar];
}

void BarSettings::CXTSB() {
    EditorState& s = e_.s;
    EditorSettingsPanel& p = e_.settings();
    const int32_t bar = s.CurrentBar;
    // Read afresh at every step: the lists' own handlers run in between.
    auto field = [&](long position, long length) { return charSubstr(s.BarHead[bar], static_cast<std::size_t>(position - 1), static_cast<std::size_t>(length)); };
    for (int t = 0; t < kTracks; ++t) {
        s.TrackProgram[t] = hexValue(field(4 * t + 5, 2));
        e_.midi.LayerVelocity[t] = toInt16(hexValue(field(4 * t + 7, 2)));
        p.YQYL[t].setText(std::to_string(e_.midi.LayerVelocity[t]));
        p.SYYQ[t].setListIndex(static_cast<int>(s.TrackProgram[t] + (isMelodyTrack(t) ? 1 : 0)));
    }
    s.BarKeyText[bar] = field(57, 2);
    const std::string& head = s.BarHead[bar];
    const std::size_t length = charLength(head);
    s.BarTempoText[bar] = charSubstr(head, length < 2 ? 0 : length - 2);
    p.DQYD.setListIndex(static_cast<int>(numericValue(s.BarKeyText[bar])));
    p.DQSUDU.setText(std::to_string(hexValue(s.BarTempoText[bar])));
    p.HScroll3.setValue(static_cast<int>(numericValue(field(53, 2))) - 20);
    p.Check1[0].setValue(static_cast<int>(numericValue(field(55, 1))));
    p.Check1[1].setValue(static_cast<int>(numericValue(field(56, 1))));
    for (int t = 0; t < kTracks; ++t) {
        if (isMelodyTrack(t)) {
            e_.midi.SetProgram(static_cast<int16_t>(t), 0, toInt16(s.TrackProgram[t]));
            continue;
        }
        const int32_t message = percussionMessage(t);
        for (long slot = 0; slot < s.slotsPerBar(); ++slot) e_.midi.StepTable[s.slotOf(bar, slot)][t - 7].ShortMsg = message;
    }
    e_.shared.TickMs = editorTickMs(numericValue(p.DQSUDU.text()));
}

void BarSettings::SYYQ_Click(int Index) {
    EditorState& s = e_.s;
    EditorSettingsPanel& p = e_.settings();
    const int index = p.SYYQ[Index].listIndex();
    if (isMelodyTrack(Index)) {
        if (index > 0) e_.midi.SetProgram(static_cast<int16_t>(Index), 0, static_cast<int16_t>(index - 1));
        // A new instrument ends the note that was held on the track.
        if (s.SlotNotes(e_.shared.RhythmStep, Index) == 255)
            e_.midi.StopNote(static_cast<int16_t>(Index), toInt16(s.LastPitch[Index] + e_.shared.NoteBase));
        return;
    }
    const int16_t key = toInt16(kFirstPercussionKey + index);
    const int16_t volume = wholeValue(p.YQYL[Index].text());
    for (long slot = 0; slot < s.slotsPerBar(); ++slot) {
        StepSlot& step = e_.midi.StepTable[s.slotOf(s.CurrentBar, slot)][Index - 7];
        step.Key = key;
        step.ShortMsg = toInt32(static_cast<long long>(volume) * 65536 + key * 256 + 153);
    }
}

void BarSettings::YQYL_Click(int Index) {
    e_.midi.LayerVelocity[Index] = wholeValue(e_.settings().YQYL[Index].text());
    resetExpression();
    e_.midi.SendMidiOut(176, 11, e_.s.ExprValue);
}

void BarSettings::DQSUDU_Click() { e_.shared.TickMs = editorTickMs(numericValue(e_.settings().DQSUDU.text())); }

void BarSettings::DQSUDU_LostFocus() {
    ComboBox& tempo = e_.settings().DQSUDU;
    const double value = numericValue(tempo.text());
    if (value < 50 || value > 255) {
        // Back to the tempo TickMs stands for, which loses digits: 188 gives 79.
        if (e_.shared.TickMs == 0) throw FatalFailure(FailureKind::Overflow, "除数为零");
        tempo.setText(std::to_string(static_cast<long>(std::floor(15000.0 / e_.shared.TickMs))));
        return;
    }
    e_.shared.TickMs = editorTickMs(value);
}

void BarSettings::DQYD_Click() { e_.shared.NoteBase = toInt16(kLowestNoteBase + e_.settings().DQYD.listIndex()); }

void BarSettings::Check1_Click(int) {
    storeEffects();
    e_.midi.SendMidiOut(176, 1, e_.settings().Check1[0].value() == 1 ? 120 : 0);
    e_.midi.SendMidiOut(176, 11, e_.s.ExprValue);
}

void BarSettings::HScroll3_Change() {
    const int depth = e_.settings().HScroll3.value();
    e_.s.DepthStep = toInt16(depth);
    resetExpression();
    e_.settings().Label7.setCaption("深度(" + std::to_string(depth) + ")");
}

}  // namespace tessaly
