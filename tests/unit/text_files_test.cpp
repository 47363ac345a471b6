#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "runtime/TextFiles.h"

namespace fs = std::filesystem;
using namespace tessaly;

namespace {

struct TempFolder {
    fs::path dir = fs::temp_directory_path() / ("tessaly-textfiles-" + std::to_string(::getpid()));
    TempFolder() {
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    ~TempFolder() { fs::remove_all(dir); }
    fs::path write(const std::string& name, const std::string& bytes) const {
        std::ofstream(dir / name, std::ios::binary) << bytes;
        return dir / name;
    }
};

mode_t modeOf(const fs::path& path) {
    struct stat info {};
    ::stat(path.c_str(), &info);
    return info.st_mode & 07777;
}

}  // namespace

TEST(TextFiles, OnlyRegularFilesAreReadAndNothingBlocks) {
    TempFolder t;
    EXPECT_EQ(readFileBytes(t.write("a.txt", "KC8TZ").string()), "KC8TZ");
    EXPECT_FALSE(readFileBytes((t.dir / "missing.txt").string()));
    EXPECT_FALSE(readTextFile(t.dir.string()));
    // A FIFO with no writer would hold a blocking open for ever.
    ASSERT_EQ(::mkfifo((t.dir / "fifo").c_str(), 0644), 0);
    EXPECT_FALSE(readTextFile((t.dir / "fifo").string()));
}

TEST(TextFiles, UndecodableBytesBecomeReplacementCharacters) {
    EXPECT_EQ(decodeText("KC\xFF"), "KC\xEF\xBF\xBD");
    EXPECT_EQ(decodeText("\xEF\xBB\xBF\xE4\xB9\x90"), "乐");
    EXPECT_FALSE(isValidUtf8("\xED\xA0\x80"));  // a surrogate
    EXPECT_TRUE(isValidUtf8("\xF0\x9F\x8E\xB9"));
}

TEST(TextFiles, ASaveKeepsTheOldFilesPermissions) {
    TempFolder t;
    fs::path shared = t.write("shared.txt", "old");
    ::chmod(shared.c_str(), 0644);
    fs::path secret = t.write("secret.txt", "old");
    ::chmod(secret.c_str(), 0600);
    ASSERT_TRUE(replaceFile(shared.string(), "new"));
    ASSERT_TRUE(replaceFile(secret.string(), "new"));
    EXPECT_EQ(modeOf(shared), 0644u);
    EXPECT_EQ(modeOf(secret), 0600u);

    mode_t mask = ::umask(022);
    ASSERT_TRUE(replaceFile((t.dir / "new.txt").string(), "x"));
    ::umask(mask);
    EXPECT_EQ(modeOf(t.dir / "new.txt"), 0644u);
}

TEST(TextFiles, ASaveThroughALinkReplacesItsTargetAndKeepsTheLink) {
    TempFolder t;
    fs::create_directories(t.dir / "scores");
    fs::path target = t.write("scores/tune.txt", "old");
    fs::create_symlink("scores/tune.txt", t.dir / "link.txt");
    ASSERT_TRUE(replaceFile((t.dir / "link.txt").string(), "new"));
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(t.dir / "link.txt")));
    EXPECT_EQ(readFileBytes(target.string()), "new");
    // The temporary file went beside the target and is gone.
    EXPECT_EQ(std::distance(fs::directory_iterator(t.dir / "scores"), fs::directory_iterator()), 1);
}

TEST(TextFiles, ADirectoryInTheWayIsNeverReplaced) {
    TempFolder t;
    fs::create_directories(t.dir / "tessaly.ini" / "inner");
    EXPECT_FALSE(replaceFile((t.dir / "tessaly.ini").string(), "x"));
    EXPECT_TRUE(fs::is_directory(t.dir / "tessaly.ini" / "inner"));
}
