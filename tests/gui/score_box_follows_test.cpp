#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QtTest/QTest>

#include "ViewedInstrument.h"

using namespace tessaly;
using tessaly::testing::ViewedInstrument;

namespace {

bool holdsNoteOn(const std::vector<RecordedMidi>& sent) {
    for (const RecordedMidi& m : sent)
        if ((m.message & 0xF0) == 0x90 && ((m.message >> 16) & 0xFF) != 0) return true;
    return false;
}

std::string longScore() {
    std::string score;
    for (int i = 0; i < 2000; ++i) score += "KC8";
    return score;
}

}  // namespace

// The box's document takes the note (and lays it out) only after the key's
// handler has sent the note-on, and not at the event loop's next pass either,
// and then shows the same text the model holds.
TEST(ScoreBoxFollows, TheNoteOnIsSentBeforeTheBoxTakesTheNote) {
    ViewedInstrument v;
    auto& box = v.widget<QPlainTextEdit>(v.form.Text3);
    v.form.Text3.setText(longScore());
    tessaly::testing::settleTextBoxes();
    v.midi();

    std::vector<bool> noteOnSentAtChange;
    QObject::connect(box.document(), &QTextDocument::contentsChange, &box,
                     [&] { noteOnSentAtChange.push_back(holdsNoteOn(v.h.midiPort.sent())); });
    QTest::keyPress(&v.widget(v.form.SFYXYZ), Qt::Key_G);
    EXPECT_TRUE(holdsNoteOn(v.h.midiPort.sent()));
    EXPECT_TRUE(noteOnSentAtChange.empty()) << "the box changed inside the key's handler";
    QApplication::processEvents();
    EXPECT_TRUE(noteOnSentAtChange.empty()) << "the box took the note before the synthesizer had a period";

    tessaly::testing::settleTextBoxes();
    ASSERT_FALSE(noteOnSentAtChange.empty());
    for (bool sent : noteOnSentAtChange) EXPECT_TRUE(sent);
    EXPECT_EQ(box.toPlainText().toStdString(), v.form.Text3.text());
    EXPECT_TRUE(v.form.Text3.text().ends_with("KC"));
}

// Growth at the end is appended; anything else (the audition's upper case, a
// cleared box, a CR LF split between two changes) shows the model's text whole.
TEST(ScoreBoxFollows, EveryKindOfChangeEndsAsTheModelsText) {
    ViewedInstrument v;
    auto& box = v.widget<QPlainTextEdit>(v.form.Text3);
    auto settle = [&] {
        tessaly::testing::settleTextBoxes();
        return box.toPlainText();
    };
    v.form.Text3.setText("kc8");
    EXPECT_EQ(settle(), "kc8");
    v.form.Text3.setText("kc8kd");
    v.form.Text3.setText("kc8kd4ke");  // two changes before the widget catches up
    EXPECT_EQ(settle(), "kc8kd4ke");
    v.form.Text3.setText("KC8KD4KE");
    EXPECT_EQ(settle(), "KC8KD4KE");
    v.form.Text3.setText("KC8\r");
    v.form.Text3.setText("KC8\r\nKD");
    EXPECT_EQ(settle(), "KC8\nKD");
    v.form.Text3.setText("");
    EXPECT_EQ(settle(), "");
    // The selection the model asks for is shown once the text is there.
    v.form.Text3.setText("KC8KD8");
    v.form.Text3.setSelStart(3);
    v.form.Text3.setSelLength(3);
    settle();
    EXPECT_EQ(box.textCursor().selectedText(), "KD8");
    // Notes the program wrote are not the user's to undo.
    EXPECT_FALSE(box.document()->isUndoAvailable());
}
