#include "ExportTestSupport.h"

#include <unistd.h>

#include <fstream>
#include <sstream>

#include "app/script/ScriptDriver.h"
#include "runtime/TextFiles.h"
#include "shell/AppFolder.h"
#include "shell/SettingsFile.h"

namespace tessaly::testing {

ExportFolder::ExportFolder() {
    path_ = std::filesystem::temp_directory_path() /
            ("tessaly-export-test-" + std::to_string(::getpid()) + "-" +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(path_);
    // Seeded as the program seeds it: the demonstration scores and the rhythms.
    EXPECT_FALSE(seedAppFolder(appDir(), TESSALY_BUILD_DATA_DIR));
    scriptMidiLog(*this, "start\n", "");
}

ExportFolder::~ExportFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

void ExportFolder::write(const std::string& path, const std::string& text) const {
    std::ofstream out(path, std::ios::binary);
    out << text;
}

std::vector<LoggedMessage> scriptMidiLog(const ExportFolder& folder, const std::string& setup,
                                         const std::string& play) {
    ScriptOptions options;
    options.appDir = folder.appDir();
    std::ostringstream out;
    {
        ScriptDriver driver(options, out);
        // The value printed between the two logs says where the play's begins.
        std::istringstream in(setup + "midi\nget TickMs\n" + play + "midi\n");
        EXPECT_EQ(driver.run(in), 0) << out.str();
    }
    std::vector<LoggedMessage> log;
    std::istringstream lines(out.str());
    bool playing = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("TickMs=", 0) == 0) playing = true;
        if (!playing || line.empty() || line[0] != '@') continue;
        LoggedMessage m{};
        std::istringstream words(line.substr(1));
        words >> m.ms >> m.status >> m.data1 >> m.data2;
        log.push_back(m);
    }
    for (std::size_t i = 1; i < log.size(); ++i) log[i].ms -= log[0].ms;
    if (!log.empty()) log[0].ms = 0;
    return log;
}

std::string pianoOnF1Settings() {
    std::vector<std::string> lines = splitLines(defaultSettingsText());
    lines[0] = "1";
    lines[1] = "0";
    lines[2] = "0";
    return joinLines(lines);
}

}  // namespace tessaly::testing
