#include "platform/audio/TakeSaving.h"

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <future>

#include "platform/audio/TakeExport.h"

namespace tessaly::audio {

namespace {
// How often the event thread looks whether the worker is done, when no
// event wakes it sooner.
constexpr uint32_t kPollMs = 5;
constexpr int kWorkerNice = 10;
}  // namespace

bool exportTakeServing(EventLoop& loop, const std::string& takePath, uint64_t frames, const std::string& target,
                       const MciWaveFormat& format) {
    std::future<bool> saved = std::async(std::launch::async, [=] {
        // The event thread comes first: the save may take a little longer.
        setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kWorkerNice);
        return exportTake(takePath, frames, target, format);
    });
    while (saved.wait_for(std::chrono::seconds(0)) != std::future_status::ready) loop.idleUntil(loop.nowMs() + kPollMs);
    return saved.get();
}

}  // namespace tessaly::audio
