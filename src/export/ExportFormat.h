#pragma once
#include <optional>
#include <string>

namespace tessaly {

// What an export writes, named by the output file's extension.
enum class ExportFormat { Midi, Wav, Flac, Mp3 };

// ".mid" or ".midi", ".wav", ".flac", ".mp3", in any case; nothing for others.
std::optional<ExportFormat> exportFormatOf(const std::string& path);

// What an export reads: a text score or an edit file of the music editor.
enum class ExportInput { Score, EditFile };

// ".txt" or ".lnk", in any case.
std::optional<ExportInput> exportInputOf(const std::string& path);

// The input's path with ".mid" in place of its extension.
std::string defaultExportPath(const std::string& input);

// A name chosen in the save dialog without an extension we write gets the
// extension of the type chosen beside it.
std::string withExportExtension(const std::string& chosen, const std::string& typeExtension = ".mid");

}  // namespace tessaly
