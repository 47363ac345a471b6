#pragma once
#include <atomic>
#include <future>
#include <optional>
#include <string>

#include "export/Exporter.h"
#include "platform/EventLoop.h"

namespace tessaly {

class Instrument;

// The export buttons: "导出" on the score panel (DCYP) exports the score in
// the score box, the one in the editor (DCBJ) the song. Each asks for a file
// in the save dialog, takes a snapshot of what the windows hold, and hands
// the export to a worker with a program of its own, so that the event
// thread, and the instrument, go on playing. A timer on the event thread
// takes the result back and says it in FJWZ; a failure also shows its
// reason in a box. One export runs at a time.
class ExportButtons : private TimerClient {
public:
    enum class Threading {
        Worker,  // the program: a thread of its own
        Inline,  // the script driver and tests: done at the click, told at the next poll
    };
    // soundFont: the SoundFont audio exports use (empty: as the program finds it).
    ExportButtons(Instrument& live, Threading threading, std::string soundFont = {});
    // A running export is cancelled and waited for.
    ~ExportButtons() override;
    ExportButtons(const ExportButtons&) = delete;
    ExportButtons& operator=(const ExportButtons&) = delete;

    void DCYP_Click();
    void DCBJ_Click();
    bool busy() const { return job_.valid(); }

    static constexpr int kPollMs = 100;

private:
    // The file named in the save dialog, with the extension of the type
    // chosen there when the name has none we write.
    std::optional<std::string> chooseOutput(const std::string& suggestedName);
    void begin(ExportRequest request, const char* what);
    void timerDue() override;

    Instrument& live_;
    Threading threading_;
    std::string soundFont_;
    std::future<ExportResult> job_;
    std::atomic<bool> cancel_{false};
    std::string doneText_;
};

}  // namespace tessaly
