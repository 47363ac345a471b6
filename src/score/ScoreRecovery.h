#pragma once
#include <optional>

#include "shell/FatalEndSaves.h"

namespace tessaly {

class MainWindow;
struct SharedState;

// The score box's text kept as a score file in "演奏记录" when the program
// ends by a run-time failure: a take not yet saved is not lost. Nothing is
// written for an empty box.
std::optional<FatalEndSaves::Saved> saveScoreForRecovery(const SharedState& state, const MainWindow& form);

}  // namespace tessaly
