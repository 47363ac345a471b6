#include "rhythm/RhythmFiles.h"

#include <cerrno>
#include <filesystem>

#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "platform/Dialogs.h"
#include "platform/Platform.h"
#include "rhythm/PatternSounds.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "runtime/FileAccess.h"
#include "runtime/Text.h"
#include "runtime/TextFiles.h"
#include "state/SharedState.h"

namespace tessaly {

namespace fs = std::filesystem;

const char* const kRhythmFilter = "节奏bin|*.bin";
const char* const kRhythmFileError = "打开节奏文件出错，请检查！";

namespace {

// The header and the three rows, and a name of at least one character.
constexpr std::size_t kShortestRhythmFile = 62;
constexpr std::size_t kGridStart = 12;  // characters before the first box
constexpr std::size_t kNameLength = 16;
constexpr int kRowLength = 16;

// Two hexadecimal digits, more when the number needs them (-1 gives FFFF).
std::string hexField(long long value) {
    std::string digits = hexText(value);
    return digits.size() == 1 ? "0" + digits : digits;
}

// A header field read as hexadecimal: what is not a hexadecimal digit ends it.
int hexValue(const std::string& text, std::size_t start) {
    return static_cast<int>(numericValue("&H" + charSubstr(text, start, 2)));
}

// Only blanks are trimmed, as the name came from the dialog.
std::string trimBlanks(const std::string& text) {
    std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string fixedWidth(const std::string& text, std::size_t width) {
    std::string cut = charSubstr(text, 0, width);
    return cut + std::string(width - charLength(cut), ' ');
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

}  // namespace

std::optional<std::string> readRhythmFile(const std::string& path, int* error) {
    return readTextFile(path, kLongestRhythmFile, error);
}

RhythmFiles::RhythmFiles(Platform& platform, SharedState& state, MidiOut& midi, MainWindow& form, Dialogs& dialogs)
    : platform_(platform), state_(state), midi_(midi), form_(form), dialogs_(dialogs) {}

void RhythmFiles::wire() {
    form_.File1.onClick = [this] { File1_Click(); };
    for (int i = 0; i < 2; ++i) form_.rhythmPage.Cmdcill[i].onClick = [this, i] { Cmdcill_Click(i); };
    form_.Label11.onMouseMove = [this](int, int, float, float) { Label11_MouseMove(); };
    form_.Jiezhou[2].onMouseMove = [this](int, int, float, float) { Jiezhou_MouseMove(2); };
}

void RhythmFiles::OpenJZwj() {
    const std::string text = state_.RhythmFileText;
    if (charLength(text) < kShortestRhythmFile) {
        platform_.boxes.timedBox("提示", kRhythmFileError, 5000);
        return;
    }
    RhythmPage& page = form_.rhythmPage;
    form_.VsbVol.setListIndex(hexValue(text, 0));
    // The metre alone is read as a decimal number; 00 to 02 read the same either way.
    page.Option1[roundToInt16(numericValue(charSubstr(text, 2, 2)))].setValue(true);
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) page.LblInst[k].setListIndex(hexValue(text, 4 + 2 * k));

    for (int i = 1; i <= 3 * kRowLength + 1; ++i) {
        const bool checked = charSubstr(text, kGridStart + i - 1, 1) == "*";
        const int track = i <= kRowLength ? 0 : i <= 2 * kRowLength ? 1 : 2;
        page.track(track)[i - 1 - track * kRowLength].setValue(checked ? 1 : 0);
    }

    const int16_t volume = volumeOfList(form_.VsbVol);
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) {
        const int16_t key = keyOfList(page.LblInst[k]);
        for (int s = 0; s <= state_.RhythmLastStep; ++s) {
            StepSlot& slot = midi_.StepTable[s][k];
            slot.Volume = volume;
            slot.ShortMsg = MidiOut::percussionMessage(key, volume);
        }
    }
    for (int s = 0; s <= state_.RhythmLastStep; ++s) {
        StepRecord& record = midi_.StepTable[s];
        for (int k = 0; k < RhythmPage::kTrackCount; ++k) record[k].On = truth(page.track(k)[s].value() == 1);
        record[3].On = kFalse;
        record[4].On = kFalse;
    }
}

std::string RhythmFiles::patternLine(const std::string& title) const {
    const RhythmPage& page = form_.rhythmPage;
    int metre = 0;
    for (int i = 0; i < 3; ++i)
        if (page.Option1[i].value()) metre = i;
    std::string line = hexField(form_.VsbVol.listIndex()) + hexField(metre);
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) line += hexField(page.LblInst[k].listIndex());
    line += hexField(0);
    for (int k = 0; k < RhythmPage::kTrackCount; ++k) {
        // Only the last row keeps its seventeenth box.
        const int last = k == 2 ? RhythmPage::kLastBox : RhythmPage::kLastBox - 1;
        for (int s = 0; s <= last; ++s) line += page.track(k)[s].value() == 1 ? "*" : "-";
    }
    return line + fixedWidth(trimBlanks(title), kNameLength);
}

void RhythmFiles::SaveJZwj() {
    const std::string& path = state_.FilePathInUse;
    const std::string line = patternLine(fs::path(path).filename().string());
    int error = 0;
    if (!replaceFile(path, line + "\r\n", &error))
        throw FatalFailure(FailureKind::InvalidCall, "无法写入文件：" + fileFailureMessage(path, error));
}

std::string RhythmFiles::selectedFilePath() const {
    const int index = form_.File1.listIndex();
    // With nothing chosen there is no file to name.
    if (index < 0) throw FatalFailure(FailureKind::InvalidCall, "文件未找到：" + form_.File1.path());
    return (fs::path(form_.File1.path()) / form_.File1.item(index)).string();
}

void RhythmFiles::File1_Click() {
    state_.RhythmFileText.clear();
    const std::string path = selectedFilePath();
    form_.Label11.setCaption(std::to_string(form_.File1.listIndex() + 1) + "★" + form_.File1.item(form_.File1.listIndex()));
    int error = 0;
    std::optional<std::string> text = readRhythmFile(path, &error);
    if (!text) throw FatalFailure(FailureKind::InvalidCall, fileCauseMessage(error, path));
    state_.RhythmFileText = firstLine(*text);
    OpenJZwj();
    form_.File1.setVisible(false);
}

void RhythmFiles::Cmdcill_Click(int Index) {
    if (Index == 0) deleteSelectedFile();
    else if (Index == 1) saveWithDialog();
}

void RhythmFiles::deleteSelectedFile() {
    const std::string path = selectedFilePath();
    std::error_code error;
    if (!fs::is_regular_file(path, error)) throw FatalFailure(FailureKind::InvalidCall, fileCauseMessage(ENOENT, path));
    if (!fs::remove(path, error))
        throw FatalFailure(FailureKind::InvalidCall, fileCauseMessage(error ? error.value() : ENOENT, path));
    FileListBox& files = form_.File1;
    files.refresh();
    if (files.listCount() == 0) return;
    const std::string first = (fs::path(files.path()) / files.item(0)).string();
    int cause = 0;
    std::optional<std::string> text = readRhythmFile(first, &cause);
    if (!text) throw FatalFailure(FailureKind::InvalidCall, fileCauseMessage(cause, first));
    state_.RhythmFileText = *text;
    // Only this path names the file without its number.
    form_.Label11.setCaption(files.item(0));
    OpenJZwj();
}

void RhythmFiles::saveWithDialog() {
    std::optional<std::string> path = dialogs_.saveFile(kRhythmFilter, state_.AppDir + "演奏记录");
    if (!path) return;
    state_.FilePathInUse = *path;
    SaveJZwj();
}

void RhythmFiles::Label11_MouseMove() {
    form_.File1.refresh();
    form_.File1.setVisible(true);
}

void RhythmFiles::Jiezhou_MouseMove(int Index) {
    if (Index == 2) form_.File1.setVisible(false);
}

void RhythmFiles::loadFirstFileAtStart() {
    FileListBox& files = form_.File1;
    // A missing folder is the list's own failure; an empty one is no message.
    files.setPath(state_.AppDir + "演奏记录");
    files.setPattern("*.bin");
    if (files.listCount() == 0) return;
    const std::string path = (fs::path(files.path()) / files.item(0)).string();
    int error = 0;
    std::optional<std::string> text = readRhythmFile(path, &error);
    if (!text) throw FatalFailure(FailureKind::InvalidCall, fileCauseMessage(error, path));
    state_.RhythmFileText = *text;
    form_.Label11.setCaption("1★" + files.item(0));
    try {
        OpenJZwj();
    } catch (const FatalFailure& failure) {
        // Its fields name no control the user knows of: the message names the file.
        throw FatalFailure(failure.kind(), "不是有效的节奏文件：" + path);
    }
}

}  // namespace tessaly
