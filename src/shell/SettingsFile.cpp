#include "shell/SettingsFile.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "platform/Platform.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"
#include "runtime/FileAccess.h"
#include "runtime/Text.h"
#include "runtime/TextFiles.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

std::string numberLine(int16_t value) { return numberText(static_cast<long long>(value)) + " "; }

bool exists(const std::string& path) {
    std::error_code error;
    return std::filesystem::exists(path, error);
}

}  // namespace

Settings defaultSettings() {
    Settings s;
    s.instrumentSets = {{{3, 89, 0},
                         {24, 44, 0},
                         {74, 75, 0},
                         {22, 44, 0},
                         {81, 86, 25},
                         {19, 44, 102},
                         {50, 10, 55},
                         {61, 67, 92},
                         {45, 0, 0},
                         {65, 79, 0},
                         {108, 26, 55},
                         {41, 10, 90}}};
    s.keypad = {3, 1, 22, 17, 4, 23, 39, 17, 18, 25};
    // The last name really ends in a blank; the file is looked up under it.
    s.effects = {"拍手1.wav", "雷声3.WAV", "锣2.wav", "民族笛子3.wav", "涨潮.wav", "钟声.wav "};
    s.check1 = 0;
    return s;
}

std::vector<std::string> settingsLines(const Settings& settings) {
    std::vector<std::string> lines;
    for (const auto& set : settings.instrumentSets)
        for (int16_t value : set) lines.push_back(numberLine(value));
    for (int16_t value : settings.keypad) lines.push_back(numberLine(value));
    for (const std::string& name : settings.effects) lines.push_back(name);
    lines.push_back(numberLine(settings.check1));
    return lines;
}

std::string defaultSettingsText() {
    std::vector<std::string> lines = settingsLines(defaultSettings());
    lines.front().erase(0, 1);
    return joinLines(lines);
}

int16_t settingsNumber(const std::string& line) {
    std::size_t first = line.find_first_not_of(" \t");
    std::size_t last = line.find_last_not_of(" \t");
    if (first == std::string::npos) throw FatalFailure(FailureKind::TypeMismatch, "empty line");
    std::string text = line.substr(first, last - first + 1);
    char* end = nullptr;
    double value = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size() || !std::isfinite(value))
        throw FatalFailure(FailureKind::TypeMismatch, text);
    return roundToInt16(value);
}

Settings parseSettings(const std::vector<std::string>& lines) {
    if (lines.size() < static_cast<std::size_t>(kSettingsLineCount))
        throw FatalFailure(FailureKind::InvalidCall, "input past end of file");
    Settings s;
    for (int line = 0; line < 36; ++line) s.instrumentSets[line / 3][line % 3] = settingsNumber(lines[line]);
    for (int line = 36; line < 46; ++line) s.keypad[line - 36] = settingsNumber(lines[line]);
    for (int line = 46; line < 52; ++line) s.effects[line - 46] = lines[line];
    s.check1 = settingsNumber(lines[52]);
    return s;
}

std::string SettingsFile::path() const { return state_.AppDir + kSettingsFileName; }

void SettingsFile::writeDefaultsIfMissing() {
    if (!exists(path())) write(defaultSettingsText());
}

void SettingsFile::write(const std::string& text) {
    int error = 0;
    if (!replaceFile(path(), text, &error))
        throw FatalFailure(FailureKind::InvalidCall, "无法写入文件：" + fileFailureMessage(path(), error));
}

bool SettingsFile::readAtActivation() {
    if (!exists(path())) return true;
    try {
        std::optional<std::string> text = readTextFile(path());
        if (!text) throw FatalFailure(FailureKind::InvalidCall, "cannot read " + path());
        apply(parseSettings(splitLines(*text)));
        return true;
    } catch (const FatalFailure&) {
        errorPath();
        return false;
    }
}

void SettingsFile::apply(const Settings& s) {
    for (int set = 0; set < 12; ++set)
        for (int j = 0; j < 3; ++j) state_.InstrumentSet(set, j) = s.instrumentSets[set][j];
    for (int digit = 0; digit < 10; ++digit) {
        state_.KeypadPercussion[digit] = s.keypad[digit];
        // Every digit comes back at velocity 100 on channel 9.
        midi_.StepTable[digit][5].ShortMsg = (s.keypad[digit] + 35) * 256 + 6553600 + 153;
    }
    for (int slot = 0; slot < 6; ++slot) state_.EffectFile[slot] = s.effects[slot];
    form_.Check1.setValue(s.check1);
}

void SettingsFile::errorPath() {
    // The defaults replace the user's file only once a copy of it is kept:
    // a file that cannot be read, or a copy that cannot be written, leaves
    // the user's file as it is.
    std::optional<std::string> bytes = readFileBytes(path());
    bool kept = bytes && replaceFile(state_.AppDir + kBrokenSettingsFileName, *bytes);
    if (kept) replaceFile(path(), defaultSettingsText());
    platform_.boxes.timedBox("提示", "读取设置文件出错，软件需重新启动!", 5000);
}

void SettingsFile::BCSZ_Click() {
    Settings s;
    for (int set = 0; set < 12; ++set)
        for (int j = 0; j < 3; ++j) s.instrumentSets[set][j] = state_.InstrumentSet(set, j);
    for (int digit = 0; digit < 10; ++digit) s.keypad[digit] = state_.KeypadPercussion[digit];
    for (int slot = 0; slot < 6; ++slot) s.effects[slot] = state_.EffectFile[slot];
    s.check1 = static_cast<int16_t>(form_.Check1.value());
    write(joinLines(settingsLines(s)));
    form_.FJWZ.setCaption("成功保存本次设置");
}

}  // namespace tessaly
