#include <gtest/gtest.h>

#include <QProcess>
#include <QtTest/QTest>

#include "ViewedInstrument.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

namespace {

void xdotool(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    ASSERT_TRUE(process.waitForFinished(5000)) << arguments.join(' ').toStdString();
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
}

int noteOns(const std::vector<std::string>& midi) {
    int count = 0;
    for (const std::string& line : midi)
        if (line.find(" 144 ") != std::string::npos || line.find(" 145 ") != std::string::npos ||
            line.find(" 146 ") != std::string::npos)
            ++count;
    return count;
}

}  // namespace

// The X server repeats a held key as release and press pairs, which Qt marks
// as repeats only when the press is already queued: three keys held for two
// seconds each must sound once each and write one token each.
TEST(HeldKey, ARealHeldKeyPlaysOnceAndWritesOneToken) {
    ViewedInstrument v;
    v.view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&v.view));
    xdotool({"windowfocus", "--sync", QString::number(v.view.winId())});
    QTest::qWait(300);
    ASSERT_TRUE(v.widget(v.form.SFYXYZ).hasFocus());
    v.midi();

    for (const char* key : {"g", "h", "j"}) {
        xdotool({"keydown", key});
        QTest::qWait(2000);
        xdotool({"keyup", key});
        QTest::qWait(300);
    }

    EXPECT_EQ(v.score(), "KC0KD0KE");  // virtual time stands still: no ticks between the notes
    // each note on channels 0 and 1, and twice on channel 2
    EXPECT_EQ(noteOns(v.midi()), 3 * 4);
    for (int offset : {24, 26, 28}) EXPECT_EQ(v.keyPicture(offset), kWhiteKeyUp) << offset;
}
