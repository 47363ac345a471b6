#pragma once
#include <cstdint>
#include <string>

#include "runtime/ChunkedTable.h"
#include "runtime/FixedTable.h"

namespace tessaly {

// The music editor's song and the state of its window. It lives as long as the
// program: closing the editor releases its controls, not this.
struct EditorState {
    // Fine tables, by slot number 0..9999 and track 0..16 (tracks 12..16
    // unused): the token of each slot, and for tracks 0..6 its NoteCode.
    ChunkedTable2<std::string, 9999, 16> SlotTokens;
    ChunkedTable2<int16_t, 9999, 16> SlotNotes;
    // Coarse tables, by editor bar 0..9999: the text of each track, and the
    // bar's settings text ("", four digits, or the full settings).
    ChunkedTable2<std::string, 9999, 16> BarStrings;
    FixedTable<std::string, 0, 9999> BarHead;

    int32_t BarCount = 0;  // the index of the last bar, not a count
    int32_t LastSlotIndex = 0;
    int32_t CurrentBar = 0;
    int16_t SlotsPerBarMinusOne = 15;

    // The settings of a bar in parts; bars past 255 (key, tempo) or 1999
    // (depth, effects) cannot have them.
    FixedTable<std::string, 0, 255> BarKeyText;
    FixedTable<std::string, 0, 255> BarTempoText;
    FixedTable<std::string, 0, 1999> BarDepthText;
    FixedTable<std::string, 0, 1999> BarEffectText;

    // The live settings of the bar on show (the volumes are MidiOut's LayerVelocity).
    FixedTable<int32_t, 0, 15> TrackProgram;
    int16_t DepthStep = 0;
    int16_t ExprValue = 0;
    int16_t AccentValue = 0;
    FixedTable<int16_t, 0, 16> LastPitch;

    // The sequencer.
    int16_t SlotInBar = 0;
    int32_t PlayCountdown = 0;
    int16_t LastShownBar = 0;

    // Edit files: the path last read or written, the reader's line buffer,
    // the slots per bar of the file read, and the name the window's file
    // dialog holds (it keeps the last one chosen until the window reloads).
    std::string EditFilePath;
    FixedTable<std::string, 0, 9999> FileLine;
    int16_t LoadedSlots = 0;
    std::string DialogFileName;
    std::string DialogFolder;

    // The window.
    int16_t EditorStarted = 0;
    int16_t ShownSlotsMinusOne = 15;

    // Where the next score import starts.
    int32_t ImportCursor = 1;

    int16_t slotsPerBar() const;
    // The slot number of slot s (from 0) of a bar, by the current time signature.
    long slotOf(long bar, long s) const { return static_cast<long>(slotsPerBar()) * bar + s; }
    // What LastSlotIndex becomes when the song's extent changes.
    int32_t lastSlotOfSong() const;
};

}  // namespace tessaly
