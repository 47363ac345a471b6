#include "app/script/ScriptDriver.h"

#include <cstdlib>
#include <filesystem>
#include <istream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "app/script/SynthRendering.h"
#include "export/ExportButtons.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "runtime/FatalFailure.h"
#include "score/ScoreFiles.h"
#include "shell/AppFolder.h"
#include "shell/FatalEndSaves.h"
#include "shell/Instrument.h"
#include "shell/StartFile.h"

namespace tessaly {

namespace {

struct ScriptError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string makeTempAppDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tessaly-XXXXXX").string();
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (!mkdtemp(buffer.data())) throw std::runtime_error("cannot create a temporary folder");
    return std::string(buffer.data());
}

long parseNumber(const std::string& text) {
    try {
        std::size_t used = 0;
        long value = std::stol(text, &used);
        if (used != text.size()) throw ScriptError("not a number: " + text);
        return value;
    } catch (const std::logic_error&) {
        throw ScriptError("not a number: " + text);
    }
}

// The first word and the rest of the line after one blank.
std::pair<std::string, std::string> splitWord(const std::string& text) {
    std::size_t space = text.find(' ');
    if (space == std::string::npos) return {text, ""};
    return {text.substr(0, space), text.substr(space + 1)};
}

}  // namespace

std::string escapeValue(const std::string& value) {
    std::string out;
    for (char c : value) {
        if (c == '\r') out += "\\r";
        else if (c == '\n') out += "\\n";
        else if (c == '\\') out += "\\\\";
        else out += c;
    }
    return out;
}

namespace {
std::string chooseAppDir(const std::string& given, bool& owns) {
    owns = given.empty();
    return owns ? makeTempAppDir() : given;
}
}  // namespace

ScriptDriver::ScriptDriver(ScriptOptions options, std::ostream& out)
    : options_(std::move(options)),
      out_(out),
      appDir_(chooseAppDir(options_.appDir, ownsAppDir_)),
      synth_(options_.synth || !options_.wavPath.empty()
                 ? std::make_unique<SynthRendering>(loop_, appDir_, options_.soundFont, options_.wavPath)
                 : nullptr),
      midi_(loop_, synth_ && options_.synth ? &synth_->midi() : nullptr),
      wave_(log_, synth_ ? &synth_->wave() : nullptr),
      boxes_(log_),
      mci_(log_, synth_ && options_.synth ? &synth_->mci() : nullptr),
      urls_(log_),
      // Every run's calendar starts at the same moment.
      clock_(loop_, LocalTime{2017, 5, 20, 9, 30, 0}),
      platform_{loop_, midi_, wave_, boxes_, instanceLock_, mci_, &startDialogs_, urls_, clock_, midiIn_} {
    instrument_ = std::make_unique<Instrument>(platform_, appDir_, options_.shippedData);
    exportButtons_ = std::make_unique<ExportButtons>(*instrument_, ExportButtons::Threading::Inline, options_.soundFont);
    logFormVisibility();
}

std::string ScriptOptions::defaultShippedData() { return shippedDataFolder(TESSALY_BUILD_DATA_DIR); }

void ScriptDriver::logFormVisibility() {
    for (const char* name : {"DZQQD", "Form1", "Form3", "YYBJ", "YYLR"}) {
        Control* form = instrument_->controls.findControl(name);
        if (!form) continue;
        form->observe([this](Control& c, Prop prop) {
            if (prop == Prop::Visible) log_.add((c.visible() ? "show " : "hide ") + c.name());
        });
    }
}

void ScriptDriver::runUntilMainWindowActive() {
    // The splash's timer hands over after a few seconds; a start that takes
    // longer than a minute of virtual time is stuck.
    for (int ms = 0; ms < 60000; ++ms) {
        if (instrument_->activated() || instrument_->ended()) return;
        loop_.advance(1);
    }
    throw ScriptError("the main window never became active");
}

ScriptDriver::~ScriptDriver() {
    exportButtons_.reset();
    instrument_.reset();
    synth_.reset();
    if (ownsAppDir_) {
        std::error_code error;
        std::filesystem::remove_all(appDir_, error);
    }
}

int ScriptDriver::run(std::istream& script) {
    std::string line;
    while (std::getline(script, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::size_t first = line.find_first_not_of(" \t");
        if (first == std::string::npos || line[first] == '#') continue;
        line = line.substr(first);
        try {
            if (execute(line)) {
                printEvents();
                out_ << "ended\n";
                return instrument_->exitStatus();
            }
        } catch (const FatalFailure& failure) {
            // The user's work is saved first, and the message says where,
            // relative to the data folder so that a run prints the same.
            std::string kept = savedWorkText(instrument_->fatalEndSaves.runAll(), instrument_->appDir());
            out_ << "fatal " << failure.what() << (kept.empty() ? "" : "。" + escapeValue(kept)) << "\n";
            return 3;
        } catch (const ScriptError& error) {
            out_ << "error: " << error.what() << " in: " << line << "\n";
            return 2;
        } catch (const std::invalid_argument& error) {
            out_ << "error: " << error.what() << " in: " << line << "\n";
            return 2;
        }
        out_.flush();
    }
    return 0;
}

bool ScriptDriver::execute(const std::string& line) {
    auto [command, rest] = splitWord(line);
    ControlSystem& controls = instrument_->controls;
    auto control = [&](const std::string& name) -> Control& {
        Control* c = controls.findControl(name);
        if (!c) throw ScriptError("no control " + name);
        return *c;
    };

    if (command == "start") {
        instrument_->start();
        runUntilMainWindowActive();
    } else if (command == "key") {
        std::istringstream words(rest);
        std::string direction, code, shift;
        words >> direction >> code >> shift;
        if (direction != "down" && direction != "up") throw ScriptError("key down or key up");
        auto keyCode = static_cast<int16_t>(parseNumber(code));
        auto mask = static_cast<int16_t>(shift.empty() ? 0 : parseNumber(shift));
        if (Control* target = controls.focused()) {
            auto& event = direction == "down" ? target->onKeyDown : target->onKeyUp;
            if (event) event(keyCode, mask);
        }
    } else if (command == "click") {
        control(rest).userClick();
    } else if (command == "pick") {
        auto [name, index] = splitWord(rest);
        auto* list = dynamic_cast<ListControl*>(&control(name));
        if (!list) throw ScriptError(name + " is not a list");
        list->userPick(static_cast<int>(parseNumber(index)));
    } else if (command == "type") {
        auto [name, text] = splitWord(rest);
        Control& target = control(name);
        if (auto* box = dynamic_cast<TextBox*>(&target)) box->setText(text);
        else if (auto* combo = dynamic_cast<ListControl*>(&target)) combo->setText(text);
        else throw ScriptError(name + " takes no text");
    } else if (command == "focus") {
        Control& target = control(rest);
        if (!target.canTakeFocus()) throw ScriptError(rest + " cannot take the focus");
        target.setFocus();
    } else if (command == "move") {
        // The pointer moves over the control with no button held.
        control(rest).userMouseMove(0);
    } else if (command == "drag") {
        // The pointer moves over the control with the button held, after a press on a drag source.
        control(rest).userDragOver();
    } else if (command == "set") {
        auto [path, value] = splitWord(rest);
        if (!controls.set(path, value)) throw ScriptError("cannot set " + path);
    } else if (command == "get") {
        auto value = controls.get(rest);
        if (!value) throw ScriptError("no value " + rest);
        out_ << rest << "=" << escapeValue(*value) << "\n";
    } else if (command == "advance") {
        long ms = parseNumber(rest);
        if (ms < 0) throw ScriptError("advance needs a positive number");
        loop_.advance(static_cast<uint64_t>(ms));
        if (synth_) synth_->catchUp();
    } else if (command == "midi") {
        printMidi();
    } else if (command == "events") {
        printEvents();
    } else if (command == "dialog") {
        if (rest.empty()) throw ScriptError("dialog PATH or dialog cancel");
        // A relative path names a file in the program's data folder.
        std::filesystem::path path = std::filesystem::path(appDir_) / rest;
        dialogs_.queueFileAnswer(rest == "cancel" ? std::nullopt : std::optional<std::string>(path.string()));
    } else if (command == "open-file") {
        if (rest.empty()) throw ScriptError("open-file PATH");
        // As the program opens a file named on its command line; a relative
        // path names a file in the data folder.
        openStartFile(*instrument_, startDialogs_, (std::filesystem::path(appDir_) / rest).string());
    } else if (command == "input") {
        dialogs_.queueInputAnswer(rest == "cancel" ? std::nullopt : std::optional<std::string>(rest));
    } else if (command == "mci") {
        if (rest != "end") throw ScriptError("mci end");
        // With the engine behind it a file ends by itself.
        if (options_.synth) throw ScriptError("mci end needs the recorder's model, not --synth");
        mci_.endOfFile();
    } else if (command == "midi-in") {
        // Three bytes from the keyboard, taken by the event thread at once.
        std::istringstream words(rest);
        uint32_t message = 0;
        for (int shift = 0; shift < 24; shift += 8) {
            std::string byte;
            words >> byte;
            long value = parseNumber(byte);
            if (value < 0 || value > 255) throw ScriptError("midi-in B0 B1 B2, each 0..255");
            message |= static_cast<uint32_t>(value) << shift;
        }
        midiIn_.deliver(message);
        instrument_->midiKeyboard.serve();
    } else if (command == "quit") {
        instrument_->close();
    } else if (command == "close") {
        // The user closes a window other than the main one by its close box.
        auto* form = dynamic_cast<Form*>(&control(rest));
        if (!form || form == &instrument_->form1) throw ScriptError("close needs a window other than Form1: " + rest);
        form->unload();
    } else {
        throw ScriptError("unknown command " + command);
    }
    return instrument_->ended();
}

void ScriptDriver::printMidi() {
    for (const RecordedMidi& m : midi_.take())
        out_ << "@" << m.timeMs << " " << (m.message & 0xFF) << " " << ((m.message >> 8) & 0xFF) << " "
             << ((m.message >> 16) & 0xFF) << "\n";
}

void ScriptDriver::printEvents() {
    // The data folder is a fresh one each run: it prints by name.
    const std::string folder = appDir_ + "/";
    for (std::string line : log_.take()) {
        for (std::size_t at = line.find(folder); at != std::string::npos; at = line.find(folder, at))
            line.replace(at, folder.size(), "$APPDIR/");
        out_ << escapeValue(line) << "\n";
    }
}

}  // namespace tessaly
