#include <gtest/gtest.h>

#include <fstream>

#include "Harness.h"
#include "runtime/TextFiles.h"
#include "shell/AppFolder.h"
#include "shell/SettingsFile.h"

namespace tessaly {
namespace {

TEST(StartUp, TheMainWindowLoadsThenActivatesThenInitialisesOnce) {
    testing::Harness h(false);
    Settings s = defaultSettings();
    s.check1 = 1;
    std::ofstream(h.appDir / kSettingsFileName, std::ios::binary) << joinLines(settingsLines(s));
    MainWindow& f = h.app->form1;
    std::vector<std::string> seen;
    // One observable step of each stage: the device list of Form_Load, the
    // settings read first in Form_Activate, the defaults of QDCSH, and the
    // label hidden after it, and shown again by the button's GotFocus.
    f.ComDevies.observe([&](Control&, Prop p) { if (p == Prop::ListIndex) seen.push_back("Form_Load"); });
    f.Check1.observe([&](Control&, Prop p) { if (p == Prop::Value) seen.push_back("Form_Activate"); });
    f.ComSounds[0].observe([&](Control&, Prop p) { if (p == Prop::ListIndex) seen.push_back("QDCSH"); });
    f.Label1.observe([&](Control&, Prop p) { if (p == Prop::Visible) seen.push_back("Label1"); });

    h.app->start();
    EXPECT_TRUE(h.app->DZQQD.visible());
    EXPECT_EQ(h.app->DZQQD.cornerRadius(), 35);
    h.loop.advance(2999);
    EXPECT_FALSE(f.loaded());
    EXPECT_TRUE(seen.empty());
    h.loop.advance(1);
    EXPECT_TRUE(f.visible());
    EXPECT_FALSE(h.app->DZQQD.loaded());
    EXPECT_TRUE(h.app->activated());
    EXPECT_EQ(seen, (std::vector<std::string>{"Form_Load", "Form_Activate", "QDCSH", "Label1", "Label1"}));
    EXPECT_TRUE(f.Label1.visible());
}

class Refused : public InstanceLock {
public:
    bool acquire(const std::string&) override { return false; }
};

TEST(StartUp, ASecondInstanceSaysSoAndTouchesNoFile) {
    VirtualEventLoop loop;
    EventLog log;
    RecordingMidiPort midi{loop};
    RecordingWaveOut wave{log};
    RecordingMessageBoxes boxes{log};
    Refused lock;
    Platform platform{loop, midi, wave, boxes, lock};
    auto dir = std::filesystem::temp_directory_path() / "tessaly-refused-test";
    std::filesystem::remove_all(dir);
    Instrument app(platform, dir.string());
    app.start();
    EXPECT_TRUE(app.ended());
    EXPECT_FALSE(app.DZQQD.visible());
    EXPECT_EQ(log.take(), std::vector<std::string>{"box 提示|你已经运行这个应用程序了！"});
    EXPECT_FALSE(std::filesystem::exists(dir));
}

TEST(AppFolder, PortableFolderFirstThenTheXdgDataHome) {
    EXPECT_EQ(appFolderFor("/opt/t", "/x", "/home/u"), "/opt/t/");
    EXPECT_EQ(appFolderFor(nullptr, "/x/data", "/home/u"), "/x/data/tessaly/");
    EXPECT_EQ(appFolderFor("", "relative", "/home/u"), "/home/u/.local/share/tessaly/");
}

// Installed, the programs sit in PREFIX/bin and their data in
// PREFIX/share/tessaly; in the build folder there is no such folder beside
// them and the build's data counts. A named folder overrides both.
TEST(AppFolder, ShippedDataBesideAnInstalledProgramElseTheBuilds) {
    const auto prefix = std::filesystem::temp_directory_path() / "tessaly-prefix-test";
    std::filesystem::remove_all(prefix);
    std::filesystem::create_directories(prefix / "bin");
    const std::string program = (prefix / "bin" / "tessaly").string();
    EXPECT_EQ(shippedDataFolderFor(nullptr, program, "/build/data"), "/build/data");
    std::filesystem::create_directories(prefix / "share" / "tessaly");
    EXPECT_EQ(shippedDataFolderFor(nullptr, program, "/build/data"), (prefix / "share" / "tessaly").string());
    EXPECT_EQ(shippedDataFolderFor("", program, "/build/data"), (prefix / "share" / "tessaly").string());
    EXPECT_EQ(shippedDataFolderFor("/elsewhere", program, "/build/data"), "/elsewhere");
    EXPECT_EQ(shippedDataFolderFor(nullptr, "", "/build/data"), "/build/data");
    std::filesystem::remove_all(prefix);
}

// A shipped file missing or shorter than shipped (a copy a full disk cut
// short) comes back at the next start; one the user made longer stays.
TEST(AppFolder, SeedsWhatIsMissingOrCutShortAndKeepsTheUsersOwn) {
    auto root = std::filesystem::temp_directory_path() / "tessaly-seed-test";
    std::filesystem::remove_all(root);
    std::filesystem::create_directories(root / "shipped" / "音效");
    std::ofstream(root / "shipped" / "音效" / "钟声.wav ") << "bell";
    std::ofstream(root / "shipped" / "音效" / "雷声.wav") << "thunder";
    std::string app = (root / "app").string() + "/";
    seedAppFolder(app, (root / "shipped").string());
    EXPECT_TRUE(std::filesystem::exists(root / "app" / "音效" / "钟声.wav "));
    EXPECT_TRUE(std::filesystem::is_directory(root / "app" / "演奏记录"));
    std::filesystem::remove(root / "app" / "音效" / "钟声.wav ");
    std::ofstream(root / "app" / "音效" / "雷声.wav", std::ios::trunc).close();
    seedAppFolder(app, (root / "shipped").string());
    EXPECT_EQ(std::filesystem::file_size(root / "app" / "音效" / "钟声.wav "), 4u);
    EXPECT_EQ(std::filesystem::file_size(root / "app" / "音效" / "雷声.wav"), 7u);
    std::ofstream(root / "app" / "音效" / "雷声.wav", std::ios::trunc) << "the user's own thunder";
    seedAppFolder(app, (root / "shipped").string());
    EXPECT_EQ(std::filesystem::file_size(root / "app" / "音效" / "雷声.wav"), 22u);
    std::filesystem::remove_all(root);
}

}  // namespace
}  // namespace tessaly
