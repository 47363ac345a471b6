#pragma once
#include <string>

#include "jianpu/JianpuReading.h"

namespace tessaly {

// The score as plain numbered-notation text, the digit syntax typesetting
// tools read: a heading "1=C", "4/4", "4=70", then the bars, four to a line,
// separated by "|" (the end of the score by "||"). A note is its digit with
// "'" per octave above and "," per octave below; "q", "s", "d" before it for
// one, two or three underlines; "." after it for a dot; "~" ties it to the
// next; "-" holds it a beat; "0" is a rest. A key change is written "1=D", a
// tempo change "4=80", the other commands as marks ^"乐器组3".
std::string jianpuText(const JianpuReading& reading);

}  // namespace tessaly
