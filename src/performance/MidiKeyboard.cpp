#include "performance/MidiKeyboard.h"

#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "notation/NoteVocabulary.h"
#include "performance/KeyboardPlay.h"
#include "platform/Platform.h"
#include "runtime/TextFiles.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

constexpr const char* kRememberedKey = "输入设备=";
constexpr const char* kBlackKeysNotWritten = "黑键只演奏，不记入乐谱。。。";
constexpr int kPedalController = 64, kModulationController = 1;
constexpr int kAllSoundOff = 120, kAllNotesOff = 123;

// The typing key that plays this offset above NoteBase, 0 when none does.
int noteKeyFor(int offset) {
    for (const NoteKey& key : kNoteKeys)
        if (key.offset == offset) return key.keyCode;
    return 0;
}

constexpr std::size_t kLongestSettings = 4096;

}  // namespace

std::string rememberedKeyboardIn(std::string_view text) {
    const std::string_view key = kRememberedKey;
    for (const std::string& line : splitLines(text))
        // No port's name holds a carriage return: a stray one ends the name.
        if (line.compare(0, key.size(), key) == 0) return line.substr(key.size(), line.find('\r') - key.size());
    return {};
}

std::string rememberedKeyboardText(const std::string& name) { return joinLines({kRememberedKey + name}); }

MidiKeyboard::MidiKeyboard(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form, KeyboardPlay& keys)
    : platform_(platform), state_(state), midi_(midi), form_(form), keys_(keys) {
    unwritten_.fill(-1);
}

MidiKeyboard::~MidiKeyboard() {
    if (started_) {
        platform_.loop.stopTimer(*this);
        platform_.midiIn.disconnect();
    }
}

void MidiKeyboard::wire() {
    form_.ComInput.addItem(InputPortList::kNone);
    form_.ComInput.setListIndex(0);
    form_.ComInput.onClick = [this] { ComInput_Click(); };
}

void MidiKeyboard::start() {
    if (started_) return;
    started_ = true;
    // A file that is missing, too long or unreadable remembers nothing.
    if (auto text = readTextFile(settingsPath(), kLongestSettings)) list_.setRemembered(rememberedKeyboardIn(*text));
    refreshPorts();
    platform_.loop.startTimer(*this, kPollMs);
}

void MidiKeyboard::refreshPorts() {
    const InputPortList::Update update = list_.refresh(platform_.midiIn.ports());
    if (update.connectionLost) platform_.midiIn.disconnect();
    if (update.connect) connect(*update.connect);
    if (update.entriesChanged || update.connectionLost || update.connect) showList();
}

void MidiKeyboard::connect(const std::string& address) {
    if (platform_.midiIn.connect(address)) list_.markConnected(address);
    else list_.connectionFailed();
}

void MidiKeyboard::showList() {
    showingList_ = true;
    ComboBox& box = form_.ComInput;
    const std::vector<std::string> captions = list_.captions();
    bool same = box.listCount() == static_cast<int>(captions.size());
    for (int i = 0; same && i < box.listCount(); ++i) same = box.item(i) == captions[static_cast<std::size_t>(i)];
    if (!same) {
        box.clear();
        for (const std::string& caption : captions) box.addItem(caption);
    }
    box.setListIndex(list_.connectedIndex());
    showingList_ = false;
}

void MidiKeyboard::ComInput_Click() {
    if (showingList_ || !started_) return;
    const std::string address = list_.choose(form_.ComInput.listIndex());
    if (address.empty()) platform_.midiIn.disconnect();
    else connect(address);
    remember();
    if (form_.ComInput.listIndex() != list_.connectedIndex()) showList();
}

std::string MidiKeyboard::settingsPath() const { return state_.AppDir + kKeyboardSettingsFileName; }

void MidiKeyboard::remember() {
    // Losing this file loses only a convenience: a failed write says nothing.
    replaceFile(settingsPath(), rememberedKeyboardText(list_.remembered()));
}

void MidiKeyboard::serve() {
    uint32_t message = 0;
    while (platform_.midiIn.take(message)) {
        // Before the main window is up there is nothing to play on.
        if (started_) handle(message);
    }
}

void MidiKeyboard::handle(uint32_t message) {
    const int status = static_cast<int>(message & 0xF0);
    const int data1 = static_cast<int>((message >> 8) & 0x7F);
    const int data2 = static_cast<int>((message >> 16) & 0x7F);
    switch (status) {
    case 0x90:
        // While another window stands in for the main one, keys play nothing
        // there, as the typing keys do; what lifts or silences still passes.
        if (data2 == 0) noteOff(data1);
        else if (form_.visible()) noteOn(data1, data2);
        break;
    case 0x80: noteOff(data1); break;
    case 0xB0: controller(data1, data2); break;
    case 0xE0: pitchBend(data1, data2); break;
    default: break;
    }
}

void MidiKeyboard::noteOn(int key, int velocity) {
    const int offset = key - kLowestWritten;
    if (key <= kHighestWritten && offset >= 0 && isWhiteKey(offset)) {
        auto keyCode = static_cast<int16_t>(noteKeyFor(offset));
        keys_.touchKeyDown(keyCode, velocity);
        return;
    }
    // Sounds at the same transposition as the note keys, and is not written.
    const int note = state_.NoteBase + offset;
    if (note < 0 || note > 127) return;
    if (unwritten_[static_cast<std::size_t>(key)] >= 0) keys_.stopMelodyNote(unwritten_[static_cast<std::size_t>(key)]);
    keys_.startMelodyNote(note, velocity);
    unwritten_[static_cast<std::size_t>(key)] = note;
    if (offset >= 0 && offset < kOnScreenKeyCount)
        form_.Picture1[offset].setPicture(isWhiteKey(offset) ? kWhiteKeyDown : kBlackKeyDown);
    const bool black = !isWhiteKey(((offset % 12) + 12) % 12);
    if (black && !toldBlackKeys_) {
        toldBlackKeys_ = true;
        form_.FJWZ.setCaption(kBlackKeysNotWritten);
    }
}

void MidiKeyboard::noteOff(int key) {
    const int offset = key - kLowestWritten;
    if (key <= kHighestWritten && offset >= 0 && isWhiteKey(offset)) {
        auto keyCode = static_cast<int16_t>(noteKeyFor(offset));
        keys_.SFYXYZ_KeyUp(keyCode, 0);
        return;
    }
    int& sounding = unwritten_[static_cast<std::size_t>(key)];
    if (sounding < 0) return;
    // A key the score cannot hold is a plain instrument's key: it stops when lifted.
    keys_.stopMelodyNote(sounding);
    sounding = -1;
    if (offset >= 0 && offset < kOnScreenKeyCount)
        form_.Picture1[offset].setPicture(isWhiteKey(offset) ? kWhiteKeyUp : kBlackKeyUp);
}

void MidiKeyboard::controller(int number, int value) {
    if (number == kPedalController) {
        keys_.setPedal(value >= 64);
    } else if (number == kModulationController) {
        for (int16_t channel = 0; channel < 3; ++channel) midi_.SendController(channel, 1, static_cast<int16_t>(value));
    } else if (number == kAllNotesOff || number == kAllSoundOff) {
        // Passes the pedal: nothing it held sounds on.
        keys_.dropPedalHolds();
        for (int16_t channel = 0; channel < 3; ++channel)
            midi_.SendController(channel, static_cast<int16_t>(number), 0);
        unwritten_.fill(-1);
    }
}

void MidiKeyboard::pitchBend(int low, int high) {
    for (int16_t channel = 0; channel < 3; ++channel)
        midi_.SendMidiOut(static_cast<int16_t>(0xE0 + channel), static_cast<int16_t>(low), static_cast<int16_t>(high));
}

}  // namespace tessaly
