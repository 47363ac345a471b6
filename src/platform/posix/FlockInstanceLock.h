#pragma once
#include "platform/InstanceLock.h"

namespace tessaly {

// The lock file "tessaly.lock" in the folder, locked with flock. The kernel
// drops the lock when the process ends, however it ends, so a crash never
// leaves a stale lock behind.
class FlockInstanceLock : public InstanceLock {
public:
    FlockInstanceLock() = default;
    ~FlockInstanceLock() override;
    FlockInstanceLock(const FlockInstanceLock&) = delete;
    FlockInstanceLock& operator=(const FlockInstanceLock&) = delete;

    bool acquire(const std::string& folder) override;

private:
    int fd_ = -1;
};

}  // namespace tessaly
