#pragma once
#include <cstdint>
#include <set>
#include <string>

namespace tessaly {

class Accompaniment;
class ChordLayers;
class EffectKeys;
class MainWindow;
class MidiOut;
struct Platform;
struct SharedState;

// Virtual key codes the keyboard reacts to.
namespace vk {
constexpr int Backspace = 8, Shift = 16, Space = 32, PageUp = 33, PageDown = 34, End = 35, Home = 36;
constexpr int Escape = 27, Insert = 45, Delete = 46, Numpad0 = 96, Numpad9 = 105, Add = 107, Subtract = 109, Decimal = 110;
constexpr int F1 = 112, F12 = 123;
}  // namespace vk

// The typing keyboard as an instrument: the key events of the button SFYXYZ,
// the master tick Timer1, and the melody panel's controls.
class KeyboardPlay {
public:
    KeyboardPlay(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form, Accompaniment& accompaniment,
                 ChordLayers& chords, EffectKeys& effects);

    // Attaches the handlers to the controls.
    void wire();

    void SFYXYZ_KeyDown(int16_t& KeyCode, int16_t Shift);
    void SFYXYZ_KeyUp(int16_t& KeyCode, int16_t Shift);
    void SFYXYZ_Click();
    void SFYXYZ_GotFocus();
    void SFYXYZ_LostFocus();
    void Timer1_Timer();
    void Check3_Click(int Index);
    void Check5_Click();
    void SD_Click();
    void SD_LostFocus();
    void YD_Click();
    void Zxlyl_Click(int Index);
    void ComSounds_Click(int Index);
    void ComSounds_Change(int Index);
    void Text3_Change();

    // A note key struck with a velocity of 1..127, as a MIDI keyboard strikes
    // it: the key's own handler, with every melody channel's volume scaled
    // by velocity / 127. The typing keys strike at 127.
    void touchKeyDown(int16_t keyCode, int velocity);
    // A note on the melody channels whose instrument is not silent, the
    // third one doubled a fourth below, at the current touch.
    void startMelodyNote(int note, int velocity = 127);
    // Stops a note on the three melody channels and its double on channel 2;
    // while the pedal is down the note is held until it rises.
    void stopMelodyNote(int note);
    // The sustain pedal. Rising, it stops the notes it held that were not
    // struck again meanwhile.
    void setPedal(bool down);
    // Forgets what the pedal holds: everything was stopped another way.
    void dropPedalHolds() { heldByPedal_.clear(); }

private:
    void playNoteKey(int keyCode);
    void endPerformance();
    void rest();
    void selectInstrumentSet(int set);
    void quickInstrument(int keyCode);
    void selectTonality(int keyCode);
    void keypadHit(int keyCode);
    void startAccompaniment();
    void stopAccompaniment();
    int16_t touchVelocity(int channel, int velocity) const;
    // Puts the caret at ScoreEnd and inserts the text there.
    void writeToScore(const std::string& text);
    void applyTempo(double tempo);
    // Esc: every note of every channel off, whatever path left it sounding.
    void panic();

    Platform& platform_;
    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
    Accompaniment& accompaniment_;
    ChordLayers& chords_;
    EffectKeys& effects_;
    // The velocity of the note key being struck.
    int touch_ = 127;
    bool pedalDown_ = false;
    std::set<int> heldByPedal_;
};

}  // namespace tessaly
