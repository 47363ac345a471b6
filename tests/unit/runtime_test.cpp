#include <gtest/gtest.h>

#include "runtime/Arithmetic.h"
#include "runtime/ChunkedTable.h"
#include "runtime/FixedTable.h"
#include "runtime/Text.h"

using namespace tessaly;

TEST(FixedTable, IndexOutsideBoundsIsFatalNotUndefined) {
    FixedTable<int, 0, 9999> steps;
    steps[9999] = 7;
    EXPECT_EQ(steps[9999], 7);
    EXPECT_THROW(steps[10000], FatalFailure);
    EXPECT_THROW(steps[-1], FatalFailure);

    FixedTable<int, 1, 16> fromOne;
    EXPECT_THROW(fromOne[0], FatalFailure);
    fromOne[16] = 3;
    EXPECT_EQ(fromOne[16], 3);

    FixedTable2<int, 0, 12, 0, 2> sets;
    sets(12, 2) = 5;
    EXPECT_EQ(sets[12][2], 5);
    EXPECT_THROW(sets(13, 0), FatalFailure);
    EXPECT_THROW(sets(0, 3), FatalFailure);
    try {
        steps[10000];
    } catch (const FatalFailure& f) {
        EXPECT_EQ(f.kind(), FailureKind::SubscriptOutOfRange);
    }
}

TEST(Arithmetic, SixteenBitOverflowIsFatal) {
    EXPECT_EQ(multiply16(127, 256), 32512);
    EXPECT_THROW(multiply16(128, 256), FatalFailure);
    EXPECT_EQ(multiply16(-128, 256), -32768);
    EXPECT_THROW(toInt16(32768), FatalFailure);
    EXPECT_EQ(toInt16(-32768), -32768);
    EXPECT_THROW(roundToInt16(40000.0), FatalFailure);
}

TEST(Arithmetic, HalvesRoundToTheEvenNeighbour) {
    EXPECT_EQ(roundHalfEven(2.5), 2.0);
    EXPECT_EQ(roundHalfEven(3.5), 4.0);
    EXPECT_EQ(roundHalfEven(-2.5), -2.0);
    EXPECT_EQ(roundHalfEven(2.5000001), 3.0);
    // 7500 / tempo: 7500/120 = 62.5 -> 62, 7500/70 = 107.14 -> 107, 7500/40 = 187.5 -> 188
    EXPECT_EQ(roundToInt16(7500.0 / 120), 62);
    EXPECT_EQ(roundToInt16(7500.0 / 70), 107);
    EXPECT_EQ(roundToInt16(7500.0 / 40), 188);
}

TEST(Text, NumericValueIsTolerant) {
    EXPECT_EQ(numericValue(" 89 "), 89);
    EXPECT_EQ(numericValue("1 2 3"), 123);
    EXPECT_EQ(numericValue("70abc"), 70);
    EXPECT_EQ(numericValue("abc"), 0);
    EXPECT_EQ(numericValue(""), 0);
    EXPECT_EQ(numericValue("-12.5e1x"), -125);
    EXPECT_EQ(numericValue("&HFF"), 255);
    EXPECT_EQ(numericValue("&HFFFF"), -1);
    EXPECT_EQ(numericValue("&o17"), 15);
    EXPECT_EQ(numericValue("1e"), 1);
    EXPECT_EQ(numericValue("--5"), 0);
}

TEST(Text, NumberAndHexTextForms) {
    EXPECT_EQ(numberText(1LL), " 1");
    EXPECT_EQ(numberText(0LL), " 0");
    EXPECT_EQ(numberText(-5LL), "-5");
    EXPECT_EQ(numberText(0.5), " .5");
    EXPECT_EQ(numberText(-1.25), "-1.25");
    EXPECT_EQ(hexText(255), "FF");
    EXPECT_EQ(hexText(-1), "FFFF");
    EXPECT_EQ(hexText(-40000), "FFFF63C0");
}

TEST(Text, CountsCharactersNotBytes) {
    std::string text = "中音KC";
    EXPECT_EQ(charLength(text), 4u);
    EXPECT_EQ(charSubstr(text, 1, 2), "音K");
    EXPECT_EQ(charSubstr(text, 3), "C");
    EXPECT_EQ(charSubstr(text, 9), "");
    EXPECT_EQ(byteOffsetOfChar(text, 2), 6u);
}

TEST(ChunkedTable, BoundsAreFixedWhileStorageGrowsAndStaysPut) {
    ChunkedTable2<std::string, 9999, 16> tokens;
    std::string& first = tokens(0, 0);
    first = "KC";
    EXPECT_EQ(tokens(9999, 16), "");  // untouched entries read as empty
    tokens(9999, 16) = "O";
    // Touching far rows made new chunks; the first entry did not move.
    EXPECT_EQ(&first, &tokens(0, 0));
    EXPECT_EQ(tokens(0, 0), "KC");
    EXPECT_THROW(tokens(10000, 0), FatalFailure);
    EXPECT_THROW(tokens(0, 17), FatalFailure);
    EXPECT_THROW(tokens(-1, 0), FatalFailure);
    ChunkedTable2<int16_t, 9999, 16> codes;
    EXPECT_EQ(codes(5000, 3), 0);
}

TEST(Text, ExactNumericValueTakesOnlyANumber) {
    EXPECT_EQ(exactNumericValue(" 12 "), 12.0);
    EXPECT_EQ(exactNumericValue("-3.5"), -3.5);
    EXPECT_EQ(exactNumericValue("1E2"), 100.0);
    EXPECT_EQ(exactNumericValue("&H1F"), 31.0);
    EXPECT_EQ(exactNumericValue(".5"), 0.5);
    for (const char* text : {"", "   ", "abc", "12abc", "1 2", "-", "1E", "&H", "&HG", "0x10", "inf", "nan"})
        EXPECT_FALSE(exactNumericValue(text)) << text;
}
