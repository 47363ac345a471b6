#include "shell/HeadlessProgram.h"

#include <unistd.h>

#include <stdexcept>
#include <string>

namespace tessaly {

namespace fs = std::filesystem;

namespace {

fs::path freshFolder(const HeadlessProgram::Options& options) {
    std::error_code error;
    fs::path base = options.inMemory && fs::is_directory("/dev/shm", error) ? fs::path("/dev/shm")
                                                                          : fs::temp_directory_path();
    // A name nobody can guess, made by us alone: the export runs its program
    // here, in a folder every user can write to.
    std::string name = (base / (options.name + "-XXXXXX")).string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("cannot create a temporary folder in " + base.string());
    fs::create_directories(fs::path(name) / "音效", error);
    return name;
}

}  // namespace

HeadlessProgram::HeadlessProgram(const Options& options) : dir(freshFolder(options)) {
    platform.dialogs = options.dialogs;
    app = std::make_unique<Instrument>(platform, dir.string(), options.shippedData);
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
