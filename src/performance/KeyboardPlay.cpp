#include "performance/KeyboardPlay.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "chords/ChordLayers.h"
#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "notation/NoteVocabulary.h"
#include "performance/EffectKeys.h"
#include "platform/Platform.h"
#include "rhythm/Accompaniment.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

bool isQuickKey(int keyCode) { return keyCode == 81 || keyCode == 87 || keyCode == 69 || keyCode == 82; }

bool isTonalityKey(int keyCode) {
    for (const TonalityKey& key : kTonalityKeys)
        if (key.keyCode == keyCode) return true;
    return false;
}

bool isEffectKey(int keyCode) {
    return keyCode == vk::Insert || keyCode == vk::Home || keyCode == vk::PageUp || keyCode == vk::Delete ||
           keyCode == vk::End || keyCode == vk::PageDown;
}

constexpr int kIdleTicksLimit = 99;

}  // namespace

KeyboardPlay::KeyboardPlay(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form,
                           Accompaniment& accompaniment, ChordLayers& chords, EffectKeys& effects)
    : platform_(platform), state_(state), midi_(midi), form_(form), accompaniment_(accompaniment), chords_(chords),
      effects_(effects) {}

void KeyboardPlay::wire() {
    form_.SFYXYZ.onKeyDown = [this](int16_t& key, int16_t shift) { SFYXYZ_KeyDown(key, shift); };
    form_.SFYXYZ.onKeyUp = [this](int16_t& key, int16_t shift) { SFYXYZ_KeyUp(key, shift); };
    form_.SFYXYZ.onClick = [this] { SFYXYZ_Click(); };
    form_.SFYXYZ.onGotFocus = [this] { SFYXYZ_GotFocus(); };
    form_.SFYXYZ.onLostFocus = [this] { SFYXYZ_LostFocus(); };
    form_.Timer1.onTimer = [this] { Timer1_Timer(); };
    form_.Check5.onClick = [this] { Check5_Click(); };
    form_.SD.onClick = [this] { SD_Click(); };
    form_.SD.onLostFocus = [this] { SD_LostFocus(); };
    form_.YD.onClick = [this] { YD_Click(); };
    form_.Text3.onChange = [this] { Text3_Change(); };
    for (int i = 0; i < 3; ++i) {
        form_.Check3[i].onClick = [this, i] { Check3_Click(i); };
        form_.Zxlyl[i].onClick = [this, i] { Zxlyl_Click(i); };
        form_.Zxlyl[i].onChange = [this, i] { Zxlyl_Click(i); };
        form_.ComSounds[i].onClick = [this, i] { ComSounds_Click(i); };
        form_.ComSounds[i].onChange = [this, i] { ComSounds_Change(i); };
    }
}

void KeyboardPlay::SFYXYZ_KeyDown(int16_t& KeyCode, int16_t Shift) {
    if (Shift == 1) {
        // Shift alone toggles auto-sync, its own auto-repeat included.
        state_.AutoSyncFlag = truth(!state_.AutoSyncFlag);
        if (state_.AutoSyncFlag) {
            form_.Timer1.setTimerEnabled(false);
            chords_.HX1K();
            form_.Check5.setValue(1);
        } else {
            form_.Check5.setValue(0);
        }
        state_.KeyHeld[KeyCode] = kTrue;
        return;
    }
    if (KeyCode == vk::Escape) {
        panic();
        return;
    }
    if (state_.KeyHeld[KeyCode]) return;
    state_.LastKeyCode = KeyCode;

    const int key = KeyCode;
    if (key == vk::Decimal) {
        effects_.stopEffect();
        return;  // keypad "." never counts as held
    }
    if (isEffectKey(key)) effects_.PlayEffectKey();
    else if (key >= vk::F1 && key <= vk::F12) selectInstrumentSet(key - vk::F1);
    else if (key == vk::Space) endPerformance();
    else if (key == vk::Backspace) rest();
    else if (isQuickKey(key)) quickInstrument(key);
    else if (isTonalityKey(key)) selectTonality(key);
    else if (key >= vk::Numpad0 && key <= vk::Numpad9) keypadHit(key);
    else if (key == vk::Add) startAccompaniment();
    else if (key == vk::Subtract) stopAccompaniment();
    else if (isNoteKey(key)) playNoteKey(key);

    state_.KeyHeld[KeyCode] = kTrue;
}

void KeyboardPlay::playNoteKey(int keyCode) {
    state_.CurrentNoteOffset = toInt16(state_.keys.KeyNoteOffset[keyCode]);
    const std::string& token = state_.keys.KeyNoteName[keyCode];
    form_.XSWB.setCaption(noteTipString(state_.keys.KeyTipId[keyCode]));

    if (form_.Check1.value() != 1) {
        int previous = state_.KeySoundedOffset[state_.LastNoteKey];
        stopMelodyNote(previous + state_.NoteBase);
        // A note still sounding from before a tonality change stops too.
        if (state_.PrevNoteBase != state_.NoteBase) stopMelodyNote(previous + state_.PrevNoteBase);
        form_.Picture1[state_.CurrentNoteOffset].setPicture(kWhiteKeyDown);
        if (form_.Text3.text().empty()) writeToScore(token);
        else writeToScore(std::to_string(state_.DurationTicks) + token);
    }

    state_.AutoPlaying = kFalse;
    form_.Timer1.setInterval(state_.TickMs);
    state_.SinceNoteTicks = 0;

    startMelodyNote(state_.CurrentNoteOffset + state_.NoteBase, touch_);

    if (!form_.Timer1.timerEnabled()) {
        if (form_.Check5.value() == 1) accompaniment_.downbeat();
        state_.RhythmStep = 1;
        state_.ChordStep = 1;
        state_.ChordIndex = 1;
        state_.AccompanimentTick = 1;
        state_.SinceNoteTicks = 1;
    }
    form_.Timer1.setTimerEnabled(true);
    state_.LastNoteKey = keyCode;
    state_.KeySoundedOffset[keyCode] = state_.CurrentNoteOffset;
}

void KeyboardPlay::touchKeyDown(int16_t keyCode, int velocity) {
    touch_ = velocity;
    SFYXYZ_KeyDown(keyCode, 0);
    touch_ = 127;
}

int16_t KeyboardPlay::touchVelocity(int channel, int velocity) const {
    // Full touch leaves the channel's volume exactly as the typing keys play it.
    if (velocity >= 127) return midi_.ChannelVelocity[channel];
    return toInt16(std::max(1, midi_.ChannelVelocity[channel] * velocity / 127));
}

void KeyboardPlay::startMelodyNote(int note, int velocity) {
    const int16_t key = toInt16(note);
    // Sounding anew, the note is no longer the pedal's to stop.
    heldByPedal_.erase(note);
    if (form_.ComSounds[0].listIndex() > 0) midi_.StartNote(0, key, touchVelocity(0, velocity));
    if (form_.ComSounds[1].listIndex() > 0) midi_.StartNote(1, key, touchVelocity(1, velocity));
    if (form_.ComSounds[2].listIndex() > 0) {
        midi_.StartNote(2, key, touchVelocity(2, velocity));
        // The double lies a fourth below, whatever the tool tip says.
        midi_.StartNote(2, toInt16(note - 5), touchVelocity(2, velocity));
    }
}

void KeyboardPlay::setPedal(bool down) {
    if (down == pedalDown_) return;
    pedalDown_ = down;
    if (down) return;
    for (int note : std::exchange(heldByPedal_, {})) stopMelodyNote(note);
}

void KeyboardPlay::stopMelodyNote(int note) {
    if (pedalDown_) {
        heldByPedal_.insert(note);
        return;
    }
    midi_.StopNote(0, toInt16(note));
    midi_.StopNote(1, toInt16(note));
    midi_.StopNote(2, toInt16(note));
    midi_.StopNote(2, toInt16(note - 5));
}

void KeyboardPlay::writeToScore(const std::string& text) {
    form_.Text3.setSelStart(state_.ScoreEnd);
    form_.Text3.setSelText(text);
}

void KeyboardPlay::endPerformance() {
    heldByPedal_.clear();
    form_.Timer1.setTimerEnabled(false);
    for (int n = 0; n <= 63; ++n) {
        int16_t note = toInt16(n + state_.NoteBase);
        for (int16_t channel = 0; channel <= 4; ++channel) midi_.StopNote(channel, note);
    }
    form_.BzQd.setValue(0);
    if (!form_.Text3.text().empty()) writeToScore(std::to_string(state_.DurationTicks) + "TZ");
    form_.Picture1[state_.LastPlayedOffset].setPicture(kWhiteKeyUp);
    state_.ScoreText = form_.Text3.text();
    form_.Yuepu[0].setCaption("试听");
    state_.RhythmStep = 0;
    state_.ChordStep = 0;
    state_.ScoreTick = 0;
    state_.ChordIndex = 1;
    state_.AutoPlaying = kFalse;
}

void KeyboardPlay::rest() {
    for (int n = 0; n <= 63; ++n) {
        int16_t note = toInt16(n + state_.NoteBase);
        for (int16_t channel = 0; channel <= 2; ++channel) midi_.StopNote(channel, note);
    }
    // The rest's length is counted from the last note key: SinceNoteTicks goes on.
    if (!form_.Text3.text().empty()) writeToScore(std::to_string(state_.DurationTicks) + "XZ");
}

void KeyboardPlay::selectInstrumentSet(int set) {
    for (int j = 0; j < 3; ++j) state_.MelodyProgram[j] = state_.InstrumentSet(set, j);
    for (int j = 0; j < 3; ++j) form_.ComSounds[j].setListIndex(state_.MelodyProgram[j]);
    // An entry of 0 sends program -1, as the arithmetic gives it.
    for (int16_t j = 0; j < 3; ++j) midi_.SetProgram(j, 0, toInt16(form_.ComSounds[j].listIndex() - 1));
    form_.XSWB.setCaption("你已经选择了\r\n       乐器组合" + numberText(static_cast<long long>(set + 1)));
}

void KeyboardPlay::quickInstrument(int keyCode) {
    int listIndex = state_.keys.KeyNoteOffset[keyCode];
    midi_.SetProgram(3, 0, toInt16(listIndex - 1));
    form_.Combo1.setListIndex(listIndex);
}

void KeyboardPlay::selectTonality(int keyCode) {
    state_.PrevNoteBase = state_.NoteBase;
    state_.NoteBase = toInt16(state_.keys.KeyNoteOffset[keyCode]);
    form_.YD.setListIndex(state_.keys.KeyTipId[keyCode]);
    form_.XSWB.setCaption(state_.keys.KeyNoteName[keyCode]);
}

void KeyboardPlay::keypadHit(int keyCode) {
    state_.KeypadIndex = toInt16(keyCode - vk::Numpad0);
    midi_.PlayKeypadPercussion();
    form_.XSWB.setCaption(form_.YQSZ[3].item(state_.KeypadPercussion[state_.KeypadIndex]) + "_打击乐");
}

void KeyboardPlay::startAccompaniment() {
    if (form_.Check5.value() == 1) {
        accompaniment_.resetCounters();
        form_.Timer1.setTimerEnabled(true);
    } else {
        form_.BzQd.setValue(1);
    }
}

void KeyboardPlay::stopAccompaniment() {
    if (form_.Check5.value() == 1) {
        accompaniment_.resetCounters();
        form_.Timer1.setTimerEnabled(false);
    } else {
        form_.BzQd.setValue(0);
    }
}

void KeyboardPlay::SFYXYZ_KeyUp(int16_t& KeyCode, int16_t) {
    state_.KeyHeld[KeyCode] = kFalse;
    if (!isNoteKey(KeyCode)) return;
    int offset = state_.keys.KeyNoteOffset[KeyCode];
    form_.Picture1[offset].setPicture(kWhiteKeyUp);
    // Stops by the table, not by what the key sounded: after a tonality change
    // the sounding note hangs until Space or Backspace.
    if (form_.Check1.value() == 1) stopMelodyNote(offset + state_.NoteBase);
}

void KeyboardPlay::Timer1_Timer() {
    platform_.loop.doEvents();
    accompaniment_.sendAccentSweep();
    if (state_.AccompanimentTick == 0) chords_.HX1K();
    if (accompaniment_.onStepTick() && form_.Check5.value() == 1) accompaniment_.step();

    state_.SinceNoteTicks = toInt16(state_.SinceNoteTicks + 1);
    if (state_.SinceNoteTicks > kIdleTicksLimit) {
        state_.SinceNoteTicks = kIdleTicksLimit;
        if (!form_.Text3.text().empty()) writeToScore(std::to_string(state_.SinceNoteTicks) + "TZ");
        state_.ScoreText = form_.Text3.text();
        form_.Timer1.setTimerEnabled(false);
        stopMelodyNote(state_.LastPlayedOffset + state_.NoteBase);
        chords_.HX1K();
    }
    state_.DurationTicks = toInt16(2 * ((state_.SinceNoteTicks + 1) / 2));
    accompaniment_.advanceTick();
}

void KeyboardPlay::Check3_Click(int Index) {
    const bool on = form_.Check3[Index].value() == 1;
    auto channel = static_cast<int16_t>(Index);
    midi_.SendController(channel, 1, on ? 75 : 0);
    midi_.SendController(channel, 65, on ? 127 : 0);
    midi_.SendController(channel, 5, on ? 25 : 0);
    midi_.SendController(channel, 66, on ? 100 : 20);
    midi_.SendController(channel, 91, on ? 100 : 20);
}

void KeyboardPlay::panic() {
    // Some paths leave notes on by design (a key lifted after a change of
    // tonality, the low double that Space does not reach): the way out that
    // every MIDI instrument gives, All Sound Off and All Notes Off.
    heldByPedal_.clear();
    for (int16_t channel = 0; channel < 16; ++channel) {
        midi_.SendController(channel, 120, 0);
        midi_.SendController(channel, 123, 0);
    }
    for (auto& [offset, key] : form_.Picture1)
        key->setPicture(state_.IsWhiteKey[offset] ? kWhiteKeyUp : kBlackKeyUp);
    form_.FJWZ.setCaption("全部静音。。。");
}

void KeyboardPlay::Check5_Click() { state_.AutoSyncFlag = truth(form_.Check5.value() == 1); }

void KeyboardPlay::applyTempo(double tempo) {
    state_.TickMs = tickMsForTempo(tempo);
    form_.BZDS.setInterval(4 * state_.TickMs);
    form_.Timer1.setInterval(state_.TickMs);
}

void KeyboardPlay::SD_Click() { applyTempo(numericValue(form_.SD.text())); }

void KeyboardPlay::SD_LostFocus() {
    double tempo = roundHalfEven(numericValue(form_.SD.text()));
    if (tempo < 40 || tempo > 140) {
        form_.SD.setText(std::to_string(integerDivide(7500, state_.TickMs)));
        return;
    }
    applyTempo(tempo);
}

void KeyboardPlay::YD_Click() { state_.NoteBase = toInt16(form_.YD.listIndex() + kLowestNoteBase); }

void KeyboardPlay::Zxlyl_Click(int Index) {
    midi_.ChannelVelocity[Index] = toInt16(static_cast<long long>(numericValue(form_.Zxlyl[Index].text())));
}

void KeyboardPlay::ComSounds_Click(int Index) {
    int listIndex = form_.ComSounds[Index].listIndex();
    auto channel = static_cast<int16_t>(Index);
    if (listIndex > 0) {
        state_.MelodyProgram[Index] = toInt16(listIndex);
        midi_.SetProgram(channel, 0, toInt16(listIndex - 1));
    } else if (listIndex == 0) {
        midi_.StopNote(channel, toInt16(state_.LastPlayedOffset + state_.NoteBase));
    }
}

void KeyboardPlay::ComSounds_Change(int Index) {
    int listIndex = form_.ComSounds[Index].listIndex();
    state_.MelodyProgram[Index] = toInt16(listIndex);
    midi_.SetProgram(static_cast<int16_t>(Index), 0, toInt16(listIndex - 1));
}

void KeyboardPlay::SFYXYZ_Click() {
    form_.SFYXYZ.setEnabled(true);
    form_.FJWZ.setCaption("现在允许演奏。。。");
    form_.SFYXYZ.setFocus();
    accompaniment_.resetCounters();
}

void KeyboardPlay::SFYXYZ_GotFocus() {
    for (auto& [index, key] : form_.Picture1) key->setEnabled(true);
    form_.Label1.setVisible(true);
    accompaniment_.resetCounters();
    for (int key = 1; key <= 255; ++key) state_.KeyHeld[key] = kFalse;
}

void KeyboardPlay::SFYXYZ_LostFocus() {
    for (auto& [index, key] : form_.Picture1) key->setEnabled(false);
    form_.Label1.setVisible(false);
}

void KeyboardPlay::Text3_Change() {
    state_.ScoreEnd = static_cast<int32_t>(form_.Text3.length());
    form_.File1.setVisible(false);
}

}  // namespace tessaly
