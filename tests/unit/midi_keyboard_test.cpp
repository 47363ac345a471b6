#include <gtest/gtest.h>

#include <fstream>

#include "Harness.h"
#include "performance/InputPortList.h"
#include "runtime/TextFiles.h"

namespace tessaly {
namespace {

MidiInputPort port(const char* address, const char* name) { return {address, name}; }

TEST(InputPortList, LeavesOutOurOwnPortsAndThePassThrough) {
    InputPortList list("tessaly");
    list.refresh({port("14:0", "Midi Through:Midi Through Port-0"), port("128:0", "tessaly:out"),
                  port("20:0", "Piano:Piano MIDI 1"), port("24:0", "tessalyx:Pad")});
    EXPECT_EQ(list.captions(), (std::vector<std::string>{"无", "Piano:Piano MIDI 1", "tessalyx:Pad"}));
}

TEST(InputPortList, ConnectsTheOnlyKeyboardOrTheRememberedOneWhenItAppears) {
    InputPortList list("tessaly");
    EXPECT_FALSE(list.refresh({}).connect);
    // The only keyboard, plugged in.
    auto update = list.refresh({port("20:0", "Piano:Piano MIDI 1")});
    EXPECT_TRUE(update.entriesChanged);
    ASSERT_TRUE(update.connect);
    EXPECT_EQ(*update.connect, "20:0");
    list.markConnected("20:0");
    // A second one does not take over, and nothing changes while nothing changes.
    update = list.refresh({port("20:0", "Piano:Piano MIDI 1"), port("24:0", "Pad:Pad 1")});
    EXPECT_FALSE(update.connect);
    EXPECT_FALSE(list.refresh({port("20:0", "Piano:Piano MIDI 1"), port("24:0", "Pad:Pad 1")}).entriesChanged);
    EXPECT_EQ(list.connectedIndex(), 1);

    // Two already there at start: the remembered one is connected, not the first.
    InputPortList restarted("tessaly");
    restarted.setRemembered("Pad:Pad 1");
    update = restarted.refresh({port("20:0", "Piano:Piano MIDI 1"), port("24:0", "Pad:Pad 1")});
    ASSERT_TRUE(update.connect);
    EXPECT_EQ(*update.connect, "24:0");
    // Neither remembered: none of the two is chosen for the user.
    InputPortList unknown("tessaly");
    EXPECT_FALSE(unknown.refresh({port("20:0", "Piano:Piano MIDI 1"), port("24:0", "Pad:Pad 1")}).connect);
}

TEST(InputPortList, APortPulledOutTakesItsConnectionAndComesBackByName) {
    InputPortList list("tessaly");
    list.refresh({port("20:0", "Piano:Piano MIDI 1"), port("24:0", "Pad:Pad 1")});
    EXPECT_EQ(list.choose(2), "24:0");
    EXPECT_EQ(list.remembered(), "Pad:Pad 1");

    auto update = list.refresh({port("20:0", "Piano:Piano MIDI 1")});
    EXPECT_TRUE(update.connectionLost);
    EXPECT_FALSE(update.connect);  // the other one is not remembered: it stays unconnected
    EXPECT_EQ(list.connectedIndex(), 0);
    EXPECT_EQ(list.remembered(), "Pad:Pad 1");

    // Plugged in again, under another address: found by its name.
    update = list.refresh({port("20:0", "Piano:Piano MIDI 1"), port("28:0", "Pad:Pad 1")});
    ASSERT_TRUE(update.connect);
    EXPECT_EQ(*update.connect, "28:0");
}

TEST(InputPortList, ARenamedPortKeepsItsPlaceAndItsConnection) {
    InputPortList list("tessaly");
    list.refresh({port("20:0", "Piano:Piano MIDI 1"), port("24:0", "Pad:Pad 1")});
    list.choose(1);
    auto update = list.refresh({port("20:0", "Stage Piano:Piano MIDI 1"), port("24:0", "Pad:Pad 1")});
    EXPECT_TRUE(update.entriesChanged);
    EXPECT_FALSE(update.connectionLost);
    EXPECT_FALSE(update.connect);
    EXPECT_EQ(list.connectedIndex(), 1);
    EXPECT_EQ(list.captions()[1], "Stage Piano:Piano MIDI 1");
    // Choosing "无" forgets the keyboard.
    EXPECT_EQ(list.choose(0), "");
    EXPECT_EQ(list.remembered(), "");
}

// The list in the main window, watched in time, and the file that remembers.
struct MidiKeyboardList : ::testing::Test {
    void plug(std::vector<MidiInputPort> ports) { h.midiIn.setPorts(std::move(ports)); }
    std::vector<std::string> listed() {
        std::vector<std::string> items;
        for (int i = 0; i < h.app->form1.ComInput.listCount(); ++i) items.push_back(h.app->form1.ComInput.item(i));
        return items;
    }
    testing::Harness h;
};

TEST_F(MidiKeyboardList, AKeyboardPluggedInIsListedAndConnectedWithinTwoSecondsAndLeavesWithoutABox) {
    EXPECT_EQ(listed(), std::vector<std::string>{"无"});
    plug({port("20:0", "Piano:Piano MIDI 1")});
    h.loop.advance(2000);
    EXPECT_EQ(listed(), (std::vector<std::string>{"无", "Piano:Piano MIDI 1"}));
    EXPECT_EQ(h.app->form1.ComInput.listIndex(), 1);
    EXPECT_EQ(h.midiIn.connected(), "20:0");
    // Connected without a choice: nothing is remembered.
    EXPECT_FALSE(std::filesystem::exists(h.dir / kKeyboardSettingsFileName));

    plug({});
    h.loop.advance(2000);
    EXPECT_EQ(listed(), std::vector<std::string>{"无"});
    EXPECT_EQ(h.app->form1.ComInput.listIndex(), 0);
    EXPECT_TRUE(h.log.take().empty());
}

TEST_F(MidiKeyboardList, TheChosenKeyboardIsRememberedBesideTheSettingsAndChosenAgainAtStart) {
    plug({port("20:0", "Piano:Piano MIDI 1"), port("24:0", "Pad:Pad 1")});
    h.loop.advance(1000);
    EXPECT_EQ(h.app->form1.ComInput.listIndex(), 0);
    h.app->form1.ComInput.userPick(2);
    EXPECT_EQ(h.midiIn.connected(), "24:0");
    auto remembered = readTextFile((h.dir / kKeyboardSettingsFileName).string());
    ASSERT_TRUE(remembered);
    EXPECT_EQ(*remembered, "输入设备=Pad:Pad 1\r\n");

    // A new start in the same folder, the ports the other way round.
    HeadlessProgram::Options options;
    options.started = false;
    HeadlessProgram again(options);
    std::filesystem::copy_file(h.dir / kKeyboardSettingsFileName, again.dir / kKeyboardSettingsFileName);
    again.midiIn.setPorts({port("24:0", "Pad:Pad 1"), port("20:0", "Piano:Piano MIDI 1")});
    ASSERT_TRUE(again.startUntilActive());
    EXPECT_EQ(again.app->form1.ComInput.text(), "Pad:Pad 1");
    EXPECT_EQ(again.midiIn.connected(), "24:0");
}

TEST_F(MidiKeyboardList, TheMainSettingsFileKeepsItsLines) {
    plug({port("20:0", "Piano:Piano MIDI 1")});
    h.loop.advance(1000);
    h.app->form1.ComInput.userPick(1);
    auto settings = readTextFile((h.dir / "tessaly.ini").string());
    ASSERT_TRUE(settings);
    EXPECT_EQ(splitLines(*settings).size(), 53u);
}

}  // namespace
}  // namespace tessaly
