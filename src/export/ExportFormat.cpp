#include "export/ExportFormat.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace tessaly {

const char* const kExportFilter = "MIDI 文件|*.mid|WAV 音频|*.wav|MP3 音频|*.mp3";

namespace {

// The extensions of the filter's types, in its order.
const char* const kTypeExtensions[] = {".mid", ".wav", ".mp3"};

std::string lowerExtension(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

}  // namespace

std::optional<ExportFormat> exportFormatOf(const std::string& path) {
    const std::string extension = lowerExtension(path);
    if (extension == ".mid" || extension == ".midi") return ExportFormat::Midi;
    if (extension == ".wav") return ExportFormat::Wav;
    if (extension == ".flac") return ExportFormat::Flac;
    if (extension == ".mp3") return ExportFormat::Mp3;
    return std::nullopt;
}

std::optional<ExportInput> exportInputOf(const std::string& path) {
    const std::string extension = lowerExtension(path);
    if (extension == ".txt") return ExportInput::Score;
    if (extension == ".lnk") return ExportInput::EditFile;
    return std::nullopt;
}

std::string defaultExportPath(const std::string& input) {
    return std::filesystem::path(input).replace_extension(".mid").string();
}

std::string withExportExtension(const std::string& chosen, int chosenType) {
    if (exportFormatOf(chosen)) return chosen;
    return chosen + (chosenType >= 1 && chosenType <= 2 ? kTypeExtensions[chosenType] : kTypeExtensions[0]);
}

std::string suggestedExportName(const std::string& workPath, const std::string& fallback) {
    const std::string stem = std::filesystem::path(workPath).stem().string();
    return stem.empty() ? fallback : stem;
}

}  // namespace tessaly
