#pragma once
#include <optional>
#include <string>
#include <vector>

#include "shell/FatalEndSaves.h"

namespace tessaly {

class MainWindow;
class ScoreEntryWindow;

// The score box's text kept as a score file in the first of the recovery
// folders that takes it, when the program ends by a run-time failure or a
// signal: a take not yet saved is not lost. Nothing is written for an empty box.
std::optional<FatalEndSaves::Saved> saveScoreForRecovery(const MainWindow& form, const std::vector<std::string>& folders);

// The same for the text typed in the score entry window, kept as it stands.
std::optional<FatalEndSaves::Saved> saveEntryForRecovery(const ScoreEntryWindow& form,
                                                         const std::vector<std::string>& folders);

}  // namespace tessaly
