#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QTimer>
#include <thread>
#include <vector>

#include "platform/audio/SystemMidiInput.h"
#include "platform/qt/QtReadableFd.h"

namespace tessaly::audio {
namespace {

bool readable(int fd) {
    pollfd wait{fd, POLLIN, 0};
    return ::poll(&wait, 1, 0) == 1;
}

TEST(SystemMidiInput, SplitsTheAddressFromThePortsName) {
    EXPECT_EQ(SystemMidiInput::splitPortName("Piano:Piano MIDI 1 20:0"), (MidiInputPort{"20:0", "Piano:Piano MIDI 1"}));
    EXPECT_EQ(SystemMidiInput::splitPortName("A B:C 128:15"), (MidiInputPort{"128:15", "A B:C"}));
    // No address at the end: the whole name serves as both.
    EXPECT_EQ(SystemMidiInput::splitPortName("Odd name 2x:0"), (MidiInputPort{"Odd name 2x:0", "Odd name 2x:0"}));
    EXPECT_EQ(SystemMidiInput::splitPortName("Plain"), (MidiInputPort{"Plain", "Plain"}));
}

TEST(SystemMidiInput, AMessageIsQueuedAndWakesTheLoopAtOnce) {
    SystemMidiInput input;
    ASSERT_GE(input.wakeFd(), 0);
    EXPECT_FALSE(readable(input.wakeFd()));
    const unsigned char noteOn[3] = {0x90, 60, 100}, pedal[3] = {0xB0, 64, 127};
    input.arrived(noteOn, 3);
    input.arrived(pedal, 3);
    EXPECT_TRUE(readable(input.wakeFd()));
    input.acknowledgeWake();
    EXPECT_FALSE(readable(input.wakeFd()));
    uint32_t message = 0;
    ASSERT_TRUE(input.take(message));
    EXPECT_EQ(message, 0x90u | 60u << 8 | 100u << 16);
    ASSERT_TRUE(input.take(message));
    EXPECT_EQ(message, 0xB0u | 64u << 8 | 127u << 16);
    EXPECT_FALSE(input.take(message));
    // Longer messages (system exclusive) play nothing.
    const unsigned char sysex[5] = {0xF0, 1, 2, 3, 0xF7};
    input.arrived(sysex, 5);
    EXPECT_FALSE(input.take(message));
}

// The Qt loop takes what another thread hands over as soon as it is there,
// with no timer of its own to wait for.
TEST(SystemMidiInput, TheEventLoopWakesForAMessageFromAnotherThread) {
    int argc = 1;
    char name[] = "midi-input";
    char* argv[] = {name, nullptr};
    QCoreApplication application(argc, argv);
    SystemMidiInput input;
    std::vector<uint32_t> taken;
    QtReadableFd wake(input.wakeFd(), [&] {
        input.acknowledgeWake();
        for (uint32_t message = 0; input.take(message);) taken.push_back(message);
        if (taken.size() == 2) QCoreApplication::quit();
    });
    std::thread keyboard([&] {
        const unsigned char noteOn[3] = {0x90, 60, 100}, noteOff[3] = {0x80, 60, 0};
        input.arrived(noteOn, 3);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        input.arrived(noteOff, 3);
    });
    // A safeguard only: the test fails if the loop has to be ended this way.
    QTimer::singleShot(5000, [] { QCoreApplication::exit(1); });
    const int status = QCoreApplication::exec();
    keyboard.join();
    EXPECT_EQ(status, 0);
    EXPECT_EQ(taken, (std::vector<uint32_t>{0x90u | 60u << 8 | 100u << 16, 0x80u | 60u << 8}));
}

TEST(SystemMidiInput, AFullQueueDropsAndCountsRatherThanWaits) {
    SystemMidiInput input;
    const unsigned char noteOn[3] = {0x90, 60, 100};
    for (int i = 0; i < 1100; ++i) input.arrived(noteOn, 3);
    EXPECT_EQ(input.dropped(), 1100u - 1024u);
}

TEST(SystemMidiInput, WithoutASequencerThereAreNoPortsAndNothingIsPrinted) {
    if (::access("/dev/snd/seq", F_OK) == 0) GTEST_SKIP() << "this machine has an ALSA sequencer";
    ::testing::internal::CaptureStderr();
    SystemMidiInput input;
    EXPECT_TRUE(input.ports().empty());
    EXPECT_FALSE(input.connect("20:0"));
    input.disconnect();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace tessaly::audio
