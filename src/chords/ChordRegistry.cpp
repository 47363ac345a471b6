#include "chords/ChordRegistry.h"

#include "chords/ChordLayers.h"
#include "chords/ChordState.h"
#include "forms/VariableAccessors.h"
#include "midi/MidiOut.h"

namespace tessaly {

namespace {

VariableAccess voicingTable(VoicingTable& table) {
    using namespace variable_access;
    return {[&table](const std::vector<long>& i, std::string_view f) {
                expect(i, 3, f);
                return show(table(i[0], i[1], i[2]));
            },
            [&table](const std::vector<long>& i, std::string_view f, std::string_view v) {
                expect(i, 3, f);
                assign(table(i[0], i[1], i[2]), v);
            }};
}

}  // namespace

void registerChordState(ControlSystem& c, ChordState& s, ChordLayers& layers, MidiOut& midi) {
    c.registerVariable("ChordDegreeMap", table2(s.ChordDegreeMap));
    c.registerVariable("ChordVoicingTable", voicingTable(s.ChordVoicingTable));
    c.registerVariable("ChordPatternCodes", table(s.ChordPatternCodes));
    c.registerVariable("ChordStepTable", table2(s.ChordStepTable));
    c.registerVariable("ChordDegrees", table(s.ChordDegrees));
    c.registerVariable("ChordOrderList", table(s.ChordOrderList));
    c.registerVariable("PatternLines", table(s.PatternLines));
    c.registerVariable("SavedPatterns", table(s.SavedPatterns));
    c.registerVariable("LastLayerCode", table(s.LastLayerCode));
    c.registerVariable("StrumCode", scalar(layers.StrumCode));
    c.registerVariable("StrumChannel", scalar(layers.StrumChannel));
    // The chord volume is the chord channel's entry of the live velocities.
    c.registerVariable("ChordVolume", scalar(midi.ChannelVelocity[3]));
}

}  // namespace tessaly
