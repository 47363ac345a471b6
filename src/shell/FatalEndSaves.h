#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// What the program saves before it ends by a run-time failure or is told to
// end by a signal, so that none of the user's work is lost: each entry writes
// what it keeps and says where, or that it could not be kept.
class FatalEndSaves {
public:
    struct Saved {
        std::string what;  // "编辑器中的乐曲"
        std::string path;  // the file written; empty when it could not be kept
        int error = 0;     // why not, as FileAccess.h gives it
    };
    // An action returns what it wrote, or nothing when there was nothing to keep.
    using Action = std::function<std::optional<Saved>()>;

    void add(Action action) { actions_.push_back(std::move(action)); }

    // Runs every action once, in the order they were added; one that throws is
    // passed over. A second call runs nothing and returns nothing.
    std::vector<Saved> runAll() noexcept;

private:
    std::vector<Action> actions_;
    bool ran_ = false;
};

// The folders a recovered file may go to, in order: "演奏记录" in the data
// folder, the data folder itself, then $XDG_STATE_HOME/tessaly, or the home
// folder when that is not set. Each ends with a separator.
std::vector<std::string> recoveryFolders(const std::string& appDir, const char* xdgStateHome, const char* home);

// Writes `bytes` as `name` + `extension` in the first of `folders` that takes
// it whole, under a name no earlier recovery holds ("(2)", "(3)", ... behind
// the name), never over an existing file. The answer names `what` and the
// file, or holds the last cause when no folder took it.
FatalEndSaves::Saved keepRecovered(const std::vector<std::string>& folders, const std::string& what,
                                   const std::string& name, const std::string& extension, std::string_view bytes);

// A path in `folder` for a recovered file: `name` + `extension`, or with
// "(2)", "(3)", ... behind the name where that is taken, so that an earlier
// recovery is never written over.
std::string freeRecoveryPath(const std::string& folder, const std::string& name, const std::string& extension);

// The lines that tell the user where the work was kept, or that it could not
// be, for the failure's box. `base` is cut from the front of each path when it
// begins with it.
std::string savedWorkText(const std::vector<FatalEndSaves::Saved>& saved, const std::string& base = {});

}  // namespace tessaly
