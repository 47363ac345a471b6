#pragma once
#include <string>

#include "forms/Controls.h"

namespace tessaly {

// A list of the files of one folder that match a pattern ("*.bin", "*.*").
class FileListBox : public ListControl {
public:
    FileListBox(Form* form, std::string name, int index = -1)
        : ListControl(form, ControlKind::FileList, std::move(name), index) {}
    const std::string& path() const { return path_; }
    const std::string& pattern() const { return pattern_; }
    // A folder that does not exist is a fatal failure, as the platform's list raises it.
    void setPath(std::string path);
    void setPattern(std::string pattern);
    void refresh();
    std::optional<std::string> property(std::string_view prop) const override;
    bool setProperty(std::string_view prop, std::string_view value) override;

private:
    std::string path_;
    std::string pattern_ = "*.*";
};

// Case-insensitive match of a file name against "*.ext" style patterns, several
// separated by ';'.
bool matchesFilePattern(const std::string& name, const std::string& pattern);

}  // namespace tessaly
