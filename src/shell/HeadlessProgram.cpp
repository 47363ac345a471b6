#include "shell/HeadlessProgram.h"

#include <unistd.h>

#include <atomic>

namespace tessaly {

namespace fs = std::filesystem;

namespace {

fs::path freshFolder(const HeadlessProgram::Options& options) {
    static std::atomic<unsigned> count{0};
    std::error_code error;
    fs::path base = options.inMemory && fs::is_directory("/dev/shm", error) ? fs::path("/dev/shm")
                                                                          : fs::temp_directory_path();
    fs::path dir = base / (options.name + "-" + std::to_string(::getpid()) + "-" + std::to_string(count++));
    fs::remove_all(dir, error);
    fs::create_directories(dir / "音效", error);
    return dir;
}

}  // namespace

HeadlessProgram::HeadlessProgram(const Options& options) : dir(freshFolder(options)) {
    app = std::make_unique<Instrument>(platform, dir.string());
    if (options.started) startUntilActive();
}

HeadlessProgram::~HeadlessProgram() {
    app.reset();
    std::error_code error;
    fs::remove_all(dir, error);
}

bool HeadlessProgram::startUntilActive() {
    app->start();
    // The splash window hands over to the main window after its timer.
    while (!app->activated() && !app->ended()) loop.advance(1);
    midi.take();
    log.take();
    return app->activated();
}

}  // namespace tessaly
