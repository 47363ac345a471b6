// A long session of random play in virtual time, built with the address and
// undefined-behaviour checks: note keys and any other key, Shift, held and
// repeated keys, tempo typed into the box, scores opened, auditioned and
// stopped, the rhythm started and stopped. Every minute Esc must leave no note
// sounding. A controlled fatal failure ends that program, which is counted and
// started afresh; a signal, a sanitizer report or a hang (no progress for a
// minute of wall time) ends the soak. The same seed plays the same session.
//
//   random_play_soak [--seed N] [--minutes M]
#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <thread>

#include "FuzzProgram.h"
#include "notation/KeyTables.h"
#include "platform/testing/SoundingNotes.h"
#include "runtime/FatalFailure.h"

using namespace tessaly;

namespace {

std::atomic<uint64_t> progress{0};

void watchdog() {
    uint64_t seen = progress.load();
    for (;;) {
        std::this_thread::sleep_for(std::chrono::seconds(60));
        uint64_t now = progress.load();
        if (now == seen) {
            std::fprintf(stderr, "soak: no progress for a minute, a hang\n");
            std::abort();
        }
        seen = now;
    }
}

struct Figures {
    uint64_t actions = 0, keys = 0, messages = 0, scores = 0, fatal = 0, escapes = 0;
    std::map<std::string, uint64_t> failures;  // by message
};

class Session {
public:
    explicit Session(uint32_t seed) : random_(seed) { restart(); }

    // Runs `minutes` of virtual time.
    void run(int minutes, Figures& figures) {
        const uint64_t end = static_cast<uint64_t>(minutes) * 60000;
        uint64_t nextCheck = 60000;
        while (elapsed_ < end) {
            try {
                act(figures);
                const uint64_t pause = pick(0, 400);
                program_->loop.advance(pause);
                elapsed_ += pause;
                if (elapsed_ >= nextCheck) {
                    escapeLeavesSilence(figures);
                    nextCheck += 60000;
                }
            } catch (const FatalFailure& failure) {
                ++figures.fatal;
                ++figures.failures[failure.what()];
                restart();
            }
            follow(figures);
            ++figures.actions;
            ++progress;
        }
        escapeLeavesSilence(figures);
    }

private:
    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    void restart() {
        program_.reset();
        program_ = std::make_unique<fuzz::Program>("tessaly-soak");
        sounding_ = SoundingNotes();
        held_.fill(false);
    }

    void follow(Figures& figures) {
        for (const RecordedMidi& m : program_->midi.take()) {
            sounding_.apply(m.message);
            ++figures.messages;
        }
        program_->log.take();
    }

    void escapeLeavesSilence(Figures& figures) {
        follow(figures);
        keyDown(27, 0);
        keyUp(27);
        follow(figures);
        ++figures.escapes;
        if (!sounding_.silent()) {
            std::fprintf(stderr, "soak: %zu notes still sounding after Esc at %llu ms\n", sounding_.notes().size(),
                         static_cast<unsigned long long>(elapsed_));
            std::abort();
        }
    }

    void keyDown(int code, int shift) {
        auto key = static_cast<int16_t>(code);
        program_->app->form1.SFYXYZ.onKeyDown(key, static_cast<int16_t>(shift));
    }
    void keyUp(int code) {
        auto key = static_cast<int16_t>(code);
        program_->app->form1.SFYXYZ.onKeyUp(key, 0);
    }

    int randomKey() {
        if (pick(0, 9) < 7) {
            for (;;) {
                int key = pick(1, 254);
                if (isNoteKey(key)) return key;
            }
        }
        for (;;) {
            int key = pick(1, 254);
            if (key != 27) return key;
        }
    }

    void act(Figures& figures) {
        Instrument& app = *program_->app;
        MainWindow& f = app.form1;
        const int what = pick(0, 99);
        if (what < 70) {
            // The keys reach the keyboard button, which a user clicks first when it lost the focus.
            if (app.controls.focused() != &f.SFYXYZ) f.SFYXYZ.setFocus();
            const int key = randomKey();
            if (held_[key] && pick(0, 1) == 0) {
                keyUp(key);
                held_[key] = false;
            } else {
                keyDown(key, pick(0, 19) == 0 ? 1 : 0);  // now and then with Shift
                held_[key] = true;
            }
            ++figures.keys;
        } else if (what < 75) {
            f.SD.setFocus();
            const char* tempos[] = {"70", "40", "140", "39", "141", "0", "abc", "", "100", "15001", "99999"};
            f.SD.setText(tempos[pick(0, 10)]);
            f.SFYXYZ.setFocus();
        } else if (what < 77) {
            f.SD.userPick(pick(0, f.SD.listCount() - 1));
        } else if (what < 80) {
            openScore(figures);
        } else if (what < 85) {
            f.Yuepu[0].press();  // audition or stop
        } else if (what < 88) {
            f.BzQd.setValue(f.BzQd.value() ? 0 : 1);
        } else if (what < 90) {
            f.Check5.setValue(f.Check5.value() ? 0 : 1);
        } else if (what < 92) {
            f.YD.userPick(pick(0, f.YD.listCount() - 1));
        } else if (what < 94) {
            f.Yuepu[3].press();  // clear
        } else {
            // Let the clocks run a while with nothing pressed.
            const uint64_t pause = pick(500, 12000);
            program_->loop.advance(pause);
            elapsed_ += pause;
        }
    }

    void openScore(Figures& figures) {
        static const char* tokens[] = {"LC", "WD", "KE", "HF", "MG", "KA", "WB", "XZ", "VS", "YD", "JP", "YQ", "TZ"};
        std::string score;
        const int items = pick(1, 60);
        for (int i = 0; i < items; ++i) {
            score += tokens[pick(0, 12)];
            const int digits = pick(0, 3);
            if (digits == 1) score += std::to_string(pick(1, 9));
            else if (digits >= 2) score += std::to_string(pick(1, 99));
        }
        if (pick(0, 3) > 0) score += "TZ";
        const std::string path = (program_->dir / "演奏记录" / "soak.txt").string();
        std::ofstream(path, std::ios::binary | std::ios::trunc) << score;
        program_->dialogs().queueFileAnswer(path);
        program_->app->form1.Yuepu[2].press();
        ++figures.scores;
    }

    std::mt19937 random_;
    std::unique_ptr<fuzz::Program> program_;
    SoundingNotes sounding_;
    std::array<bool, 256> held_{};
    uint64_t elapsed_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    uint32_t seed = 1;
    int minutes = 60;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--seed") == 0) seed = static_cast<uint32_t>(std::strtoul(argv[i + 1], nullptr, 10));
        else if (std::strcmp(argv[i], "--minutes") == 0) minutes = std::atoi(argv[i + 1]);
    }
    std::thread(watchdog).detach();
    const auto start = std::chrono::steady_clock::now();
    Figures figures;
    Session(seed).run(minutes, figures);
    const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("soak seed %u: %d virtual minutes in %.1f s wall; %llu actions, %llu keys, %llu MIDI messages, "
                "%llu scores opened, %llu controlled fatal failures (program restarted), %llu checks after Esc, "
                "all silent\n",
                seed, minutes, wall, static_cast<unsigned long long>(figures.actions),
                static_cast<unsigned long long>(figures.keys), static_cast<unsigned long long>(figures.messages),
                static_cast<unsigned long long>(figures.scores), static_cast<unsigned long long>(figures.fatal),
                static_cast<unsigned long long>(figures.escapes));
    for (const auto& [message, count] : figures.failures)
        std::printf("  %llu x %s\n", static_cast<unsigned long long>(count), message.c_str());
    return 0;
}
