#include <gtest/gtest.h>

#include <deque>
#include <fstream>
#include <map>

#include "ChordHarness.h"

namespace tessaly {
namespace {

using testing::ChordHarness;
using Lines = std::vector<std::string>;

// A page whose pattern file and random numbers the test decides.
struct PageHarness : ChordHarness {
    std::deque<double> numbers;
    int draws = 0;

    PageHarness() {
        app->chordPageHandlers.draw.uniform = [this] {
            ++draws;
            double x = numbers.empty() ? 0.0 : numbers.front();
            if (!numbers.empty()) numbers.pop_front();
            return x;
        };
    }
    void patternFile(const std::string& text) const {
        std::ofstream(appDir / "HxJzMx.txt", std::ios::binary) << text;
    }
};

TEST(ChordPage, TheDrawGivesBothEndsHalfTheWeight) {
    PageHarness h;
    std::map<long, int> counts;
    for (int i = 0; i < 1200; ++i) {
        h.numbers = {(i + 0.5) / 1200};
        ++counts[h.app->chordPageHandlers.draw.draw(13)];
    }
    EXPECT_EQ(counts.size(), 13u);
    EXPECT_EQ(counts[1], 50);
    EXPECT_EQ(counts[7], 100);
    EXPECT_EQ(counts[13], 50);

    // The clock-seeded generator stays in range and reaches both ends.
    ChordDraw clockDraw(h.loop);
    std::map<long, int> seen;
    for (int i = 0; i < 2000; ++i) {
        if (i % 3 == 0) h.loop.advance(1);
        ++seen[clockDraw.draw(13)];
    }
    EXPECT_EQ(seen.size(), 13u);
    EXPECT_EQ(seen.begin()->first, 1);
    EXPECT_EQ(seen.rbegin()->first, 13);
}

TEST(ChordPage, StartUpDrawsTheOrderThenEachFigureUnderItsLock) {
    PageHarness h;
    h.patternFile("LC------LC------\r\nWC------WC------\r\nKC------KC------\r\n");
    h.numbers = {0.0, 0.99, 0.0, 0.5};  // order 1; lines 3, 1, 2
    h.app->chordPageHandlers.CSHX();
    EXPECT_EQ(h.page.Text6.text(), "145");
    EXPECT_EQ(h.s.ChordCount, 3);
    EXPECT_EQ(h.chords.ChordDegrees[2], 4);
    EXPECT_EQ(h.page.Text5.text(), "KC------KC------");
    EXPECT_EQ(h.page.Text4.text(), "LC------LC------");
    EXPECT_EQ(h.page.Text2.text(), "LC------LC------KC------KC------");
    EXPECT_EQ(h.page.Text7.text(), "WC------WC------");
    EXPECT_EQ(h.chords.ChordStepTable(8, 1), 5);  // LC of degree 4, rebuilt

    // Locked figures stay, yet every draw is made; the order is always new.
    h.page.Check4.setValue(1);
    h.page.Check7.setValue(1);
    h.page.Check9.setValue(1);
    h.draws = 0;
    h.numbers = {1.0 - 1e-9, 0.0, 0.0, 0.0};
    h.s.StepsPerChord = 6;
    h.page.Command3.userClick();
    EXPECT_EQ(h.draws, 4);
    EXPECT_EQ(h.page.Text6.text(), "15634325");
    EXPECT_EQ(h.s.StepsPerChord, 8);
    EXPECT_EQ(h.page.Text4.text(), "LC------LC------");
    EXPECT_EQ(h.page.Text5.text(), "KC------KC------");
    EXPECT_EQ(h.chords.SavedPatterns[2], "KC------KC------");
}

TEST(ChordPage, AnOrderOfMoreThanNineDigitsIsRefusedAndNothingChanges) {
    PageHarness h;
    h.page.Text6.setText("1645");
    h.page.Text6.setFocus();
    h.app->form1.SFYXYZ.setFocus();
    ASSERT_EQ(h.s.ChordCount, 4);
    h.log.take();

    for (const char* typed : {"1234567123", "12345678x9ab"}) {
        h.page.Text6.setFocus();
        h.page.Text6.setText(typed);
        h.app->form1.SFYXYZ.setFocus();
        EXPECT_EQ(h.log.take(), (Lines{std::string("box 提示|") + kOrderTooLong})) << typed;
        EXPECT_EQ(h.page.Text6.text(), "1645");
        EXPECT_EQ(h.s.ChordCount, 4);
        EXPECT_EQ(h.s.TotalChordSteps, 32);
    }
    // The steps can still be rebuilt: the tab and the audition go on working.
    h.app->form1.Xxk[1].userClick();
    h.page.Check6.userClick();
    EXPECT_EQ(h.page.Check6.caption(), "停止");

    // An empty order is accepted: no steps at all.
    h.page.Text6.setFocus();
    h.page.Text6.setText("");
    h.app->form1.SFYXYZ.setFocus();
    EXPECT_EQ(h.s.ChordCount, 0);
    EXPECT_EQ(h.s.TotalChordSteps, 0);
}

TEST(ChordPage, FiguresArePaddedAndOnlyLayersOneAndThreeRewriteText2) {
    PageHarness h;
    h.page.Text2.setText("unchanged");
    h.page.Text5.setFocus();
    h.page.Text5.setText("cc cc");
    h.page.Text7.setFocus();
    EXPECT_EQ(h.page.Text5.text(), "CC-CC-----------");
    EXPECT_EQ(h.page.Text2.text(), "unchanged");
    h.page.Text7.setText("wc");
    h.app->form1.SFYXYZ.setFocus();
    EXPECT_EQ(h.page.Text7.text(), "WC--------------");
    EXPECT_EQ(h.page.Text2.text(), h.page.Text4.text() + "CC-CC-----------");
    EXPECT_EQ(h.chords.SavedPatterns[3], "WC--------------");
}

// The rhythm page's metre: 3/4 keeps the last 12 characters and six steps a
// chord; 4/4 brings the whole remembered figures back.
TEST(ChordPage, TheMetreCutsTheFiguresAndGivesThemBack) {
    PageHarness h;
    h.figures("LGWCWEWGKCKEKGHC", "CC--CC--CC--CC--", "CL--------------");
    h.page.Text4.setFocus();
    h.app->form1.SFYXYZ.setFocus();  // the figures are remembered
    h.page.Text6.setText("1645");
    h.page.Text6.setFocus();
    h.app->form1.SFYXYZ.setFocus();

    h.app->chordPageHandlers.metreChanged(true);
    EXPECT_EQ(h.page.Text4.text(), "WEWGKCKEKGHC");
    EXPECT_EQ(h.page.Text7.text(), "------------");
    EXPECT_EQ(h.s.TotalChordSteps, 24);
    EXPECT_EQ(h.chords.ChordStepTable(6, 1), 24);  // chord 2 from row 6: WE of A minor
    EXPECT_EQ(h.chords.SavedPatterns[1], "LGWCWEWGKCKEKGHC");

    h.app->chordPageHandlers.metreChanged(false);
    EXPECT_EQ(h.page.Text4.text(), "LGWCWEWGKCKEKGHC");
    EXPECT_EQ(h.page.Text5.text(), "CC--CC--CC--CC--");
    EXPECT_EQ(h.s.StepsPerChord, 8);
    EXPECT_EQ(h.s.TotalChordSteps, 32);
}

// Every activation draws again from the 4/4 strides and remembers the figures.
TEST(ChordPage, EveryActivationRebuildsTheDefaults) {
    PageHarness h;
    h.patternFile("WG--KC--KG--KE--\r\n");
    h.app->chordPageHandlers.metreChanged(true);
    ASSERT_EQ(h.s.StepsPerChord, 6);
    h.numbers = {0.5};
    h.app->form1.activate();
    EXPECT_EQ(h.s.StepsPerChord, 8);
    EXPECT_EQ(h.page.Text6.text(), "1625543");
    EXPECT_EQ(h.page.Text4.text(), "WG--KC--KG--KE--");
    EXPECT_EQ(h.chords.SavedPatterns[1], "WG--KC--KG--KE--");
}

}  // namespace
}  // namespace tessaly
