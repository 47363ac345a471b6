#pragma once
#include <string>
#include <vector>

#include "Harness.h"

namespace tessaly::testing {

// The program after start, with figures and an order of the test's choosing.
struct ChordHarness : Harness {
    ChordState& chords = app->chordState;
    SharedState& s = app->state;
    ChordPage& page = app->form1.chordPage;

    void figures(const std::string& f1, const std::string& f2, const std::string& f3) {
        page.Text4.setText(f1);
        page.Text5.setText(f2);
        page.Text7.setText(f3);
    }
    void order(const std::string& digits) {
        s.ChordCount = static_cast<int16_t>(digits.size());
        for (std::size_t i = 0; i < digits.size(); ++i) chords.ChordDegrees[static_cast<long>(i) + 1] = digits[i] - '0';
    }
    void rebuild() {
        app->chords.HXYPSB();
        app->chords.HXJS();
    }
    std::vector<int32_t> layerRows(long layer, std::initializer_list<long> rows) {
        std::vector<int32_t> out;
        for (long r : rows) out.push_back(chords.ChordStepTable(r, layer));
        return out;
    }
    // The note-ons on the chord channels since the last call of sent().
    std::vector<std::string> chordNotes() {
        std::vector<std::string> out;
        for (const std::string& m : sent()) {
            const int status = std::stoi(m);
            if (status >= 147 && status <= 149) out.push_back(m);
        }
        return out;
    }
};

}  // namespace tessaly::testing
