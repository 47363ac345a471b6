#include "analysis/ScoreScanner.h"

#include "analysis/ImportState.h"
#include "editor/EditorState.h"
#include "editor/SongModel.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"

namespace tessaly {

namespace {

constexpr char kOtherCharacter = '\x80';

bool isDigit(char c) { return c >= '0' && c <= '9'; }

enum class TokenKind { Skipped, Melody, Unknown };

// The commands the scan steps over: tempo, instruments, rhythm and two that
// scores do not use. The key command "YD" is not among them.
TokenKind kindOf(std::string_view token) {
    if (token.size() != 2) return TokenKind::Unknown;
    for (std::string_view skipped : {"VS", "YQ", "YX", "JP", "HX"})
        if (token == skipped) return TokenKind::Skipped;
    if (token == "XZ" || token == "TZ") return TokenKind::Melody;
    const std::string_view steps = token[0] == 'M' ? "CDEFGA" : "CDEFGAB";
    if (std::string_view("LWKHM").find(token[0]) != std::string_view::npos &&
        steps.find(token[1]) != std::string_view::npos)
        return TokenKind::Melody;
    return TokenKind::Unknown;
}

}  // namespace

ScanText::ScanText(std::string_view utf8) {
    chars_.reserve(utf8.size());
    for (char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) chars_ += c;
        else if ((byte & 0xC0) != 0x80) chars_ += kOtherCharacter;  // the lead byte of a wider character
    }
}

char ScanText::at(long long p) const {
    return p >= 1 && p <= length() ? chars_[static_cast<std::size_t>(p - 1)] : '\0';
}

std::string_view ScanText::token(long long p) const {
    if (p < 1 || p > length()) return {};
    return std::string_view(chars_).substr(static_cast<std::size_t>(p - 1), 2);
}

void scanMelody(const ScanText& text, EditorState& song, ImportState& import) {
    const long long n = text.length();
    int32_t& cursor = song.ImportCursor;
    for (;;) {
        if (cursor < 1) cursor = 1;
        const long long p = cursor;
        const std::string token(text.token(p));

        // The number behind the token, for every token.
        if (p < n - 1) {
            const char c1 = text.at(p + 2);
            if (!isDigit(c1)) {
                cursor = toInt32(p + 1);
            } else {
                cursor = toInt32(p + 2);
                // The second digit is looked at even when the text has no character for it.
                if (p >= n - 2) throw FatalFailure(FailureKind::InvalidCall, "乐谱末尾的数字之后没有字符");
                const char c2 = text.at(p + 3);
                if (isDigit(c2)) {
                    import.ImportDuration = (c1 - '0') * 10 + (c2 - '0');
                    cursor = toInt32(cursor + 1LL);
                } else {
                    import.ImportDuration = c1 - '0';
                }
            }
        }

        const TokenKind kind = kindOf(token);
        if (kind == TokenKind::Skipped) {
            cursor = toInt32(cursor + 1LL);
            continue;
        }
        const long slot = import.ImportSlot;
        if (kind == TokenKind::Unknown) {
            song.SlotTokens(slot, 0) = "--";
            song.SlotTokens(slot, 1) = "--";
            // From the end of the text on the token stays short of two
            // characters: nothing can finish the scan any more, and it
            // would run on over the end until it failed.
            if (p >= n) throw FatalFailure(FailureKind::InvalidCall, "乐谱没有以音符结束");
            cursor = toInt32(cursor + 1LL);
            continue;
        }

        const int16_t code = SYYPSB(token);
        for (int track : {0, 1}) {
            song.SlotTokens(slot, track) = token;
            song.SlotNotes(slot, track) = code;
        }
        for (int track = 2; track < kMelodyTracks; ++track) song.SlotNotes(slot, track) = 255;
        // A duration of 1 takes no slot: the next note overwrites this one.
        import.ImportSlot = toInt16(slot + import.ImportDuration / 2);
        cursor = toInt32(cursor + 1LL);
        if (cursor < n && token != "TZ") continue;
        return;
    }
}

void finishScan(EditorState& song, const ImportState& import) {
    // Neither is negative. An edit file of empty bars leaves no slots a bar,
    // and the division fails.
    song.BarCount = toInt32(integerDivide(import.ImportSlot, song.slotsPerBar()));
    song.LastSlotIndex = song.lastSlotOfSong();
    for (long slot = 0; slot <= import.ImportSlot; ++slot)
        for (int track = 0; track < kMelodyTracks; ++track)
            if (song.SlotNotes(slot, track) == 0) song.SlotNotes(slot, track) = 255;
}

}  // namespace tessaly
