#pragma once
#include <string>

namespace tessaly {

// The check for another running instance of the program: a lock on a file in
// the program's folder, held until the process ends.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;
    // Takes the lock of the folder; false when another process holds it.
    // Taking it creates the folder and the lock file where they are missing;
    // a refused attempt changes nothing on disk.
    virtual bool acquire(const std::string& folder) = 0;
};

// For callers that run several programs side by side in one process (unit
// tests): every attempt succeeds.
InstanceLock& noInstanceLock();

}  // namespace tessaly
