#include "platform/MciInterpreter.h"

#include "platform/MciCommandParser.h"

namespace tessaly {

namespace {

MciResult ok(std::string reply = {}) { return {kMciOk, std::move(reply)}; }
MciResult failed(int error) { return {error, {}}; }

const char* modeText(MciInterpreter::Mode mode) {
    switch (mode) {
    case MciInterpreter::Mode::Playing: return "playing";
    case MciInterpreter::Mode::Recording: return "recording";
    default: return "stopped";
    }
}

}  // namespace

MciResult MciInterpreter::execute(const std::string& text) {
    ParsedMci parsed = parseMciCommand(text);
    if (parsed.error != kMciOk) return failed(parsed.error);
    const MciCommand& c = parsed.command;
    if (c.verb == MciVerb::Open) return open(c);
    if (c.verb == MciVerb::Close && sameWord(c.alias, "animation")) return ok();
    if (!sameWord(c.alias, kAlias) || device_ == Device::None) return failed(kMciNotOpen);

    switch (c.verb) {
    case MciVerb::Close: close(); return ok();
    case MciVerb::Stop: stop(); return ok();
    case MciVerb::Set: return set(c);
    case MciVerb::Save: return save(c);
    case MciVerb::Status: return status(c);
    case MciVerb::Record:
        if (device_ != Device::Recording) return failed(kMciWrongDevice);
        if (mode_ != Mode::Recording) backend_.startRecording();
        mode_ = Mode::Recording;
        return ok();
    case MciVerb::Seek:
        if (device_ != Device::File) return failed(kMciWrongDevice);
        stop();
        backend_.seek(*c.positionMs);
        return ok();
    case MciVerb::Play:
        if (device_ != Device::File) return failed(kMciWrongDevice);
        backend_.play(c.positionMs);
        mode_ = Mode::Playing;
        return ok();
    default: return failed(kMciUnknownCommand);
    }
}

MciResult MciInterpreter::open(const MciCommand& c) {
    if (!sameWord(c.alias, kAlias)) return failed(kMciBadParameter);
    if (device_ != Device::None) return failed(kMciAliasInUse);
    const bool wave = sameWord(c.type, "waveaudio");
    if (!wave && !sameWord(c.type, "mpegvideo")) return failed(kMciCannotOpenFile);
    if (c.newRecording) {
        if (!wave) return failed(kMciBadParameter);
        device_ = Device::Recording;
        format_ = MciWaveFormat{};
    } else {
        if (!backend_.openFile(c.element, wave)) return failed(kMciCannotOpenFile);
        device_ = Device::File;
    }
    mode_ = Mode::Stopped;
    return ok();
}

MciResult MciInterpreter::set(const MciCommand& c) {
    switch (c.setting) {
    case MciSetting::AssembleRecord:
    case MciSetting::FormatTagPcm:
    case MciSetting::AlgorithmPcm:
    case MciSetting::TimeFormatMs: return ok();
    default: break;
    }
    if (device_ != Device::Recording) return failed(kMciWrongDevice);
    if (mode_ == Mode::Recording) return failed(kMciWrongDevice);
    switch (c.setting) {
    case MciSetting::BitsPerSample:
        if (c.value != 8 && c.value != 16) return failed(kMciBadParameter);
        format_.bits = static_cast<int>(c.value);
        break;
    case MciSetting::SamplesPerSec:
        if (c.value < 1000 || c.value > 192000) return failed(kMciBadParameter);
        format_.rate = static_cast<int>(c.value);
        break;
    case MciSetting::Channels:
        if (c.value != 1 && c.value != 2) return failed(kMciBadParameter);
        format_.channels = static_cast<int>(c.value);
        break;
    default: break;
    }
    return ok();
}

MciResult MciInterpreter::save(const MciCommand& c) {
    if (device_ != Device::Recording) return failed(kMciWrongDevice);
    stop();
    return backend_.saveTake(c.path, format_) ? ok() : failed(kMciCannotSave);
}

MciResult MciInterpreter::status(const MciCommand& c) {
    if (!sameWord(c.item, "mode")) return failed(kMciBadParameter);
    if (mode_ == Mode::Playing && !backend_.stillPlaying()) {
        backend_.stopPlaying();
        mode_ = Mode::Stopped;
    }
    return ok(modeText(mode_));
}

void MciInterpreter::stop() {
    if (mode_ == Mode::Recording) backend_.stopRecording();
    if (mode_ == Mode::Playing) backend_.stopPlaying();
    mode_ = Mode::Stopped;
}

void MciInterpreter::close() {
    stop();
    if (device_ == Device::Recording) backend_.discardTake();
    if (device_ == Device::File) backend_.closeFile();
    device_ = Device::None;
}

}  // namespace tessaly
