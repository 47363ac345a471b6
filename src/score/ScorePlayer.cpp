#include "score/ScorePlayer.h"

#include <filesystem>
#include <optional>

#include "chords/ChordLayers.h"
#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "notation/NoteVocabulary.h"
#include "platform/Dialogs.h"
#include "platform/Platform.h"
#include "rhythm/Accompaniment.h"
#include "rhythm/RhythmFiles.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "runtime/Text.h"
#include "score/ScoreReader.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {
constexpr int kSyncOffCommand = 99;
constexpr int kBelowAnyNote = 64;
}  // namespace

ScorePlayer::ScorePlayer(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form,
                         Accompaniment& accompaniment, ChordLayers& chords, RhythmFiles& rhythmFiles,
                         Dialogs& dialogs)
    : platform_(platform), state_(state), midi_(midi), form_(form), accompaniment_(accompaniment), chords_(chords),
      rhythmFiles_(rhythmFiles), dialogs_(dialogs) {}

ScorePlayer::~ScorePlayer() = default;

void ScorePlayer::wire() { form_.Timer3.onTimer = [this] { Timer3_Timer(); }; }

void ScorePlayer::computeTickMs() { state_.TickMs = tickMsForTempo(numericValue(form_.SD.text())); }

void ScorePlayer::stopMelody() {
    auto note = toInt16(state_.SoundingNote + state_.NoteBase);
    midi_.StopNote(0, note);
    midi_.StopNote(1, note);
    midi_.StopNote(2, note);
    midi_.StopNote(2, toInt16(note - 5));
}

void ScorePlayer::moveOn() { state_.ScorePos = toInt32(static_cast<long long>(state_.ScorePos) + 1); }

void ScorePlayer::YSCX() {
    // Commands take no time: a run of them is read in this one call, in a
    // loop, so that a long run cannot use up the stack. The text is indexed
    // once and again only when it has changed (its count of changes tells,
    // without a comparison), so that reading a score is linear.
    if (!characters_ || indexedChanges_ != state_.ScoreText.changes()) {
        characters_ = std::make_unique<ScoreCharacters>(state_.ScoreText);
        indexedChanges_ = state_.ScoreText.changes();
    }
    const ScoreCharacters& text = *characters_;
    while (readOne(text)) {
    }
}

bool ScorePlayer::readOne(const ScoreCharacters& text) {
    computeTickMs();
    if (state_.ScorePos < 1) state_.ScorePos = 1;
    form_.Text3.setFocus();
    // The box counts from 0, so this marks the second letter of the token.
    form_.Text3.setSelStart(state_.ScorePos);
    form_.Text3.setSelLength(1);

    ScoreItem item = readScoreItem(text, state_.ScorePos, state_.NoteDuration, state_.ScoreLen);
    switch (item.kind) {
    case ScoreTokenKind::Tonality: return tonality(item);
    case ScoreTokenKind::Tempo: return tempo(item);
    case ScoreTokenKind::Rhythm: return rhythm(item);
    case ScoreTokenKind::Instruments: return instruments(item);
    case ScoreTokenKind::Note: note(item); return false;
    case ScoreTokenKind::Rest: rest(); return false;
    case ScoreTokenKind::Stop: stop(); return false;
    case ScoreTokenKind::Unknown: unknownToken(); return false;
    }
    return false;
}

bool ScorePlayer::tonality(const ScoreItem& item) {
    // The list has twelve entries, but a score reaches only the first eleven.
    if (item.number >= 1 && item.number <= 11) {
        form_.YD.setListIndex(item.number - 1);
        state_.NoteBase = toInt16(item.number + 35);
        form_.XSWB.setCaption(form_.YD.text() + "调");
    }
    accompaniment_.resetCounters();
    state_.NoteDuration = 0;
    moveOn();
    return true;
}

bool ScorePlayer::tempo(const ScoreItem& item) {
    if (item.number >= 1 && item.number <= 19) {
        form_.SD.setListIndex(item.number - 1);
        computeTickMs();
        accompaniment_.resetCounters();
        state_.NoteDuration = 0;
    } else {
        // The number read stays the kept duration.
        state_.ScoreTick = 0;
    }
    moveOn();
    return true;
}

bool ScorePlayer::rhythm(const ScoreItem& item) {
    if (item.number >= 1 && item.number <= 98) loadRhythmFile(item.number);
    else if (item.number == kSyncOffCommand) form_.Check5.setValue(0);
    accompaniment_.resetCounters();
    state_.NoteDuration = 0;
    moveOn();
    return true;
}

void ScorePlayer::loadRhythmFile(int n) {
    namespace fs = std::filesystem;
    FileListBox& files = form_.File1;
    // The bare name one entry past the file used, looked up where the last
    // file dialog went; past the end of the list the name is empty, which
    // names no file.
    std::string lookedUp = n < files.listCount() ? files.item(n) : std::string();
    std::error_code error;
    if (lookedUp.empty() || !fs::is_regular_file(fs::path(dialogs_.currentFolder()) / lookedUp, error)) return;

    const std::string name = files.item(n - 1);
    std::optional<std::string> text = readRhythmFile((fs::path(files.path()) / name).string());
    if (!text) throw FatalFailure(FailureKind::InvalidCall, "无法打开节奏文件 " + name);
    state_.RhythmFileText = *text;
    files.setListIndex(n - 1);
    form_.Label11.setCaption(std::to_string(n) + "★" + name);
    rhythmFiles_.OpenJZwj();
    form_.Check5.setValue(1);
}

bool ScorePlayer::instruments(const ScoreItem& item) {
    // A set that does not exist (no number, or beyond 13) is a subscript failure.
    const int row = item.number - 1;
    for (int i = 0; i < 3; ++i) state_.MelodyProgram[i] = state_.InstrumentSet(row, i);
    for (int i = 0; i < 3; ++i) {
        form_.ComSounds[i].setListIndex(state_.MelodyProgram[i]);
        midi_.SetProgram(static_cast<int16_t>(i), 0, toInt16(form_.ComSounds[i].listIndex() - 1));
    }
    state_.NoteDuration = 0;
    state_.ScoreTick = 0;
    moveOn();
    return true;
}

void ScorePlayer::note(const ScoreItem& item) {
    state_.PendingNote = static_cast<int16_t>(item.noteCode);
    form_.Timer3.setInterval(state_.TickMs);
    if (state_.ScorePos >= state_.ScoreLen - 1) {
        // The last item of a text with no TZ: play ends here, but the timer is
        // armed again below, so the note still sounds and the read behind it
        // finds nothing to read.
        form_.Timer3.setTimerEnabled(false);
        stopMelody();
        chords_.HX1K();
        for (auto& [index, button] : form_.Yuepu) button->setEnabled(true);
        state_.AutoPlaying = kFalse;
        form_.Yuepu[0].setCaption("试听");
    }
    state_.ScoreTick = 0;
    moveOn();
    form_.Timer3.setTimerEnabled(true);
}

void ScorePlayer::rest() {
    state_.PendingNote = kRestCode;
    // A rest takes the tempo of its read too, like a note.
    form_.Timer3.setInterval(state_.TickMs);
    for (int n = 0; n <= 63; ++n) {
        auto note = toInt16(n + state_.NoteBase);
        for (int16_t channel = 0; channel <= 2; ++channel) midi_.StopNote(channel, note);
    }
    form_.Timer3.setTimerEnabled(true);
    moveOn();
    state_.ScoreTick = 0;
}

void ScorePlayer::stop() {
    state_.PendingNote = kStopCode;
    form_.Timer3.setTimerEnabled(false);
    for (int k = 0; k <= 63; ++k) {
        auto note = toInt16(k + state_.NoteBase);
        for (int16_t channel = 0; channel <= 5; ++channel) midi_.StopNote(channel, note);
    }
    if (form_.Check5.value() == 1) form_.BZDS.setTimerEnabled(false);
    form_.BzQd.setValue(0);
    form_.Yuepu[0].setCaption("试听");
    state_.AutoPlaying = kFalse;
    state_.ScorePos = 1;
    accompaniment_.resetCounters();
    form_.Picture1[state_.SoundingNote].setPicture(kWhiteKeyUp);
}

void ScorePlayer::unknownToken() {
    stopMelody();
    chords_.HX1K();
    platform_.boxes.timedBox("提示", "乐谱中出现错误，请修改！", 5000);
    form_.Timer3.setInterval(0);
    form_.Timer3.setTimerEnabled(false);
    form_.Yuepu[0].setCaption("试听");
    state_.AutoPlaying = kFalse;
    state_.ScoreTick = 0;
}

void ScorePlayer::Timer3_Timer() {
    platform_.loop.doEvents();
    accompaniment_.sendAccentSweep();
    if (state_.ScoreTick == 0 && state_.PendingNote < kBelowAnyNote) {
        stopMelody();
        auto note = toInt16(state_.NoteBase + state_.PendingNote);
        for (int i = 0; i < 3; ++i)
            if (form_.ComSounds[i].listIndex() > 0)
                midi_.StartNote(static_cast<int16_t>(i), note, midi_.ChannelVelocity[i]);
        // Channel 2 doubles the note a fourth below.
        if (form_.ComSounds[2].listIndex() > 0) midi_.StartNote(2, toInt16(note - 5), midi_.ChannelVelocity[2]);
        state_.SoundingNote = state_.PendingNote;
    }
    if (form_.Check5.value() == 1 && accompaniment_.onStepTick()) accompaniment_.step();
    state_.ScoreTick = toInt32(static_cast<long long>(state_.ScoreTick) + 1);
    if (state_.ScoreTick == state_.NoteDuration) {
        YSCX();
        state_.ScoreTick = 0;
    }
    accompaniment_.advanceTick();
    form_.FJWZ.setCaption(numberText(static_cast<long long>(statusCounter_)));
}

}  // namespace tessaly
