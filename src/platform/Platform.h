#pragma once

#include "platform/Dialogs.h"
#include "platform/EventLoop.h"
#include "platform/InstanceLock.h"
#include "platform/MciCommands.h"
#include "platform/MessageBoxes.h"
#include "platform/MidiInput.h"
#include "platform/MidiPort.h"
#include "platform/UrlOpener.h"
#include "platform/WallClock.h"
#include "platform/WaveOut.h"

namespace tessaly {

// The platform services the logic uses, handed to it by the application.
struct Platform {
    EventLoop& loop;
    MidiPort& midi;
    WaveOut& wave;
    MessageBoxes& boxes;
    InstanceLock& instanceLock = noInstanceLock();
    MciCommands& mci = noMciCommands();
    // File dialogs and the input box; none given, every dialog is cancelled.
    Dialogs* dialogs = nullptr;
    UrlOpener& urls = noUrlOpener();
    const WallClock& clock = systemWallClock();
    // The keyboards that play the instrument over MIDI; none given, none.
    MidiInput& midiIn = noMidiInput();
};

}  // namespace tessaly
