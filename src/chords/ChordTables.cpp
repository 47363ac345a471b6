#include "chords/ChordTables.h"

#include <functional>
#include <string>

#include "chords/ChordResources.h"
#include "chords/ChordState.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"

namespace tessaly {

namespace {

struct Token {
    const char* text;
    int32_t code;
};

constexpr Token kTokens[] = {
    {"LC", 0},  {"LE", 4},  {"LG", 7},  {"LA", 9},  {"WC", 12}, {"WE", 16}, {"WG", 19},
    {"WA", 21}, {"KC", 24}, {"KE", 28}, {"KG", 31}, {"KA", 33}, {"HC", 36}, {"HE", 40},
    {"HG", 43}, {"CL", 65}, {"CC", 72}, {"CM", 79}, {"XZ", kRestCode},
};

// Reads a comma-separated resource one character at a time: every character
// but "," joins the current item, whose value is taken again; "," opens the
// next item. Items count from 1; one past the capacity is a bounds failure.
void parseItems(const char* text, long capacity, const std::function<void(long item, int16_t value)>& store) {
    long item = 1;
    std::string current;
    for (const char* p = text; *p; ++p) {
        if (*p == ',') {
            ++item;
            current.clear();
            continue;
        }
        if (item > capacity) throw FatalFailure(FailureKind::SubscriptOutOfRange, std::to_string(item));
        current += *p;
        store(item, roundToInt16(numericValue(current)));
    }
}

}  // namespace

int32_t patternTokenCode(std::string_view pair) {
    for (const Token& token : kTokens)
        if (pair == token.text) return token.code;
    return kHoldCode;
}

void parseDegreeMap(ChordState& chords) {
    parseItems(kDegreeMapText, 200, [&chords](long item, int16_t value) {
        const long row = (item - 1) / 17 + 1, column = (item - 1) % 17 + 1;
        chords.ChordDegreeMap(row, column) = value;
    });
}

void parseVoicingTable(ChordState& chords) {
    parseItems(kVoicingTableText, 63, [&chords](long item, int16_t value) {
        const long type = (item - 1) / 21 + 1, row = (item - 1) % 21 / 3 + 1, note = (item - 1) % 3 + 1;
        chords.ChordVoicingTable(note, row, type) = value;
    });
}

void fillChordOrderList(ChordState& chords) {
    const char* orders[] = {"145",   "1645", "1625",     "125",    "13625", "1365", "1625543",
                            "126457", "6415", "6156", "6456", "6141", "15634325"};
    for (long i = 1; i <= 13; ++i) chords.ChordOrderList[i] = orders[i - 1];
}

}  // namespace tessaly
