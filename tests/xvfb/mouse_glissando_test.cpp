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

// The pointer goes to the middle of a key's lower half, where no black key lies over a white one.
void pointAt(QWidget& key, bool lowerHalf) {
    QPoint at = key.mapToGlobal(QPoint(key.width() / 2, lowerHalf ? key.height() * 4 / 5 : key.height() / 3));
    xdotool({"mousemove", "--sync", QString::number(at.x()), QString::number(at.y())});
    QTest::qWait(100);
}

// The note-ons and note-offs of channel 0, as "on N" and "off N".
std::vector<std::string> channelZero(const std::vector<std::string>& midi) {
    std::vector<std::string> out;
    for (const std::string& line : midi) {
        int time = 0, status = 0, note = 0, velocity = 0;
        if (std::sscanf(line.c_str(), "@%d %d %d %d", &time, &status, &note, &velocity) != 4) continue;
        if (status == 144) out.push_back("on " + std::to_string(note));
        if (status == 128) out.push_back("off " + std::to_string(note));
    }
    return out;
}

}  // namespace

// A real press on a key and a drag across the next keys sound each key in
// turn; the release leaves the last one sounding.
TEST(MouseGlissando, APressAndADragAcrossThreeKeysSoundThreeNotesInOrder) {
    ViewedInstrument v;
    v.view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&v.view));
    xdotool({"windowfocus", "--sync", QString::number(v.view.winId())});
    QTest::qWait(200);
    ASSERT_TRUE(v.form.Picture1[24].enabled());
    v.midi();

    pointAt(v.widget(v.form.Picture1[24]), true);
    xdotool({"mousedown", "1"});
    QTest::qWait(100);
    pointAt(v.widget(v.form.Picture1[25]), false);  // the black key between them
    pointAt(v.widget(v.form.Picture1[26]), true);
    xdotool({"mouseup", "1"});
    QTest::qWait(200);

    std::vector<std::string> notes = channelZero(v.midi());
    // Each movement over a key restarts it, so a note may come more than once;
    // in order they are 60, 61, 62, each stopped before the next.
    std::vector<std::string> distinct;
    for (const std::string& n : notes)
        if (n.starts_with("on ") && (distinct.empty() || distinct.back() != n)) distinct.push_back(n);
    EXPECT_EQ(distinct, (std::vector<std::string>{"on 60", "on 61", "on 62"}));
    ASSERT_FALSE(notes.empty());
    EXPECT_EQ(notes.back(), "on 62");  // the release stops nothing
    EXPECT_EQ(v.keyPicture(26), kWhiteKeyDown);
    EXPECT_EQ(v.keyPicture(25), kBlackKeyUp);
    EXPECT_EQ(v.keyPicture(24), kWhiteKeyUp);
    EXPECT_EQ(v.score(), "");  // mouse play writes nothing

    // Over the damper strip with no button held: the note stops.
    pointAt(v.widget(v.form.Label1), false);
    EXPECT_EQ(channelZero(v.midi()), (std::vector<std::string>{"off 62"}));
    EXPECT_EQ(v.keyPicture(26), kWhiteKeyUp);
}
