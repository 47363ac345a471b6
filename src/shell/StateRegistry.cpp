#include "shell/StateRegistry.h"

#include <stdexcept>
#include <string>

#include "forms/ControlSystem.h"
#include "forms/VariableAccessors.h"
#include "midi/MidiOut.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

using variable_access::assign;
using variable_access::show;

// StepTable(record, slot).Field; setting Key or Volume does not rebuild ShortMsg,
// as with any writer of the table.
VariableAccess stepTable(StepTableType& steps) {
    auto slot = [&steps](const std::vector<long>& i) -> StepSlot& {
        if (i.size() != 2) throw std::invalid_argument("StepTable needs (record, slot)");
        return steps[i[0]][i[1]];
    };
    return {[slot](const std::vector<long>& i, std::string_view f) -> std::string {
                StepSlot& s = slot(i);
                if (f == "On") return show(s.On);
                if (f == "Key") return show(s.Key);
                if (f == "Volume") return show(s.Volume);
                if (f == "ShortMsg") return show(s.ShortMsg);
                throw std::invalid_argument("unknown field");
            },
            [slot](const std::vector<long>& i, std::string_view f, std::string_view v) {
                StepSlot& s = slot(i);
                if (f == "On") assign(s.On, v);
                else if (f == "Key") assign(s.Key, v);
                else if (f == "Volume") assign(s.Volume, v);
                else if (f == "ShortMsg") assign(s.ShortMsg, v);
                else throw std::invalid_argument("unknown field");
            }};
}

}  // namespace

void registerSharedState(ControlSystem& c, SharedState& s, MidiOut& m) {
    c.registerVariable("NoteBase", scalar(s.NoteBase));
    c.registerVariable("PrevNoteBase", scalar(s.PrevNoteBase));
    c.registerVariable("KeyNoteOffset", table(s.keys.KeyNoteOffset));
    c.registerVariable("KeyNoteName", table(s.keys.KeyNoteName));
    c.registerVariable("KeyTipId", table(s.keys.KeyTipId));

    c.registerVariable("KeyHeld", table(s.KeyHeld));
    c.registerVariable("LastKeyCode", scalar(s.LastKeyCode));
    c.registerVariable("CurrentNoteOffset", scalar(s.CurrentNoteOffset));
    c.registerVariable("LastNoteKey", scalar(s.LastNoteKey));
    c.registerVariable("KeySoundedOffset", table(s.KeySoundedOffset));
    c.registerVariable("LastPlayedOffset", scalar(s.LastPlayedOffset));
    c.registerVariable("ScoreEnd", scalar(s.ScoreEnd));
    c.registerVariable("SinceNoteTicks", scalar(s.SinceNoteTicks));
    c.registerVariable("DurationTicks", scalar(s.DurationTicks));
    c.registerVariable("AutoSyncFlag", scalar(s.AutoSyncFlag));
    c.registerVariable("AutoPlaying", scalar(s.AutoPlaying));
    c.registerVariable("KeypadIndex", scalar(s.KeypadIndex));
    c.registerVariable("IsWhiteKey", table(s.IsWhiteKey));

    c.registerVariable("MelodyProgram", table(s.MelodyProgram));
    c.registerVariable("InstrumentSet", table2(s.InstrumentSet));
    c.registerVariable("KeypadPercussion", table(s.KeypadPercussion));
    c.registerVariable("EffectFile", table(s.EffectFile));

    c.registerVariable("TickMs", scalar(s.TickMs));
    c.registerVariable("AccompanimentTick", scalar(s.AccompanimentTick));
    c.registerVariable("RhythmStep", scalar(s.RhythmStep));
    c.registerVariable("RhythmLastStep", scalar(s.RhythmLastStep));
    c.registerVariable("ChordStep", scalar(s.ChordStep));
    c.registerVariable("ChordIndex", scalar(s.ChordIndex));
    c.registerVariable("ChordCount", scalar(s.ChordCount));
    c.registerVariable("StepsPerChord", scalar(s.StepsPerChord));
    c.registerVariable("TotalChordSteps", scalar(s.TotalChordSteps));
    c.registerVariable("ScoreText", {[&s](const std::vector<long>& i, std::string_view f) {
                                         variable_access::expect(i, 0, f);
                                         return s.ScoreText.str();
                                     },
                                     [&s](const std::vector<long>& i, std::string_view f, std::string_view v) {
                                         variable_access::expect(i, 0, f);
                                         s.ScoreText = std::string(v);
                                     }});
    c.registerVariable("ScoreTick", scalar(s.ScoreTick));
    c.registerVariable("ScorePos", scalar(s.ScorePos));
    c.registerVariable("ScoreLen", scalar(s.ScoreLen));
    c.registerVariable("NoteDuration", scalar(s.NoteDuration));
    c.registerVariable("PendingNote", scalar(s.PendingNote));
    c.registerVariable("SoundingNote", scalar(s.SoundingNote));
    c.registerVariable("RhythmFileText", scalar(s.RhythmFileText));
    c.registerVariable("AppDir", scalar(s.AppDir));
    c.registerVariable("FilePathInUse", scalar(s.FilePathInUse));

    c.registerVariable("MidiHandle", scalar(m.MidiHandle));
    c.registerVariable("ChannelPan", table(m.ChannelPan));
    c.registerVariable("ChannelVelocity", table(m.ChannelVelocity));
    c.registerVariable("LayerVelocity", table(m.LayerVelocity));
    c.registerVariable("StepTable", stepTable(m.StepTable));
}

}  // namespace tessaly
