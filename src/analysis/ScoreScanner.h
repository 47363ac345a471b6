#pragma once
#include <string>
#include <string_view>

namespace tessaly {

struct EditorState;
struct ImportState;

// A score's text as the import scans it: one byte a character, so that
// positions count characters however the text is encoded. Only ASCII takes
// part in tokens and numbers; any other character stands as a byte that is
// neither a letter nor a digit.
class ScanText {
public:
    explicit ScanText(std::string_view utf8);
    long long length() const { return static_cast<long long>(chars_.size()); }
    // The character at 1-based position p, '\0' outside the text.
    char at(long long p) const;
    // The two characters from p: one at the very end, none past it.
    std::string_view token(long long p) const;

private:
    std::string chars_;
};

// The scan of YUEPUSB: reads tokens from ImportCursor on and writes each
// note, rest and stop into tracks 0 and 1 of slot ImportSlot, which moves
// on by half the duration. Every token may carry a number, commands and
// unknown text included; commands are skipped, unknown text leaves "--" in
// the slot without moving it. Returns at a note, rest or stop that reaches
// the end of the text, or at "TZ" anywhere. Throws FatalFailure where the
// scan fails: a single digit as the last character, a slot past the song's
// tables, or text that ends in anything else, which no token can finish.
void scanMelody(const ScanText& text, EditorState& song, ImportState& import);

// The end of a scan that finished: the song's extent from ImportSlot, and
// every cell of slots 0..ImportSlot on tracks 0..6 that holds code 0 turned
// into a hold (255). That catches an imported "LC" too, whose code is 0.
void finishScan(EditorState& song, const ImportState& import);

}  // namespace tessaly
