#pragma once
// The whole program on the recording platform in virtual time, started once
// and kept for every input of a fuzzer or a soak.
#include <cstdlib>
#include <string>

#include "shell/HeadlessProgram.h"

namespace tessaly::fuzz {

[[noreturn]] inline void fail() { std::abort(); }

struct Program : HeadlessProgram {
    explicit Program(const std::string& name) : HeadlessProgram(Options{name, false, true}) {
        if (!startUntilActive()) fail();
    }
    ScriptedDialogs& dialogs() { return app->unansweredDialogs; }
};

}  // namespace tessaly::fuzz
