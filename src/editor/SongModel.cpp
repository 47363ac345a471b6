#include "editor/SongModel.h"

#include <cmath>
#include <cstdio>

#include "editor/EditorState.h"
#include "notation/NoteVocabulary.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"

namespace tessaly {

int16_t EditorState::slotsPerBar() const { return toInt16(SlotsPerBarMinusOne + 1); }

int32_t EditorState::lastSlotOfSong() const {
    return toInt32(static_cast<long long>(slotsPerBar()) * BarCount + SlotsPerBarMinusOne);
}

// The same codes as the note vocabulary's, found by position rather than by a
// search of the token list: the preparing pass converts every slot of a song.
int16_t SYYPSB(std::string_view token) {
    if (token.size() != 2) return kStopCode;
    static constexpr std::string_view kRegisters = "LWKHM", kSteps = "CDEFGAB";
    static constexpr int kSemitones[7] = {0, 2, 4, 5, 7, 9, 11};
    const std::size_t step = kSteps.find(token[1]);
    const std::size_t octave = kRegisters.find(token[0]);
    // The highest register ends at G.
    if (octave != std::string_view::npos && step != std::string_view::npos && (octave < 4 || step < 5))
        return static_cast<int16_t>(12 * octave + static_cast<std::size_t>(kSemitones[step]));
    const std::size_t chordStep = kSteps.find(token[0]);
    const std::size_t chordRegister = std::string_view("LCM").find(token[1]);
    if (chordStep != std::string_view::npos && chordRegister != std::string_view::npos)
        return static_cast<int16_t>(65 + chordRegister * 7 + chordStep);
    return token == "XZ" ? kRestCode : kStopCode;
}

void QKYP(EditorState& song) {
    if (song.BarCount < 1) {
        song.BarCount = 0;
        return;
    }
    const int16_t slots = song.slotsPerBar();
    for (long bar = 0; bar <= song.BarCount; ++bar) {
        song.BarHead[bar].clear();
        for (int t = 0; t < kTracks; ++t) song.BarStrings(bar, t).clear();
        for (long s = 0; s < slots; ++s) {
            const long slot = slots * bar + s;
            for (int t = 0; t < kTracks; ++t) {
                song.SlotTokens(slot, t).clear();
                if (isMelodyTrack(t)) song.SlotNotes(slot, t) = 255;
            }
        }
    }
    song.BarCount = 0;
}

std::string zeroFilled(long long value, int width) {
    std::string digits = std::to_string(value < 0 ? -value : value);
    if (digits.size() < static_cast<std::size_t>(width)) digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
    return value < 0 ? "-" + digits : digits;
}

std::string hexField(int32_t value) {
    char buffer[12];
    std::snprintf(buffer, sizeof buffer, "%02X", static_cast<unsigned>(static_cast<uint32_t>(value)));
    return buffer;
}

int32_t hexValue(std::string_view digits) {
    return static_cast<int32_t>(numericValue("&H" + std::string(digits)));
}

int16_t editorTickMs(double tempo) {
    if (tempo == 0) throw FatalFailure(FailureKind::Overflow, "除数为零");
    const double whole = std::floor(15000.0 / tempo);
    if (!std::isfinite(whole) || std::fabs(whole) > 32768) throw FatalFailure(FailureKind::Overflow, "TickMs");
    return toInt16(static_cast<long long>(whole));
}

}  // namespace tessaly
