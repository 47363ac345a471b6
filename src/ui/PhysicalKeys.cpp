#include "ui/PhysicalKeys.h"

#include <array>

namespace tessaly {

namespace {

struct Position {
    uint8_t x11;
    uint8_t vk;
};

// X11 key code -> virtual key code of the US key at that place.
constexpr Position kPositions[] = {
    // digit row: Esc, 1..0, -, =, Backspace
    {9, 27}, {10, '1'}, {11, '2'}, {12, '3'}, {13, '4'}, {14, '5'}, {15, '6'}, {16, '7'}, {17, '8'}, {18, '9'},
    {19, '0'}, {20, 189}, {21, 187}, {22, 8},
    // upper letter row: Tab, Q..P, [, ], Enter
    {23, 9}, {24, 'Q'}, {25, 'W'}, {26, 'E'}, {27, 'R'}, {28, 'T'}, {29, 'Y'}, {30, 'U'}, {31, 'I'}, {32, 'O'},
    {33, 'P'}, {34, 219}, {35, 221}, {36, 13},
    // home row: Ctrl, A..L, ;, ', `
    {37, 17}, {38, 'A'}, {39, 'S'}, {40, 'D'}, {41, 'F'}, {42, 'G'}, {43, 'H'}, {44, 'J'}, {45, 'K'}, {46, 'L'},
    {47, 186}, {48, 222}, {49, 192},
    // lower row: Shift, \, Z../, Shift; the extra key of ISO keyboards
    {50, 16}, {51, 220}, {52, 'Z'}, {53, 'X'}, {54, 'C'}, {55, 'V'}, {56, 'B'}, {57, 'N'}, {58, 'M'}, {59, 188},
    {60, 190}, {61, 191}, {62, 16}, {94, 226},
    // Alt, Space, Caps Lock, right Ctrl and Alt
    {64, 18}, {65, 32}, {66, 20}, {105, 17}, {108, 18},
    // F1..F10, F11, F12
    {67, 112}, {68, 113}, {69, 114}, {70, 115}, {71, 116}, {72, 117}, {73, 118}, {74, 119}, {75, 120}, {76, 121},
    {95, 122}, {96, 123},
    // keypad: *, 7 8 9, -, 4 5 6, +, 1 2 3, 0, ., Enter, /, NumLock
    {63, 106}, {79, 103}, {80, 104}, {81, 105}, {82, 109}, {83, 100}, {84, 101}, {85, 102}, {86, 107}, {87, 97},
    {88, 98}, {89, 99}, {90, 96}, {91, 110}, {104, 13}, {106, 111}, {77, 144},
    // navigation block and arrows
    {110, 36}, {111, 38}, {112, 33}, {113, 37}, {114, 39}, {115, 35}, {116, 40}, {117, 34}, {118, 45}, {119, 46},
};

constexpr std::array<uint8_t, 256> buildTable() {
    std::array<uint8_t, 256> table{};
    for (Position p : kPositions) table[p.x11] = p.vk;
    return table;
}

constexpr std::array<uint8_t, 256> kTable = buildTable();

}  // namespace

int virtualKeyFromScanCode(uint32_t x11KeyCode) { return x11KeyCode < kTable.size() ? kTable[x11KeyCode] : 0; }

}  // namespace tessaly
