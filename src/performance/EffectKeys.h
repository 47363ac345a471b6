#pragma once

#include <optional>
#include <string>

namespace tessaly {

class MainWindow;
struct Platform;
struct SharedState;

// The six navigation keys that play WAV sound effects from "音效".
class EffectKeys {
public:
    EffectKeys(Platform& platform, SharedState& state, MainWindow& form)
        : platform_(platform), state_(state), form_(form) {}

    // Plays the effect of the key in LastKeyCode; the panel names it either way.
    void PlayEffectKey();
    // Keypad ".": cuts the effect that plays.
    void stopEffect();
    // Plays a file of "音效" if it exists; false when there is no such file.
    bool playEffectFile(const std::string& name);
    // Has the six effect files the settings name read ahead of their keys.
    void prepareEffects();

private:
    Platform& platform_;
    SharedState& state_;
    MainWindow& form_;
};

// The path of an effect file in the folder (ending in a separator): the name
// as it stands, else the name without its trailing blanks and dots.
std::optional<std::string> findEffectFile(const std::string& folder, const std::string& name);

// The slot of EffectFile for a key code: Insert, Home, PageUp, Delete, End,
// PageDown are 0..5; any other key gives 0.
int effectSlot(int keyCode);

}  // namespace tessaly
