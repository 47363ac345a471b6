#pragma once
#include <memory>
#include <string>
#include <vector>

#include "jianpu/JianpuReading.h"

namespace tessaly {

// Lengths are in digit heights ("em"): a painter multiplies them by the size
// it draws a digit at. Text stands on its baseline y.
enum class JianpuRole {
    Title,    // the file's name, centred over the score
    Heading,  // "1=C  4/4  ♩=70"
    Digit,    // 1..7 and the 0 of a rest
    Dash,     // a held beat
    KeyChange,
    Mark,     // small words over the staff: tempo, instruments, rhythm
    ErrorToken,
    ErrorMessage,
};

struct JianpuGlyph {
    float x = 0, y = 0;
    float size = 1;  // the text's height, in em
    bool centred = true;  // x is the middle of the text, else its left end
    std::string text;
    JianpuRole role = JianpuRole::Digit;
    int event = -1;  // the reading's event it shows, -1 for none
};

struct JianpuDotMark {  // an octave dot or the dot of a dotted note
    float x = 0, y = 0, radius = 0;
    int event = -1;
};

struct JianpuRule {  // underlines and bar lines
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    float thickness = 0;
};

struct JianpuArc {  // a tie, over the digits, from x1 to x2
    float x1 = 0, x2 = 0, y = 0, height = 0;
};

struct JianpuLayoutOptions {
    float width = 40;         // of the page or window, em
    std::string title;        // drawn centred at the top when not empty
};

struct JianpuLayout {
    float width = 0, height = 0;
    std::vector<JianpuGlyph> glyphs;
    std::vector<JianpuDotMark> dots;
    std::vector<JianpuRule> rules;
    std::vector<JianpuArc> arcs;
    std::vector<float> lineTops;  // where each line of music begins, for page breaks
    float lineHeight = 0;
    int barCount = 0;
    std::string errorMessage;     // with the character it stands at, empty when none
};

// One column of the notation: a digit or a dash, with what the digit carries.
// Notes and rests are cut at beats and bar lines into such columns; the
// digits of one note after the first are tied to the one before.
struct JianpuUnit {
    enum Kind { Digit, Dash } kind = Digit;
    int event = -1;
    char digit = '0';
    int octave = 0;
    int underlines = 0;  // 1 for half a beat, 2 for a quarter, 3 for an eighth
    bool dotted = false;
    int tick = 0;        // where the unit starts, from the score's start
    int ticks = 0;
};

std::vector<JianpuUnit> jianpuUnits(const JianpuReading& reading);

JianpuLayout layoutJianpu(const JianpuReading& reading, const JianpuLayoutOptions& options);

// Keeps a layout and what it was made from, so that when a score grows at its
// end only its last line is laid out again.
class JianpuLayouter {
public:
    JianpuLayouter();
    ~JianpuLayouter();
    JianpuLayouter(JianpuLayouter&&) noexcept;
    JianpuLayouter& operator=(JianpuLayouter&&) noexcept;

    const JianpuLayout& layOut(const JianpuReading& reading, const JianpuLayoutOptions& options);
    // The reading's first `keptEvents` events are those of the reading laid
    // out last, with the same options; what follows them is new.
    const JianpuLayout& layOutGrown(const JianpuReading& reading, std::size_t keptEvents);
    const JianpuLayout& layout() const;

private:
    class Placer;
    std::unique_ptr<Placer> placer_;
};

// The key line of a tonality: "1=bE".
std::string keyLine(int keyIndex);
std::string tempoMark(int tempo);

}  // namespace tessaly
