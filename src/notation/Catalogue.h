#pragma once
#include <string>

namespace tessaly {

constexpr int kInstrumentCount = 129;  // list indexes 0..128, 0 is silence
constexpr int kPercussionCount = 47;   // list indexes 0..46, keys 35..81
constexpr int kInstrumentStringId = 201;
constexpr int kPercussionStringId = 335;
constexpr int kFirstPercussionKey = 35;

std::string instrumentName(int listIndex);
std::string percussionName(int listIndex);

}  // namespace tessaly
