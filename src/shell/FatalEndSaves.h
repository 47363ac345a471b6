#pragma once
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessaly {

// What the program saves before it ends by a run-time failure, so that none
// of the user's work is lost: each entry writes what it keeps and says where.
class FatalEndSaves {
public:
    struct Saved {
        std::string what;  // "编辑器中的乐曲"
        std::string path;  // the file written
    };
    // An action returns what it wrote, or nothing when there was nothing to keep.
    using Action = std::function<std::optional<Saved>()>;

    void add(Action action) { actions_.push_back(std::move(action)); }

    // Runs every action once, in the order they were added; one that fails is
    // passed over. A second call runs nothing and returns nothing.
    std::vector<Saved> runAll() noexcept;

private:
    std::vector<Action> actions_;
    bool ran_ = false;
};

// A path in `folder` for a recovered file: `name` + `extension`, or with
// "(2)", "(3)", ... behind the name where that is taken, so that an earlier
// recovery is never written over.
std::string freeRecoveryPath(const std::string& folder, const std::string& name, const std::string& extension);

// The lines that tell the user where the work was kept, for the failure's box.
// `base` is cut from the front of each path when it begins with it.
std::string savedWorkText(const std::vector<FatalEndSaves::Saved>& saved, const std::string& base = {});

}  // namespace tessaly
