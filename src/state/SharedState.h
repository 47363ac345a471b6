#pragma once
#include <cstdint>
#include <string>

#include "notation/KeyTables.h"
#include "state/CountedText.h"
#include "runtime/FixedTable.h"

namespace tessaly {

// The state the subsystems share: plain variables and fixed tables, owned by
// the application and passed by reference. Names are those the whole program
// uses for them; truth values are 16 bits, true is -1.
struct SharedState {
    // Notes and keys
    int16_t NoteBase = 36;
    int16_t PrevNoteBase = 36;  // no tonality key pressed yet: the same as NoteBase
    KeyTables keys;

    // Keyboard play
    FixedTable<int16_t, 0, 255> KeyHeld;
    int16_t LastKeyCode = 0;
    int16_t CurrentNoteOffset = 0;
    int32_t LastNoteKey = 0;
    FixedTable<int32_t, 0, 255> KeySoundedOffset;
    int16_t LastPlayedOffset = 0;
    int32_t ScoreEnd = 0;
    int16_t SinceNoteTicks = 0;
    int16_t DurationTicks = 0;
    int16_t AutoSyncFlag = 0;
    int16_t AutoPlaying = 0;
    int16_t KeypadIndex = 0;
    FixedTable<int16_t, 0, 65> IsWhiteKey;

    // Instruments, keypad and effects
    FixedTable<int16_t, 0, 2> MelodyProgram;
    FixedTable2<int16_t, 0, 12, 0, 2> InstrumentSet;
    FixedTable<int16_t, 0, 9> KeypadPercussion;
    FixedTable<std::string, 0, 5> EffectFile;

    // Time and accompaniment
    int16_t TickMs = 107;
    int32_t AccompanimentTick = 0;
    int16_t RhythmStep = 0;
    int16_t RhythmLastStep = 15;
    int32_t ChordStep = 0;
    int16_t ChordIndex = 1;
    int16_t ChordCount = 4;
    int16_t StepsPerChord = 8;
    int16_t TotalChordSteps = 32;

    // Score
    CountedText ScoreText;
    int32_t ScoreTick = 0;
    int32_t ScorePos = 1;
    int16_t ScoreLen = 0;
    int16_t NoteDuration = 0;
    int16_t PendingNote = 0;
    int16_t SoundingNote = 0;

    // Rhythm files
    std::string RhythmFileText;

    // Files
    std::string AppDir;
    std::string FilePathInUse;
};

}  // namespace tessaly
