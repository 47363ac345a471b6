#include "editor/EditorSequencer.h"

#include <algorithm>
#include <cmath>

#include "chords/ChordLayers.h"
#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "midi/MidiOut.h"
#include "notation/Catalogue.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

constexpr const char* kStartCaption = "从开始处启动";
constexpr const char* kStopCaption = "停止当前演奏";

bool isChordCode(int code) { return code >= 65 && code <= 85; }

// Slots in the bar where the accent is lighter, by time signature.
bool lightAccent(int16_t slotsPerBarMinusOne, int16_t slotInBar) {
    switch (slotsPerBarMinusOne) {
    case 15: return slotInBar == 4 || slotInBar == 12;
    case 23: return slotInBar == 4 || slotInBar == 8 || slotInBar == 16 || slotInBar == 20;
    case 31: return slotInBar % 4 == 0 && slotInBar != 0 && slotInBar != 16;
    default: return false;
    }
}

}  // namespace

void EditorSequencer::stopAllNotes() {
    for (int16_t channel = 0; channel <= 6; ++channel)
        for (int k = 0; k <= 64; ++k) e_.midi.StopNote(channel, toInt16(e_.shared.NoteBase + k));
}

void EditorSequencer::prepare() {
    EditorState& s = e_.s;
    const int16_t slots = s.slotsPerBar();
    for (int t = 0; t < kTracks; ++t) {
        const bool melody = isMelodyTrack(t);
        for (long bar = 0; bar <= s.BarCount; ++bar) {
            for (long slot = 0; slot < slots; ++slot) {
                const long row = slots * bar + slot;
                if (melody) {
                    s.SlotNotes(row, t) = SYYPSB(s.SlotTokens(row, t));
                    continue;
                }
                // The sound goes into the records of the bar on show, whatever bar the loop is in.
                StepSlot& sound = e_.midi.StepTable[slots * static_cast<long>(s.CurrentBar) + slot][t - 7];
                sound.Key = toInt16(kFirstPercussionKey + e_.settings().SYYQ[t].listIndex());
                sound.Volume = e_.midi.LayerVelocity[t];
                sound.ShortMsg = MidiOut::percussionMessage(sound.Key, sound.Volume);
                e_.midi.StepTable[row][t - 7].On = s.SlotTokens(row, t) == "O" ? -1 : 0;
            }
        }
    }
}

void EditorSequencer::endPlayControls() {
    EditorCommandPanel& c = e_.commands();
    c.ST1.setEnabled(true);
    c.ST2.setEnabled(true);
    c.ST1.setValue(false);
    c.ST2.setValue(0);
    c.ST2.setCaption(kStartCaption);
    c.YYDS.setTimerEnabled(false);
}

void EditorSequencer::ST1_Click() {
    EditorState& s = e_.s;
    EditorCommandPanel& c = e_.commands();
    if (!c.ST1.value()) {
        stopAllNotes();
        endPlayControls();
        return;
    }
    c.ST2.setEnabled(false);
    prepare();
    const double typed = roundHalfEven(numericValue(e_.bar().XJZS.text()));
    if (std::fabs(typed) > 2147483647.0) throw FatalFailure(FailureKind::Overflow, e_.bar().XJZS.text());
    s.CurrentBar = static_cast<int32_t>(typed);
    const int16_t slots = s.slotsPerBar();
    s.LastSlotIndex = toInt32(static_cast<long long>(slots) * s.CurrentBar + s.SlotsPerBarMinusOne);
    s.PlayCountdown = slots;
    e_.shared.RhythmStep = toInt16(static_cast<long long>(slots) * s.CurrentBar);
    e_.bar().XJZS.setText(std::to_string(s.CurrentBar));
    c.BZWJ.setEnabled(false);
    c.YYDS.setInterval(e_.shared.TickMs);
    c.YYDS.setTimerEnabled(true);
    YYSB();
}

void EditorSequencer::ST2_Click() {
    EditorState& s = e_.s;
    EditorCommandPanel& c = e_.commands();
    s.LastSlotIndex = s.lastSlotOfSong();
    if (c.ST2.value() != 1) {
        endPlayControls();
        stopAllNotes();
        c.BZWJ.setEnabled(true);
        c.ST2.setValue(0);
        c.ST2.setCaption(kStartCaption);
        c.ST1.setEnabled(true);
        return;
    }
    s.CurrentBar = 0;
    e_.shared.RhythmStep = 0;
    prepare();
    c.ST2.setCaption(kStopCaption);
    c.ST1.setEnabled(false);
    e_.bar().XJZS.setText(std::to_string(s.CurrentBar));
    c.BZWJ.setEnabled(false);
    if (charLength(s.BarHead[0]) > 4) e_.barSettings.CXTSB();
    e_.barSettings.resetExpression();
    s.PlayCountdown = s.LastSlotIndex;
    c.YYDS.setInterval(e_.shared.TickMs);
    c.YYDS.setTimerEnabled(true);
    YYSB();
}

void EditorSequencer::YYDS_Timer() {
    try {
        YYSB();
        EditorState& s = e_.s;
        s.PlayCountdown = toInt32(static_cast<long long>(s.PlayCountdown) - 1);
        // Clearing ST2 when it is checked runs its own stop.
        if (s.PlayCountdown < 1) endPlayControls();
    } catch (const FatalFailure&) {
        // A failure ends the tick where it stands; the next tick tries again.
    }
}

void EditorSequencer::updateExpression() {
    EditorState& s = e_.s;
    const bool crescendo = e_.settings().Check1[1].value() == 1;
    const long bar = s.CurrentBar;
    const long slots = s.slotsPerBar();
    const long step = e_.shared.RhythmStep;
    auto add = [&] { s.ExprValue = static_cast<int16_t>(std::clamp(s.ExprValue + s.DepthStep, 0, 120)); };
    if (crescendo && s.DepthStep >= 1) add();
    else if (crescendo && s.DepthStep < 0 && step > slots * bar + s.SlotsPerBarMinusOne / 2 &&
             step < slots * bar + s.SlotsPerBarMinusOne + 1)
        add();
    else s.ExprValue = 120;
}

void EditorSequencer::sendAccents() {
    EditorState& s = e_.s;
    s.AccentValue = lightAccent(s.SlotsPerBarMinusOne, s.SlotInBar) ? 80 : 120;
    // Only 4/4 lets a fade reach the accented channels.
    if (s.SlotsPerBarMinusOne == 31 && s.ExprValue < 120) s.AccentValue = s.ExprValue;
    for (int16_t channel = 0; channel <= 4; ++channel) e_.midi.SendMidiOut(toInt16(176 + channel), 11, s.ExprValue);
    for (int channel : {5, 6, 9}) e_.midi.SendMidiOut(toInt16(176 + channel), 11, s.AccentValue);
}

void EditorSequencer::YYSB() {
    EditorState& s = e_.s;
    EditorCommandPanel& c = e_.commands();
    updateExpression();
    e_.midi.SendMidiOut(176, 1, e_.settings().Check1[0].value() == 1 ? 120 : 0);
    if (e_.shared.RhythmStep > s.LastSlotIndex) {
        c.YYDS.setTimerEnabled(false);
        stopAllNotes();
        c.ST1.setValue(false);
        c.ST2.setValue(0);
        c.BZWJ.setEnabled(true);
        e_.barSettings.resetExpression();
        e_.midi.SendMidiOut(176, 11, s.ExprValue);
        return;
    }
    const int16_t slots = s.slotsPerBar();
    if (slots == 0) throw FatalFailure(FailureKind::Overflow, "除数为零");
    s.CurrentBar = e_.shared.RhythmStep / slots;
    if (charLength(s.BarHead[s.CurrentBar]) > 4 && s.LastShownBar != s.CurrentBar) e_.barSettings.CXTSB();
    e_.bar().XJZS.setText(std::to_string(s.CurrentBar));
    e_.bar().HScroll1.setValue(s.CurrentBar);
    s.SlotInBar = static_cast<int16_t>(e_.shared.RhythmStep % slots);
    sendAccents();
    // The lists as they stand now decide the sound, not the stored record.
    StepRecord& record = e_.midi.StepTable[e_.shared.RhythmStep];
    for (int j = 0; j <= 4; ++j)
        record[j].ShortMsg = MidiOut::percussionMessage(kFirstPercussionKey + e_.settings().SYYQ[j + 7].listIndex(),
                                                        e_.midi.LayerVelocity[j + 7]);
    XJFS();
}

void EditorSequencer::silenceTrack(int track) {
    const int16_t last = e_.s.LastPitch[track];
    const auto channel = static_cast<int16_t>(track);
    if (isChordCode(last)) {
        for (int k = 0; k <= 64; ++k) e_.midi.StopNote(channel, toInt16(e_.shared.NoteBase + k));
    } else {
        e_.midi.StopNote(channel, toInt16(e_.shared.NoteBase + last));
    }
}

void EditorSequencer::XJFS() {
    EditorState& s = e_.s;
    const long step = e_.shared.RhythmStep;
    for (int t = 0; t < kMelodyTracks; ++t) {
        const int16_t code = s.SlotNotes(step, t);
        const std::string& token = s.SlotTokens(step, t);
        const bool sounds = e_.settings().SYYQ[t].listIndex() > 0;
        const auto channel = static_cast<int16_t>(t);
        if (code < 64 && token != "TZ") {
            silenceTrack(t);
            if (sounds) e_.midi.StartNote(channel, toInt16(e_.shared.NoteBase + code), e_.midi.LayerVelocity[t]);
            s.LastPitch[t] = code;
        } else if (isChordCode(code)) {
            silenceTrack(t);
            e_.chords.StrumCode = code;
            e_.chords.StrumChannel = channel;
            if (sounds) e_.chords.StrumChord();
            s.LastPitch[t] = code;
        } else if (code == 254) {
            silenceTrack(t);
        } else if (token == "TZ") {
            // The song ends here: no later track, no percussion, no advance.
            endPlayControls();
            stopAllNotes();
            return;
        }
    }
    e_.midi.PlayRhythmStep();
    s.LastShownBar = toInt16(s.CurrentBar);
    e_.shared.RhythmStep = toInt16(e_.shared.RhythmStep + 1);
}

}  // namespace tessaly
