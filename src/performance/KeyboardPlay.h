#pragma once
#include <cstdint>
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
    // Stops a note on the three melody channels and its double on channel 2.
    void stopMelodyNote(int note);
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
};

}  // namespace tessaly
