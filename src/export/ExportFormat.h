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

// The filter of the export's save dialog: MIDI, WAV, MP3, in this order.
extern const char* const kExportFilter;

// A name chosen in the save dialog without an extension we write gets the
// extension of the filter's type chosen beside it (from 0; -1 when the
// dialog cannot say, and then ".mid").
std::string withExportExtension(const std::string& chosen, int chosenType = -1);

// The name an export offers: that of the file the work was last opened from or
// saved to, without folder or extension, else `fallback` ("乐谱", "乐曲").
std::string suggestedExportName(const std::string& workPath, const std::string& fallback);

}  // namespace tessaly
