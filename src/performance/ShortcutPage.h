#pragma once

namespace tessaly {

class EffectKeys;
class MainWindow;
class MidiOut;
struct Platform;
struct SharedState;

// The shortcut page of the main window: one group of 28 options for F1..F12,
// the keypad digits and the six effect keys; the lists that assign an
// instrument set or a percussion instrument; the effect file list.
class ShortcutPage {
public:
    ShortcutPage(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form, EffectKeys& effects)
        : platform_(platform), state_(state), midi_(midi), form_(form), effects_(effects) {}

    // Attaches the handlers to the page's controls.
    void wire();

    void Option3_Click(int Index);
    // Also runs when the text of the list changes.
    void YQSZ_Click(int Index);
    void File2_Click();
    // What the tab of the page does when it is entered.
    void enterShortcutTab();

private:
    // The option that is on, or -1.
    int chosenKey() const;
    void showInstrumentLists();
    void effectsFolder();

    Platform& platform_;
    SharedState& state_;
    MidiOut& midi_;
    MainWindow& form_;
    EffectKeys& effects_;
};

}  // namespace tessaly
