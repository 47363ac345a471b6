#include <gtest/gtest.h>

#include <QtCore/qnamespace.h>
#include <vector>

#include "ui/KeyTranslation.h"
#include "ui/PhysicalKeys.h"

using namespace tessaly;

namespace {

struct Key {
    uint32_t scan;  // X11 key code of the position
    int vk;         // the code of the US key there
};

void expectKeys(const std::vector<Key>& keys) {
    for (Key k : keys) EXPECT_EQ(virtualKeyFromScanCode(k.scan), k.vk) << "scan code " << k.scan;
}

}  // namespace

TEST(PhysicalKeys, TheFiveRowsOfNoteKeysOnAUsKeyboard) {
    expectKeys({{15, 54}, {16, 55}, {17, 56}, {18, 57}, {19, 48}, {20, 189}, {21, 187}});   // 6 7 8 9 0 - =
    expectKeys({{28, 84}, {29, 89}, {30, 85}, {31, 73}, {32, 79}, {33, 80}, {34, 219}});    // T Y U I O P [
    expectKeys({{42, 71}, {43, 72}, {44, 74}, {45, 75}, {46, 76}, {47, 186}, {48, 222}});   // G H J K L ; '
    expectKeys({{55, 86}, {56, 66}, {57, 78}, {58, 77}, {59, 188}, {60, 190}, {61, 191}});  // V B N M , . /
    expectKeys({{10, 49}, {11, 50}, {12, 51}, {13, 52}, {14, 53}});                         // 1 2 3 4 5
}

TEST(PhysicalKeys, LettersFunctionKeysNavigationAndControlKeys) {
    // Instrument quick keys and tonality keys: Q W E R, A S D F, Z X C.
    expectKeys({{24, 81}, {25, 87}, {26, 69}, {27, 82}, {38, 65}, {39, 83}, {40, 68}, {41, 70}, {52, 90}, {53, 88},
                {54, 67}});
    for (int i = 0; i < 10; ++i) EXPECT_EQ(virtualKeyFromScanCode(67u + static_cast<uint32_t>(i)), 112 + i);
    expectKeys({{95, 122}, {96, 123}});
    // Insert Home PageUp Delete End PageDown, Space, Backspace, both Shift keys.
    expectKeys({{118, 45}, {110, 36}, {112, 33}, {119, 46}, {115, 35}, {117, 34}, {65, 32}, {22, 8}, {50, 16}, {62, 16}});
    EXPECT_EQ(virtualKeyFromScanCode(0), 0);
    EXPECT_EQ(virtualKeyFromScanCode(255), 0);
    EXPECT_EQ(virtualKeyFromScanCode(100000), 0);
}

TEST(PhysicalKeys, KeypadGivesItsCodesWhateverNumLock) {
    // The position is the same with NumLock on or off; only the symbol differs.
    expectKeys({{90, 96}, {87, 97}, {88, 98}, {89, 99}, {83, 100}, {84, 101}, {85, 102}, {79, 103}, {80, 104},
                {81, 105}, {91, 110}, {86, 107}, {82, 109}});
    // Without a scan code: the keypad's symbols with NumLock on and off.
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_7, true), 103);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_Home, true), 103);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_0, true), 96);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_Insert, true), 96);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_Period, true), 110);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_Delete, true), 110);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_Plus, true), 107);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_Minus, true), 109);
    // The same symbols off the keypad are other keys.
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_Home, false), 36);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_7, false), 55);
    EXPECT_EQ(virtualKeyFromQtKey(Qt::Key_Minus, false), 189);
}

TEST(PhysicalKeys, OtherLayoutsPlayTheUsPositions) {
    // German: Z and Y change places; ß and ´ stand where - and = are.
    EXPECT_EQ(virtualKeyOf(29, Qt::Key_Z, false), 89);
    EXPECT_EQ(virtualKeyOf(52, Qt::Key_Y, false), 90);
    EXPECT_EQ(virtualKeyOf(20, Qt::Key_ssharp, false), 189);
    EXPECT_EQ(virtualKeyOf(47, Qt::Key_Odiaeresis, false), 186);
    // French: A/Q and Z/W change places, M stands at ; and ; at the US comma.
    EXPECT_EQ(virtualKeyOf(24, Qt::Key_A, false), 81);
    EXPECT_EQ(virtualKeyOf(38, Qt::Key_Q, false), 65);
    EXPECT_EQ(virtualKeyOf(25, Qt::Key_Z, false), 87);
    EXPECT_EQ(virtualKeyOf(52, Qt::Key_W, false), 90);
    EXPECT_EQ(virtualKeyOf(47, Qt::Key_M, false), 186);
    EXPECT_EQ(virtualKeyOf(58, Qt::Key_Comma, false), 77);
    EXPECT_EQ(virtualKeyOf(59, Qt::Key_Semicolon, false), 188);
    // The French digit row types symbols unshifted: the position still gives the digit.
    EXPECT_EQ(virtualKeyOf(15, Qt::Key_Minus, false), 54);
    EXPECT_EQ(virtualKeyOf(10, Qt::Key_Ampersand, false), 49);
}

TEST(PhysicalKeys, WithoutAScanCodeTheQtKeyDecidesByUsSymbols) {
    EXPECT_EQ(virtualKeyOf(0, Qt::Key_G, false), 71);
    struct Case {
        int qtKey, vk;
    };
    for (Case c : {Case{Qt::Key_Equal, 187}, {Qt::Key_Plus, 187}, {Qt::Key_BracketLeft, 219}, {Qt::Key_BraceLeft, 219},
                   {Qt::Key_Semicolon, 186}, {Qt::Key_Colon, 186}, {Qt::Key_Apostrophe, 222}, {Qt::Key_QuoteDbl, 222},
                   {Qt::Key_Comma, 188}, {Qt::Key_Less, 188}, {Qt::Key_Period, 190}, {Qt::Key_Slash, 191},
                   {Qt::Key_Question, 191}, {Qt::Key_ParenRight, 48}, {Qt::Key_Exclam, 49}, {Qt::Key_Space, 32},
                   {Qt::Key_Backspace, 8}, {Qt::Key_Shift, 16}, {Qt::Key_F1, 112}, {Qt::Key_F12, 123},
                   {Qt::Key_PageDown, 34}, {Qt::Key_Eacute, 0}})
        EXPECT_EQ(virtualKeyOf(0, c.qtKey, false), c.vk) << std::hex << c.qtKey;
    // A scan code the table does not know leaves the decision to the Qt key.
    EXPECT_EQ(virtualKeyOf(200, Qt::Key_H, false), 72);
}

TEST(PhysicalKeys, ShiftMaskBits) {
    EXPECT_EQ(shiftMask(true, false, false), 1);
    EXPECT_EQ(shiftMask(false, true, false), 2);
    EXPECT_EQ(shiftMask(true, true, true), 7);
}
