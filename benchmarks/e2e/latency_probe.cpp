// Times the real program from outside, on the clocks a user would use: it
// starts the instrument with SDL's disk audio driver writing into a FIFO,
// stamps every chunk of audio as it arrives, waits for the main window to be
// mapped on the X server (the time from start is printed), then presses a key
// several times through XTest and finds for each press the first loud sample
// written after it.
//
// The driver writes through stdio, which holds 4 KiB for a file or a pipe;
// so it writes into a raw pseudo-terminal, for which stdio keeps only 1 KiB
// (two blocks of 64 frames) and flushes at every newline byte as well. A
// sample's block is dated by interpolating between the arrivals of the
// chunk that holds it and of the chunk before. That is when the block left
// the program: a real device adds its own buffer.
//
// With SCORE, the score file is first opened into the score box as a user
// opens it ("打开", its path typed into the file dialog), its play stopped,
// and the keyboard button clicked, so that each key is written after it.
//
// Usage: latency_probe APP UNUSED LOG PERIOD_FRAMES PRESSES [SCORE]
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <fcntl.h>
#include <termios.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "MainWindowPlaces.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr const char* kMainWindowName = "Tessaly201705";
constexpr float kLoud = 0.01f;
constexpr float kQuiet = 0.0001f;
constexpr int kChannels = 2;

double msSince(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

struct Chunk {
    Clock::time_point arrived;
    std::size_t endByte;  // bytes received up to and with this chunk
};

// Everything the program wrote, with the arrival of each chunk.
class AudioTap {
public:
    explicit AudioTap(int master) : master_(master) { bytes_.reserve(256u << 20); }
    void start() { reader_ = std::thread([this] { run(); }); }
    void stop() {
        stopping_ = true;
        reader_.join();
    }
    std::size_t received() {
        std::lock_guard<std::mutex> lock(mutex_);
        return bytes_.size();
    }
    // True when the last ms milliseconds of audio are below kQuiet.
    bool quietFor(int ms) {
        std::lock_guard<std::mutex> lock(mutex_);
        const std::size_t samples = static_cast<std::size_t>(ms) * 48 * kChannels;
        const std::size_t count = bytes_.size() / sizeof(float);
        if (count < samples) return false;
        const auto* s = reinterpret_cast<const float*>(bytes_.data());
        for (std::size_t i = count - samples; i < count; ++i)
            if (std::fabs(s[i]) >= kQuiet) return false;
        return true;
    }
    // When the block holding the first loud sample at or after fromByte left
    // the program; false when there is none.
    bool firstLoudBlock(std::size_t fromByte, int periodFrames, Clock::time_point& when) {
        std::lock_guard<std::mutex> lock(mutex_);
        const auto* s = reinterpret_cast<const float*>(bytes_.data());
        const std::size_t count = bytes_.size() / sizeof(float);
        std::size_t i = fromByte / sizeof(float);
        while (i < count && std::fabs(s[i]) < kLoud) ++i;
        if (i >= count) return false;
        const std::size_t blockBytes = static_cast<std::size_t>(periodFrames) * kChannels * sizeof(float);
        const std::size_t blockEnd = (i * sizeof(float) / blockBytes + 1) * blockBytes;
        auto chunk = std::find_if(chunks_.begin(), chunks_.end(), [&](const Chunk& c) { return c.endByte >= blockEnd; });
        if (chunk == chunks_.end()) return false;
        const auto index = static_cast<std::size_t>(chunk - chunks_.begin());
        if (std::getenv("LATENCY_PROBE_DEBUG")) {
            for (std::size_t k = index >= 3 ? index - 3 : 0; k <= std::min(index + 1, chunks_.size() - 1); ++k)
                std::printf("     chunk %zu: end %zu at %+.3f ms%s\n", k, chunks_[k].endByte,
                            msSince(debugKey, chunks_[k].arrived), k == index ? " <- block end " : "");
            std::printf("     loud byte %zu, block end %zu\n", i * sizeof(float), blockEnd);
            const std::size_t blockSamples = blockBytes / sizeof(float);
            const std::size_t loudBlock = i / blockSamples;
            for (std::size_t b = loudBlock >= 4 ? loudBlock - 4 : 0; b <= loudBlock + 2 && (b + 1) * blockSamples <= count; ++b) {
                float peak = 0;
                for (std::size_t k = b * blockSamples; k < (b + 1) * blockSamples; ++k) peak = std::max(peak, std::fabs(s[k]));
                std::printf("     block at byte %zu: peak %g\n", b * blockBytes, static_cast<double>(peak));
            }
        }
        if (index == 0) return false;
        const Chunk& before = chunks_[index - 1];
        const double share = static_cast<double>(blockEnd - before.endByte) /
                             static_cast<double>(chunk->endByte - before.endByte);
        when = before.arrived + std::chrono::duration_cast<Clock::duration>((chunk->arrived - before.arrived) * share);
        return true;
    }

private:
    void run() {
        const int fd = master_;
        std::vector<char> buffer(1 << 16);
        while (!stopping_) {
            pollfd ready{fd, POLLIN, 0};
            ::poll(&ready, 1, 100);
            const ssize_t n = ::read(fd, buffer.data(), buffer.size());
            const Clock::time_point now = Clock::now();
            if (n <= 0) {
                // No writer yet, or it has gone.
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
                continue;
            }
            std::lock_guard<std::mutex> lock(mutex_);
            bytes_.insert(bytes_.end(), buffer.begin(), buffer.begin() + n);
            chunks_.push_back({now, bytes_.size()});
        }
        ::close(fd);
    }

public:
    Clock::time_point debugKey;

private:
    int master_;
    std::atomic<bool> stopping_{false};
    std::thread reader_;
    std::mutex mutex_;
    std::vector<char> bytes_;
    std::vector<Chunk> chunks_;
};

Window findViewable(Display* display, Window window, const char* name) {
    char* title = nullptr;
    if (XFetchName(display, window, &title) && title) {
        const bool match = std::strcmp(title, name) == 0;
        XFree(title);
        XWindowAttributes attributes;
        if (match && XGetWindowAttributes(display, window, &attributes) && attributes.map_state == IsViewable)
            return window;
    }
    Window root, parent, *children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(display, window, &root, &parent, &children, &count)) return 0;
    Window found = 0;
    for (unsigned int i = 0; i < count && !found; ++i) found = findViewable(display, children[i], name);
    if (children) XFree(children);
    return found;
}

void click(Display* display, Window window, ControlCentre at) {
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), at.x, at.y, &x, &y, &child);
    XTestFakeMotionEvent(display, -1, x, y, CurrentTime);
    XTestFakeButtonEvent(display, 1, True, CurrentTime);
    XTestFakeButtonEvent(display, 1, False, CurrentTime);
    XFlush(display);
}

void pressKey(Display* display, KeySym sym) {
    const KeyCode code = XKeysymToKeycode(display, sym);
    const KeyCode shift = XKeysymToKeycode(display, XK_Shift_L);
    const bool shifted = XkbKeycodeToKeysym(display, code, 0, 0) != sym;
    if (shifted) XTestFakeKeyEvent(display, shift, True, CurrentTime);
    XTestFakeKeyEvent(display, code, True, CurrentTime);
    XTestFakeKeyEvent(display, code, False, CurrentTime);
    if (shifted) XTestFakeKeyEvent(display, shift, False, CurrentTime);
    XFlush(display);
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

// Characters, not bytes; line breaks left out, as the score box reads them.
std::size_t scoreCharacters(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return 0;
    std::size_t count = 0;
    for (int c; (c = std::fgetc(file)) != EOF;)
        if ((c & 0xC0) != 0x80 && c != '\r' && c != '\n') ++count;
    std::fclose(file);
    return count;
}

// Opens the score as a user does and leaves the keys to the keyboard button.
// False when no sound came of it (the file did not open and play).
bool openScore(Display* display, Window window, AudioTap& tap, const std::string& score) {
    // Typed into the dialog: a name of characters every layout has unshifted.
    const std::string typed = "/tmp/tessaly-probe-" + std::to_string(::getpid()) + ".txt";
    std::filesystem::copy_file(score, typed, std::filesystem::copy_options::overwrite_existing);
    const MainWindowPlaces places = mainWindowPlaces();
    click(display, window, places.open);
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    for (char c : typed) pressKey(display, static_cast<KeySym>(static_cast<unsigned char>(c)));
    const std::size_t before = tap.received();
    pressKey(display, XK_Return);
    std::this_thread::sleep_for(std::chrono::milliseconds(2000));  // it opens and plays
    Clock::time_point heard;
    const bool played = tap.firstLoudBlock(before, 64, heard);
    click(display, window, places.audition);  // "停止"
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    click(display, window, places.keyboard);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    std::filesystem::remove(typed);
    return played;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 6 && argc != 7) {
        std::fprintf(stderr, "usage: latency_probe APP FIFO LOG PERIOD_FRAMES PRESSES [SCORE]\n");
        return 2;
    }
    const char* app = argv[1];
    const int periodFrames = std::atoi(argv[4]);
    const int presses = std::atoi(argv[5]);
    Display* display = XOpenDisplay(nullptr);
    if (!display) {
        std::fprintf(stderr, "no X display\n");
        return 2;
    }
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ::grantpt(master);
    ::unlockpt(master);
    const char* slave = ::ptsname(master);
    const int slaveFd = ::open(slave, O_RDWR | O_NOCTTY);  // keeps the terminal and its raw mode
    termios raw{};
    ::tcgetattr(slaveFd, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(slaveFd, TCSANOW, &raw);
    ::setenv("SDL_AUDIODRIVER", "disk", 1);
    ::setenv("SDL_DISKAUDIOFILE", slave, 1);
    AudioTap tap(master);
    tap.start();

    const Clock::time_point started = Clock::now();
    const pid_t pid = ::fork();
    if (pid == 0) {
        const int log = ::open(argv[3], O_WRONLY | O_CREAT | O_TRUNC, 0644);
        ::dup2(log, 1);
        ::dup2(log, 2);
        ::execl(app, app, static_cast<char*>(nullptr));
        ::_exit(127);
    }
    Window window = 0;
    while (!window && msSince(started, Clock::now()) < 20000) {
        window = findViewable(display, DefaultRootWindow(display), kMainWindowName);
        if (!window) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    int status = 0;
    if (!window) {
        std::printf("the main window never showed\n");
        ::kill(pid, SIGTERM);
        ::waitpid(pid, &status, 0);
        tap.stop();
        return 1;
    }
    std::printf("main window shown %.3f s after start\n", msSince(started, Clock::now()) / 1000.0);

    XRaiseWindow(display, window);
    XSetInputFocus(display, window, RevertToParent, CurrentTime);
    XSync(display, False);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    if (argc == 7) {
        const std::string score = argv[6];
        std::printf("score %s: %zu characters\n", std::filesystem::path(score).filename().c_str(), scoreCharacters(score));
        if (!openScore(display, window, tap, score)) std::printf("the score did not play once opened\n");
    }

    const KeyCode key = XKeysymToKeycode(display, XK_g);
    const KeyCode escape = XKeysymToKeycode(display, XK_Escape);
    std::vector<double> latencies;
    for (int press = 0; press < presses; ++press) {
        // The melody's notes ring on after the key is up: Esc silences them.
        XTestFakeKeyEvent(display, escape, True, CurrentTime);
        XTestFakeKeyEvent(display, escape, False, CurrentTime);
        XFlush(display);
        for (int i = 0; i < 400 && !tap.quietFor(200); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
        if (!tap.quietFor(200)) {
            std::printf("press %d: not quiet before the key, left out\n", press + 1);
            continue;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50 + press * 37 % 100));  // not in step with the blocks
        const std::size_t before = tap.received();
        const Clock::time_point down = Clock::now();
        tap.debugKey = down;
        XTestFakeKeyEvent(display, key, True, CurrentTime);
        XFlush(display);
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        XTestFakeKeyEvent(display, key, False, CurrentTime);
        XFlush(display);
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        Clock::time_point sounded;
        if (!tap.firstLoudBlock(before, periodFrames, sounded)) {
            std::printf("press %d: no sound\n", press + 1);
            continue;
        }
        latencies.push_back(msSince(down, sounded));
        std::printf("press %d: %.2f ms\n", press + 1, latencies.back());
    }
    ::kill(pid, SIGTERM);
    ::waitpid(pid, &status, 0);
    tap.stop();
    XCloseDisplay(display);
    if (latencies.empty()) return 1;
    std::printf("key to sound: median %.2f ms (%.2f–%.2f), %zu presses\n", median(latencies),
                *std::min_element(latencies.begin(), latencies.end()),
                *std::max_element(latencies.begin(), latencies.end()), latencies.size());
    return 0;
}
