#include "analysis/ScoreImport.h"

#include "analysis/ScoreScanner.h"
#include "editor/Editor.h"
#include "editor/SongModel.h"
#include "platform/Dialogs.h"
#include "runtime/FatalFailure.h"
#include "score/ScoreFiles.h"
#include "state/SharedState.h"

namespace tessaly {

const char* const kScoreImportFilter = "编辑记录txt|*.txt";

ScoreImport::ScoreImport(Editor& editor, ChordState& chords) : e_(editor), chordAddition_(editor, chords) {}

void ScoreImport::wire() { e_.commands().DRYP.onClick = [this] { DRYP_Click(); }; }

void ScoreImport::DRYP_Click() {
    EditorState& s = e_.s;
    // One trap for the whole import, the arrangement included: a failure
    // ends it where it stands, without a word, and what was written stays.
    try {
        e_.shared.ScoreText.clear();
        QKYP(s);
        for (auto& [t, box] : e_.bar().YF1) {
            box->setMaxLength(2 * s.slotsPerBar());
            box->setText("");
        }
        std::optional<std::string> chosen = e_.dialogs.openFile(kScoreImportFilter, s.DialogFolder);
        if (!chosen) return;  // a cancel ends the import before the arrangement too
        s.DialogFileName = *chosen;
        if (!chosen->empty()) {
            // The file's lines joined with nothing between them.
            std::optional<std::string> text = readScoreFile(*chosen);
            if (!text) throw FatalFailure(FailureKind::InvalidCall, "无法读取文件：" + *chosen);
            e_.shared.ScoreText = std::move(*text);
            state_.ImportSlot = 0;
            s.ImportCursor = 1;
            s.BarCount = 0;
            YUEPUSB();
            DrYpsb();
        }
        chordAddition_.ZNHXTJ();
    } catch (const FatalFailure&) {
    }
}

void ScoreImport::YUEPUSB() {
    EditorState& s = e_.s;
    scanMelody(ScanText(e_.shared.ScoreText.str()), s, state_);
    finishScan(s, state_);
    ScrollBar& scroll = e_.bar().HScroll1;
    scroll.setMax(s.BarCount);
    scroll.setValue(0);
    s.CurrentBar = scroll.value();
}

void ScoreImport::DrYpsb() {
    EditorState& s = e_.s;
    const int16_t slotsPerBar = s.slotsPerBar();
    // Slots that a long note spans hold it.
    for (long bar = 0; bar <= s.BarCount; ++bar)
        for (int track : {0, 1})
            for (long offset = 0; offset < slotsPerBar; ++offset) {
                std::string& token = s.SlotTokens(s.slotOf(bar, offset), track);
                if (token.empty()) token = "--";
            }
    // Appended to what the bars hold: a clearing leaves a song of one bar standing.
    for (long bar = 0; bar <= s.BarCount; ++bar)
        for (long offset = 0; offset < slotsPerBar; ++offset)
            for (int track = 0; track < kMelodyTracks; ++track)
                s.BarStrings(bar, track) += s.SlotTokens(s.slotOf(bar, offset), track);
    for (int track = 0; track < kMelodyTracks; ++track) e_.bar().YF1[track].setText(s.BarStrings(s.CurrentBar, track));
    s.LastSlotIndex = s.lastSlotOfSong();
}

}  // namespace tessaly
