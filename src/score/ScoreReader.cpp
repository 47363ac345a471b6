#include "score/ScoreReader.h"

#include <algorithm>

#include "notation/NoteVocabulary.h"
#include "runtime/Arithmetic.h"
#include "runtime/FatalFailure.h"

namespace tessaly {

namespace {

bool isDigit(std::string_view c) { return c.size() == 1 && c[0] >= '0' && c[0] <= '9'; }

}  // namespace

ScoreTokenKind scoreTokenKind(std::string_view token) {
    if (token == "YD") return ScoreTokenKind::Tonality;
    if (token == "VS") return ScoreTokenKind::Tempo;
    if (token == "JP") return ScoreTokenKind::Rhythm;
    if (token == "YQ") return ScoreTokenKind::Instruments;
    if (tokenOffset(token)) return ScoreTokenKind::Note;
    if (token == "XZ") return ScoreTokenKind::Rest;
    if (token == "TZ") return ScoreTokenKind::Stop;
    return ScoreTokenKind::Unknown;
}

ScoreCharacters::ScoreCharacters(std::string text) : text_(std::move(text)) {
    starts_.reserve(text_.size() + 1);
    for (std::size_t i = 0; i < text_.size(); ++i)
        if ((static_cast<unsigned char>(text_[i]) & 0xC0) != 0x80) starts_.push_back(i);
    starts_.push_back(text_.size());
}

std::string_view ScoreCharacters::chars(long long from, long long count) const {
    const long long end = length() + 1;
    long long first = std::min(std::max(from, 1LL), end);
    long long last = std::min(first + count, end);
    return std::string_view(text_).substr(starts_[first - 1], starts_[last - 1] - starts_[first - 1]);
}

ScoreItem readScoreItem(std::string_view text, int32_t& pos, int16_t& noteDuration, int16_t& scoreLen) {
    return readScoreItem(ScoreCharacters(std::string(text)), pos, noteDuration, scoreLen);
}

ScoreItem readScoreItem(const ScoreCharacters& text, int32_t& pos, int16_t& noteDuration, int16_t& scoreLen) {
    scoreLen = toInt16(text.length());
    auto chars = [&text](long long from, long long count) { return text.chars(from, count); };

    long long p = pos < 1 ? 1 : pos;
    ScoreItem item;
    item.token = std::string(chars(p, 2));
    const long long L = scoreLen;
    if (p < L - 1) {
        std::string_view c1 = chars(p + 2, 1);
        bool c2Taken = p < L - 2;
        std::string_view c2 = c2Taken ? chars(p + 3, 1) : std::string_view{};
        if (!isDigit(c1)) {
            p += 1;
        } else {
            p += 2;
            // The look-ahead behind a digit at the very end has no character to test.
            if (!c2Taken) throw FatalFailure(FailureKind::InvalidCall, "乐谱末尾的时值之后没有字符");
            if (!isDigit(c2)) {
                item.number = static_cast<int16_t>(c1[0] - '0');
            } else {
                item.number = static_cast<int16_t>((c1[0] - '0') * 10 + (c2[0] - '0'));
                p += 1;
            }
            noteDuration = item.number;
        }
    }
    pos = toInt32(p);
    item.kind = scoreTokenKind(item.token);
    item.noteCode = noteCode(item.token);
    return item;
}

}  // namespace tessaly
