#pragma once
#include <optional>
#include <string>

namespace tessaly {

// Where the program keeps its data: the folder named by TESSALY_APPDIR when
// it is set (a portable installation), else "tessaly" under the XDG data home
// ($XDG_DATA_HOME, or ~/.local/share). The result ends with a separator.
std::string appFolderFor(const char* portable, const char* xdgDataHome, const char* home);
// The same from this process's environment.
std::string appFolderFromEnvironment();

// Creates the folder and, on its first start, its sub-folders "演奏记录" and
// "音效" filled from the same sub-folders of the shipped data. A sub-folder
// that is already there is left as the user keeps it. When the folder cannot
// be used (not creatable, not a folder, not writable), the answer is the
// message that tells the user so.
std::optional<std::string> seedAppFolder(const std::string& appDir, const std::string& shippedData);

}  // namespace tessaly
