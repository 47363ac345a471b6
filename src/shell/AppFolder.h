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

// Where the data that ships with the program lies (demonstration scores,
// built-in rhythms, sound effects): the folder named by TESSALY_SHIPPED_DATA
// when it is set; else "share/tessaly" beside the executable's "bin" folder
// when that exists, which is how an installed program finds its data in any
// prefix; else the data the build made (builtData), for a program run from
// its build folder.
std::string shippedDataFolderFor(const char* named, const std::string& executable, const std::string& builtData);
// The same for this process, from its environment and its own executable.
std::string shippedDataFolder(const std::string& builtData);

// Creates the folder and its sub-folders "演奏记录" and "音效", and copies in
// each file of the same sub-folders of the shipped data that is missing there
// or shorter than shipped; the user's other files are left as they are. When the folder cannot
// be used (not creatable, not a folder, not writable), the answer is the
// message that tells the user so.
std::optional<std::string> seedAppFolder(const std::string& appDir, const std::string& shippedData);

// Removes the temporary files of saves cut off by a kill from the data folder
// and its sub-folders. Only while this instance holds the folder's lock.
void removeLeftoverSaves(const std::string& appDir);

}  // namespace tessaly
