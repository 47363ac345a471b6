#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "Harness.h"
#include "jianpu/JianpuLayout.h"
#include "jianpu/JianpuReading.h"
#include "jianpu/JianpuSheet.h"
#include "jianpu/JianpuText.h"

namespace tessaly {
namespace {

JianpuReading read(const std::string& score, int beats = 4) {
    JianpuStart start;
    start.beatsPerBar = beats;
    return readJianpu(score, start);
}

// The music of the text export, without its three heading lines: the
// columns as a reader writes them, which is what the layout places.
std::string music(const std::string& score, int beats = 4) {
    std::string text = jianpuText(read(score, beats));
    for (int i = 0; i < 3; ++i) text.erase(0, text.find('\n') + 1);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

std::vector<const JianpuGlyph*> glyphs(const JianpuLayout& layout, JianpuRole role) {
    std::vector<const JianpuGlyph*> out;
    for (const JianpuGlyph& g : layout.glyphs)
        if (g.role == role) out.push_back(&g);
    return out;
}

TEST(JianpuReading, DemonstrationScoresFirstLines) {
    EXPECT_EQ(music("KC8KCKGKGKAKAKG16KF8KFKEKEKDKDKC16"), "1 1 5 5 | 6 6 5 - | 4 4 3 3 | 2 2 1 - |");
    // The dotted crotchet crosses a beat: a crotchet tied to a quaver.
    EXPECT_EQ(music("KE8KEKFKGKGKFKEKDKCKCKDKEKE12KD4KD16"), "3 3 4 5 | 5 4 3 2 | 1 1 2 3 | 3~ q3 q2 2 - |");
    EXPECT_EQ(music("YQ1VS5JP1XZ8KE8KE4KGKAHCHCKAKG8KG4KAKG16"),
              "^\"乐器组1\" ^\"节奏1\" 0 3 q3 q5 q6 q1' | q1' q6 5 q5 q6 5~ | 5");
    EXPECT_EQ(music("VS5KG8KE4KGHC16KA8HCKG16KG8KC4KDKE8KD4KCKD32"),
              "5 q3 q5 1' - | 6 1' 5 - | 5 q1 q2 3 q2 q1 | 2 - - - |");
    // Tempo 5 of the list is 60; commands before the first note make the heading.
    JianpuReading jasmine = read("YQ1VS5JP1XZ8KE8TZ");
    EXPECT_EQ(jasmine.tempo, 60);
    EXPECT_EQ(jianpuText(jasmine).substr(0, 13), "1=C\n4/4\n4=60\n");
}

TEST(JianpuReading, LiveTakeWithOddDurationsIsCutAtBeatsAndBars) {
    EXPECT_EQ(music("KC7KD10KE22KF2TZ"), "q1.~ d1 d2~ 2~ d2 q3.~ d3~ 3~ | q3.~ d3 d4~ d4 ||");
    // While a take is being written its last note has no duration yet: it keeps the one before.
    JianpuReading live = read("KC8KD4KE");
    ASSERT_EQ(live.events.size(), 3u);
    EXPECT_EQ(live.events[2].ticks, 4);
    EXPECT_EQ(live.events[2].from, 6);
    EXPECT_EQ(live.events[2].to, 8);
    EXPECT_FALSE(live.error);
    EXPECT_EQ(music("kc8kd4ke"), "1 q2 q3");
}

TEST(JianpuReading, RegistersRestsAndTies) {
    EXPECT_EQ(music("LC8WCKCHCMC8TZ"), "1,, 1, 1 1' | 1'' ||");
    EXPECT_EQ(music("LB4MG4TZ"), "q7,, q5'' ||");
    // Rests of more than a beat repeat the 0; rests are never tied.
    EXPECT_EQ(music("XZ1KC7XZ8XZ20KC4TZ"), "d0 q1.~ d1 0 0 0 | q0 q1 ||");
    EXPECT_EQ(music("KC16KD16KE16TZ", 3), "1 - 2~ | 2 3 - ||");
    EXPECT_EQ(music("KE12KD4TZ"), "3~ q3 q2 ||");
    EXPECT_EQ(music("KC40TZ", 2), "1 -~ | 1 -~ | 1 ||");
}

TEST(JianpuReading, KeyAndTempoChangesInsideTheScore) {
    JianpuReading r = read("YD3KC8YD4KD8VS9KE16YD12KF8TZ");
    EXPECT_EQ(r.keyIndex, 2);  // "D", from the command before the first note
    EXPECT_EQ(music("YD3KC8YD4KD8VS9KE16YD12KF8TZ"), "1 1=bE 2 4=80 3 - | 4 ||");
}

TEST(JianpuReading, StopsWhereThePlayerStops) {
    JianpuReading unknown = read("KC8KDQQ4TZ");
    ASSERT_TRUE(unknown.error);
    EXPECT_EQ(unknown.events.size(), 2u);
    EXPECT_EQ(unknown.error->from, 5);
    EXPECT_EQ(unknown.error->text, "QQ4");
    EXPECT_NE(unknown.error->message.find("乐谱中出现错误，请修改！"), std::string::npos);
    // A note after a command has lost its kept duration: the player never reads on.
    JianpuReading held = read("KC8YD3KDTZ");
    ASSERT_TRUE(held.error);
    EXPECT_EQ(held.error->from, 6);
    ASSERT_EQ(held.events.size(), 2u);
    EXPECT_EQ(held.events[1].kind, JianpuEventKind::Key);
    // A VS out of the list's range leaves its number as the duration.
    EXPECT_EQ(music("KC8VS30KDTZ"), "1 2 - -~ | q2. ||");
    ASSERT_TRUE(read("KC4KD8").error);
    EXPECT_EQ(read("KC4KD8").error->from, 3);
    EXPECT_TRUE(read("YQ14KC8TZ").error);
    EXPECT_TRUE(read("MA8TZ").error);  // no such note
    EXPECT_EQ(read(std::string(32768, 'X')).error->from, 0);
    // What follows TZ is not played.
    EXPECT_EQ(read("KC8TZQQ").events.size(), 1u);
    EXPECT_FALSE(read("KC8TZQQ").error);
}

struct PlayedNote {
    int note;
    uint32_t at;
};

// The player's own reading: the notes it starts on channel 0 and when.
std::vector<PlayedNote> played(const std::string& score) {
    testing::Harness h;
    h.midiPort.take();
    h.app->form1.Text3.setText(score);
    h.app->form1.Yuepu[0].userClick();
    h.loop.advance(20000);
    std::vector<PlayedNote> out;
    for (const RecordedMidi& m : h.midiPort.take())
        if ((m.message & 0xFF) == 0x90 && ((m.message >> 16) & 0xFF) > 0)
            if (out.empty() || out.back().at != m.timeMs) out.push_back({static_cast<int>((m.message >> 8) & 0xFF), m.timeMs});
    return out;
}

TEST(JianpuReading, AgreesWithThePlayer) {
    // Tempo 70 (the list's start): 107 ms a tick.
    for (const std::string score : {"KC8KDKE4WG12XZ6HA2KE7TZ", "KC4YQ2KD4JP99KE3KF5TZ", "KC8KD4KE"}) {
        SCOPED_TRACE(score);
        const std::vector<PlayedNote> notes = played(score);
        const JianpuReading reading = read(score);
        std::vector<int> starts;
        int tick = 0;
        for (const JianpuEvent& e : reading.events) {
            if (e.kind == JianpuEventKind::Note) starts.push_back(tick);
            if (e.kind == JianpuEventKind::Note || e.kind == JianpuEventKind::Rest) tick += e.ticks;
        }
        ASSERT_EQ(notes.size(), starts.size());
        for (std::size_t i = 1; i < notes.size(); ++i)
            EXPECT_EQ(notes[i].at - notes[0].at, static_cast<uint32_t>((starts[i] - starts[0]) * 107)) << i;
    }
}

TEST(JianpuLayout, DotsUnderlinesAndBarLinesStandWhereAReaderLooksForThem) {
    const JianpuLayout layout = layoutJianpu(read("WC2WD2KE4HC8MD8LA8KC8TZ"), {});
    auto digits = glyphs(layout, JianpuRole::Digit);
    ASSERT_EQ(digits.size(), 7u);
    // Two underlines join the two semiquavers; one runs on under the quaver.
    std::vector<JianpuRule> under;
    for (const JianpuRule& r : layout.rules)
        if (r.y1 == r.y2) under.push_back(r);
    ASSERT_EQ(under.size(), 2u);
    EXPECT_LT(under[0].x1, digits[0]->x);
    EXPECT_GT(under[0].x2, digits[2]->x);
    EXPECT_GT(under[1].x2, digits[1]->x);
    EXPECT_LT(under[1].x2, digits[2]->x);
    // The low dots sit under the underlines, the high ones over the digit.
    auto dotsOf = [&](int event) {
        std::vector<JianpuDotMark> out;
        for (const JianpuDotMark& d : layout.dots)
            if (d.event == event) out.push_back(d);
        return out;
    };
    ASSERT_EQ(dotsOf(0).size(), 1u);
    EXPECT_GT(dotsOf(0)[0].y, under[1].y1);
    ASSERT_EQ(dotsOf(3).size(), 1u);
    EXPECT_LT(dotsOf(3)[0].y, digits[3]->y - 0.7f);
    ASSERT_EQ(dotsOf(4).size(), 2u);
    ASSERT_EQ(dotsOf(5).size(), 2u);
    EXPECT_GT(std::min(dotsOf(5)[0].y, dotsOf(5)[1].y), digits[5]->y);
    // One bar line after the first bar, a double bar at TZ.
    EXPECT_EQ(layout.rules.size() - under.size(), 3u);
    EXPECT_EQ(layout.barCount, 2);
}

TEST(JianpuLayout, TieOverTheBarLineAndLinesWrapAtBars) {
    const JianpuLayout tie = layoutJianpu(read("KC16KD16KE16TZ", 3), {});
    ASSERT_EQ(tie.arcs.size(), 1u);
    const float barX = tie.rules.front().x1;
    EXPECT_LT(tie.arcs[0].x1, barX);
    EXPECT_GT(tie.arcs[0].x2, barX);

    std::string score;
    for (int i = 0; i < 40; ++i) score += "KC8KD8KE8KF8";
    JianpuLayoutOptions narrow;
    narrow.width = 24;
    const JianpuLayout wrapped = layoutJianpu(read(score + "TZ"), narrow);
    EXPECT_EQ(wrapped.barCount, 40);
    EXPECT_GT(wrapped.lineTops.size(), 10u);
    for (const JianpuGlyph& g : wrapped.glyphs) EXPECT_LT(g.x, narrow.width);
    // Every line begins with a bar's first note.
    for (float top : wrapped.lineTops) {
        auto first = std::find_if(wrapped.glyphs.begin(), wrapped.glyphs.end(),
                                  [&](const JianpuGlyph& g) { return g.role == JianpuRole::Digit && g.y > top && g.y < top + wrapped.lineHeight; });
        ASSERT_NE(first, wrapped.glyphs.end());
        EXPECT_EQ(first->text, "1");
    }
}

TEST(JianpuLayout, HeadingMarksAndError) {
    JianpuLayoutOptions titled;
    titled.title = "茉莉花";
    const JianpuLayout layout = layoutJianpu(read("YD4VS5KC8YQ3JP2KD8VS9JP99KE8YD5KF8QQ"), titled);
    ASSERT_EQ(glyphs(layout, JianpuRole::Title).size(), 1u);
    EXPECT_EQ(glyphs(layout, JianpuRole::Heading)[0]->text, "1=bE  4/4  ♩=60");
    std::vector<std::string> marks;
    for (const JianpuGlyph* g : glyphs(layout, JianpuRole::Mark)) marks.push_back(g->text);
    EXPECT_EQ(marks, (std::vector<std::string>{"乐器组3", "节奏2", "♩=80", "节奏停"}));
    ASSERT_EQ(glyphs(layout, JianpuRole::KeyChange).size(), 1u);
    EXPECT_EQ(glyphs(layout, JianpuRole::KeyChange)[0]->text, "1=E");
    ASSERT_EQ(glyphs(layout, JianpuRole::ErrorToken).size(), 1u);
    EXPECT_GT(glyphs(layout, JianpuRole::ErrorToken)[0]->x, glyphs(layout, JianpuRole::Digit).back()->x);
    EXPECT_EQ(layout.errorMessage.rfind("第 35 个字符：", 0), 0u);
}

bool sameLayout(const JianpuLayout& a, const JianpuLayout& b) {
    auto glyphKey = [](const JianpuGlyph& g) { return std::tuple(g.x, g.y, g.size, g.text, g.role, g.event); };
    auto dotKey = [](const JianpuDotMark& d) { return std::tuple(d.x, d.y, d.event); };
    auto ruleKey = [](const JianpuRule& r) { return std::tuple(r.x1, r.y1, r.x2, r.y2); };
    auto arcKey = [](const JianpuArc& r) { return std::tuple(r.x1, r.x2, r.y); };
    auto same = [](const auto& x, const auto& y, auto key) {
        return x.size() == y.size() && std::equal(x.begin(), x.end(), y.begin(), [&](const auto& p, const auto& q) {
                   return key(p) == key(q);
               });
    };
    return same(a.glyphs, b.glyphs, glyphKey) && same(a.dots, b.dots, dotKey) && same(a.rules, b.rules, ruleKey) &&
           same(a.arcs, b.arcs, arcKey) && a.lineTops == b.lineTops && a.height == b.height &&
           a.errorMessage == b.errorMessage && a.barCount == b.barCount;
}

// The sheet lays out only the end of a growing take: it must come out as a
// whole layout of the same text would, note after note, whatever the text.
TEST(JianpuSheet, GrowingTakeLaysOutAsTheWholeText) {
    const std::string take = "JP3KC8KD6WG10HA2KE22XZ4YD3MD7LA16VS9KF12YQ2KGKE3XZ1QQ4KC8TZ";
    JianpuLayoutOptions options;
    options.width = 16;
    JianpuSheet sheet;
    JianpuStart start;
    start.beatsPerBar = 3;
    for (std::size_t n = 1; n <= take.size(); ++n) {
        const std::string text = take.substr(0, n);
        SCOPED_TRACE(text);
        const JianpuLayout& grown = sheet.update(text, start, options);
        ASSERT_TRUE(sameLayout(grown, layoutJianpu(readJianpu(text, start), options)));
    }
    EXPECT_EQ(sheet.eventAt(3), 1);   // KC8's "C"
    EXPECT_EQ(sheet.eventAt(0), -1);  // JP3 is no note
}

// A long held note re-read as one without duration leaves its bar narrower:
// that bar moves back to the end of the line before, as in a whole layout.
TEST(JianpuSheet, ABarThatNarrowsMovesBackToTheLineBefore) {
    JianpuLayoutOptions options;
    options.width = 27;
    JianpuStart start;
    start.beatsPerBar = 4;
    JianpuSheet sheet;
    sheet.update("XZ8KEKG88KE", start, options);
    const std::string text = "XZ8KEKG88KE0c";
    EXPECT_TRUE(sameLayout(sheet.update(text, start, options), layoutJianpu(readJianpu(text, start), options)));
}

}  // namespace
}  // namespace tessaly
