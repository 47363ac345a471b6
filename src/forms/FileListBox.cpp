#include "forms/FileListBox.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <vector>

#include "runtime/FatalFailure.h"
#include "runtime/FileAccess.h"

namespace tessaly {

namespace {

std::string lower(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

bool wildcard(const char* p, const char* s) {
    if (*p == '\0') return *s == '\0';
    if (*p == '*') return wildcard(p + 1, s) || (*s != '\0' && wildcard(p, s + 1));
    if (*s == '\0') return false;
    return (*p == '?' || *p == *s) && wildcard(p + 1, s + 1);
}

}  // namespace

bool matchesFilePattern(const std::string& name, const std::string& pattern) {
    std::string n = lower(name);
    std::size_t start = 0;
    while (start <= pattern.size()) {
        std::size_t end = pattern.find(';', start);
        std::string one = lower(pattern.substr(start, end == std::string::npos ? std::string::npos : end - start));
        if (one == "*.*" || wildcard(one.c_str(), n.c_str())) return true;
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return false;
}

void FileListBox::setPath(std::string path) {
    std::error_code error;
    if (!std::filesystem::is_directory(path, error)) throw FatalFailure(FailureKind::InvalidCall, "路径未找到: " + path);
    path_ = std::move(path);
    refresh();
}

void FileListBox::setPattern(std::string pattern) {
    pattern_ = std::move(pattern);
    refresh();
}

void FileListBox::refresh() {
    std::vector<std::string> names;
    if (!path_.empty())
        for (const std::filesystem::path& file : regularFilesIn(path_))
            if (matchesFilePattern(file.filename().string(), pattern_)) names.push_back(file.filename().string());
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) { return lower(a) < lower(b); });
    clear();
    for (auto& name : names) addItem(std::move(name));
}

std::optional<std::string> FileListBox::property(std::string_view prop) const {
    if (prop == "Path") return path_;
    if (prop == "Pattern") return pattern_;
    if (prop == "FileName") return listIndex() >= 0 ? item(listIndex()) : std::string();
    return ListControl::property(prop);
}

bool FileListBox::setProperty(std::string_view prop, std::string_view value) {
    if (prop == "Path") setPath(std::string(value));
    else if (prop == "Pattern") setPattern(std::string(value));
    else return ListControl::setProperty(prop, value);
    return true;
}

}  // namespace tessaly
