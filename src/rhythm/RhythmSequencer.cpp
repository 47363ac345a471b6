#include "rhythm/RhythmSequencer.h"

#include "chords/ChordLayers.h"
#include "forms/MainWindow.h"
#include "platform/Platform.h"
#include "rhythm/Accompaniment.h"
#include "state/SharedState.h"

namespace tessaly {

RhythmSequencer::RhythmSequencer(Platform& platform, SharedState& state, MainWindow& form,
                                 Accompaniment& accompaniment, ChordLayers& chords)
    : platform_(platform), state_(state), form_(form), accompaniment_(accompaniment), chords_(chords) {}

void RhythmSequencer::wire() {
    form_.BzQd.onClick = [this] { BzQd_Click(); };
    form_.BZDS.onTimer = [this] { BZDS_Timer(); };
}

void RhythmSequencer::BzQd_Click() {
    // One tick length here, while a tempo change sets four: after a change
    // of tempo a running rhythm steps four times slower until started again.
    form_.BZDS.setInterval(state_.TickMs);
    if (form_.BzQd.value() == 1) {
        accompaniment_.resetCounters();
        state_.AccompanimentTick = 0;
        form_.BZDS.setTimerEnabled(true);
        form_.BzQd.setCaption("停止");
    } else {
        form_.BZDS.setTimerEnabled(false);
        form_.BzQd.setCaption("启动");
        // Percussion has no note-off: only the chords are silenced.
        chords_.HX1K();
    }
}

void RhythmSequencer::BZDS_Timer() {
    platform_.loop.doEvents();
    accompaniment_.sendAccentSweep();
    if (accompaniment_.onStepTick()) accompaniment_.step();
    accompaniment_.advanceTick();
}

}  // namespace tessaly
