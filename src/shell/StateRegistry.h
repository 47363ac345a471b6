#pragma once

namespace tessaly {

class ControlSystem;
class MidiOut;
struct SharedState;

// Makes every shared variable and table readable (and settable) by its name.
void registerSharedState(ControlSystem& controls, SharedState& state, MidiOut& midi);

}  // namespace tessaly
