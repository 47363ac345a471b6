#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// What a two-letter token of a score asks for.
enum class ScoreTokenKind { Tonality, Tempo, Rhythm, Instruments, Note, Rest, Stop, Unknown };

struct ScoreItem {
    std::string token;       // two characters; one at the very end, empty past it
    ScoreTokenKind kind = ScoreTokenKind::Unknown;
    int16_t number = 0;      // the digits read behind the token, 0 when none
    int noteCode = 0;        // the token's NoteCode for notes, rests and stops
};

ScoreTokenKind scoreTokenKind(std::string_view token);

// A score's text with the byte offset of each character, built once so that
// reading item after item does not go over the whole text each time.
class ScoreCharacters {
public:
    explicit ScoreCharacters(std::string text);
    const std::string& text() const { return text_; }
    long long length() const { return static_cast<long long>(starts_.size()) - 1; }
    // Characters [from, from + count) counted from 1, clamped to the text.
    std::string_view chars(long long from, long long count) const;

private:
    std::string text_;
    std::vector<std::size_t> starts_;  // each character's first byte, then the end
};

// Cuts one item out of a score, the text counted in characters from 1.
// `pos` is the read position; it is left on the last character of the item,
// so the caller moves it one further once the item is dealt with.
// `noteDuration` keeps its value when the token has no digits: that is what
// lets a run of notes leave out equal durations. `scoreLen` is taken afresh.
// A single digit as the very last character of the text cannot be read past
// and is a fatal failure, as is a text longer than a 16-bit length.
ScoreItem readScoreItem(const ScoreCharacters& text, int32_t& pos, int16_t& noteDuration, int16_t& scoreLen);
ScoreItem readScoreItem(std::string_view text, int32_t& pos, int16_t& noteDuration, int16_t& scoreLen);

}  // namespace tessaly
