#include "jianpu/JianpuReading.h"

#include "notation/NoteVocabulary.h"
#include "runtime/FatalFailure.h"
#include "score/ScoreReader.h"

namespace tessaly {

namespace {

constexpr int kTonalitiesAScoreReaches = 11;
constexpr int kTempoEntries = 19;
constexpr int kInstrumentSets = 13;
constexpr int kLastRhythmFile = 98;
constexpr int kRhythmOff = 99;

int tempoOfEntry(int entry) { return 40 + 5 * (entry - 1); }

int octaveOf(char registerLetter) {
    switch (registerLetter) {
    case 'L': return -2;
    case 'W': return -1;
    case 'H': return 1;
    case 'M': return 2;
    default: return 0;
    }
}

int degreeOf(char noteLetter) {
    static constexpr std::string_view kLetters = "CDEFGAB";
    return static_cast<int>(kLetters.find(noteLetter)) + 1;
}

}  // namespace

std::string scoreInCapitals(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

JianpuReading readJianpu(std::string_view text, const JianpuStart& start) {
    JianpuReading reading;
    reading.keyIndex = start.keyIndex;
    reading.tempo = start.tempo;
    reading.beatsPerBar = start.beatsPerBar;
    reading.resume = JianpuResume{1, start.keptDuration, false, start.keyIndex, start.tempo, 0};
    readJianpuOn(text, reading);
    return reading;
}

void readJianpuOn(std::string_view text, JianpuReading& reading) {
    const JianpuResume from0 = *reading.resume;
    reading.events.resize(from0.events);
    reading.keyIndex = from0.keyIndex;
    reading.tempo = from0.tempo;
    reading.resume.reset();

    const ScoreCharacters characters(scoreInCapitals(text));
    if (characters.length() > kLongestReadableScore) {
        reading.events.clear();
        reading.error = JianpuError{0, 0, {}, "乐谱超过 32767 个字符，演奏读不了这么长的乐谱，请分成几个文件。"};
        return;
    }

    int32_t pos = from0.pos;
    int16_t duration = from0.duration;
    int16_t length = 0;
    bool sounded = from0.sounded;  // commands before the first note or rest go into the heading
    auto command = [&](JianpuEventKind kind, int value, int from, int to) {
        reading.events.push_back(JianpuEvent{kind, 0, 0, 0, value, from, to});
    };
    auto fail = [&](int from, int to, std::string message) {
        reading.error = JianpuError{from, to, std::string(characters.chars(from + 1, to - from)), std::move(message)};
    };
    auto here = [&] { return JianpuResume{pos, duration, sounded, reading.keyIndex, reading.tempo, reading.events.size()}; };

    while (pos <= characters.length()) {
        const int from = pos - 1;
        // An item in the last two characters has nothing behind it: the
        // reader leaves its place on the item's first letter, so the player
        // would next read the item's second letter. A text that ends there is
        // still being written; the reading ends with the item, and a longer
        // text is read on from before it.
        const bool last = pos >= characters.length() - 1;
        const JianpuResume before = here();
        ScoreItem item;
        try {
            item = readScoreItem(characters, pos, duration, length);
        } catch (const FatalFailure&) {
            // Only a duration as the text's very last character gets here.
            fail(from, static_cast<int>(characters.length()), "乐谱末尾的时值后面缺少音符或 TZ，演奏到这里会出错。");
            return;
        }
        const int to = last ? static_cast<int>(characters.length()) : pos;  // pos is on the item's last character
        const int n = item.number;
        switch (item.kind) {
        case ScoreTokenKind::Tonality:
            if (n >= 1 && n <= kTonalitiesAScoreReaches) {
                if (sounded) command(JianpuEventKind::Key, n - 1, from, to);
                else reading.keyIndex = n - 1;
            }
            duration = 0;
            break;
        case ScoreTokenKind::Tempo:
            // Out of range, the number read stays the kept duration.
            if (n >= 1 && n <= kTempoEntries) {
                if (sounded) command(JianpuEventKind::Tempo, tempoOfEntry(n), from, to);
                else reading.tempo = tempoOfEntry(n);
                duration = 0;
            }
            break;
        case ScoreTokenKind::Rhythm:
            if (n >= 1 && n <= kLastRhythmFile) command(JianpuEventKind::Rhythm, n, from, to);
            else if (n == kRhythmOff) command(JianpuEventKind::RhythmStop, n, from, to);
            duration = 0;
            break;
        case ScoreTokenKind::Instruments:
            if (n < 1 || n > kInstrumentSets) {
                fail(from, to, "YQ 后面的乐器组号必须是 1 到 13，演奏到这里会出错。");
                return;
            }
            command(JianpuEventKind::Instruments, n, from, to);
            duration = 0;
            break;
        case ScoreTokenKind::Note:
        case ScoreTokenKind::Rest:
            if (duration <= 0) {
                // The player would hold this note for ever and never read on.
                fail(from, to, "这里的音符没有时值（前面的命令把时值清零了），演奏会停在这里，请写上时值。");
                return;
            }
            if (item.kind == ScoreTokenKind::Note)
                reading.events.push_back(JianpuEvent{JianpuEventKind::Note, degreeOf(item.token[1]),
                                                     octaveOf(item.token[0]), duration, 0, from, to});
            else
                reading.events.push_back(JianpuEvent{JianpuEventKind::Rest, 0, 0, duration, 0, from, to});
            sounded = true;
            break;
        case ScoreTokenKind::Stop:
            reading.stopped = true;
            reading.stopFrom = from;
            return;
        case ScoreTokenKind::Unknown:
            fail(from, to, "“" + item.token + "”不是乐谱的记号：乐谱中出现错误，请修改！");
            return;
        }
        if (last) {
            reading.resume = before;
            return;
        }
        ++pos;
    }
    reading.resume = here();
}

}  // namespace tessaly
