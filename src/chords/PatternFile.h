#pragma once
#include <string>
#include <vector>

namespace tessaly {

struct ChordState;

// The pattern file HxJzMx.txt beside the program: one figure a line, CR LF,
// no header. Lines are taken as they stand, empty ones included.
class PatternFile {
public:
    // appDir ends with a separator.
    explicit PatternFile(const std::string& appDir) : path_(appDir + "HxJzMx.txt") {}

    const std::string& path() const { return path_; }
    bool exists() const;
    // Writes the built-in figures and one more line end: 115 lines.
    bool create() const;
    // Reads the lines into PatternLines from position 1 and returns how many
    // there were. A 1001st line is a bounds failure: the file may not grow
    // past the table unnoticed. A file that cannot be read has no lines.
    long readInto(ChordState& chords) const;
    // Adds the lines at the end of the file, each with its line end.
    bool append(const std::vector<std::string>& lines, int* error = nullptr) const;

private:
    std::string path_;
};

}  // namespace tessaly
