#include "ui/KeyTranslation.h"

#include <QtCore/qnamespace.h>

#include "ui/PhysicalKeys.h"

namespace tessaly {

namespace {

int keypadKey(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Insert: return 96;
    case Qt::Key_End: return 97;
    case Qt::Key_Down: return 98;
    case Qt::Key_PageDown: return 99;
    case Qt::Key_Left: return 100;
    case Qt::Key_Clear: return 101;
    case Qt::Key_Right: return 102;
    case Qt::Key_Home: return 103;
    case Qt::Key_Up: return 104;
    case Qt::Key_PageUp: return 105;
    case Qt::Key_Delete:
    case Qt::Key_Period:
    case Qt::Key_Comma: return 110;
    case Qt::Key_Asterisk: return 106;
    case Qt::Key_Plus: return 107;
    case Qt::Key_Minus: return 109;
    case Qt::Key_Slash: return 111;
    case Qt::Key_Enter: return 13;
    }
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return 96 + (qtKey - Qt::Key_0);
    return 0;
}

}  // namespace

int virtualKeyFromQtKey(int qtKey, bool keypad) {
    if (keypad) return keypadKey(qtKey);
    if ((qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)) return qtKey;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) return 112 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Tab: return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Shift: return 16;
    case Qt::Key_Control: return 17;
    case Qt::Key_Alt: return 18;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Space: return 32;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    // Shifted symbols name the same US key as their unshifted partner.
    case Qt::Key_Semicolon:
    case Qt::Key_Colon: return 186;
    case Qt::Key_Equal:
    case Qt::Key_Plus: return 187;
    case Qt::Key_Comma:
    case Qt::Key_Less: return 188;
    case Qt::Key_Minus:
    case Qt::Key_Underscore: return 189;
    case Qt::Key_Period:
    case Qt::Key_Greater: return 190;
    case Qt::Key_Slash:
    case Qt::Key_Question: return 191;
    case Qt::Key_QuoteLeft:
    case Qt::Key_AsciiTilde: return 192;
    case Qt::Key_BracketLeft:
    case Qt::Key_BraceLeft: return 219;
    case Qt::Key_Backslash:
    case Qt::Key_Bar: return 220;
    case Qt::Key_BracketRight:
    case Qt::Key_BraceRight: return 221;
    case Qt::Key_Apostrophe:
    case Qt::Key_QuoteDbl: return 222;
    // Shifted digits of the US layout.
    case Qt::Key_Exclam: return '1';
    case Qt::Key_At: return '2';
    case Qt::Key_NumberSign: return '3';
    case Qt::Key_Dollar: return '4';
    case Qt::Key_Percent: return '5';
    case Qt::Key_AsciiCircum: return '6';
    case Qt::Key_Ampersand: return '7';
    case Qt::Key_Asterisk: return '8';
    case Qt::Key_ParenLeft: return '9';
    case Qt::Key_ParenRight: return '0';
    }
    return 0;
}

int virtualKeyOf(uint32_t nativeScanCode, int qtKey, bool keypad) {
    if (int byPosition = virtualKeyFromScanCode(nativeScanCode)) return byPosition;
    return virtualKeyFromQtKey(qtKey, keypad);
}

int16_t shiftMask(bool shift, bool control, bool alt) {
    return static_cast<int16_t>((shift ? 1 : 0) | (control ? 2 : 0) | (alt ? 4 : 0));
}

}  // namespace tessaly
