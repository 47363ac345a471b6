#include "jianpu/JianpuText.h"

#include "jianpu/JianpuLayout.h"

namespace tessaly {

namespace {

constexpr int kBarsPerLine = 4;

std::string commandText(const JianpuEvent& event) {
    switch (event.kind) {
    case JianpuEventKind::Key: return keyLine(event.value);
    case JianpuEventKind::Tempo: return "4=" + std::to_string(event.value);
    case JianpuEventKind::Instruments: return "^\"乐器组" + std::to_string(event.value) + "\"";
    case JianpuEventKind::Rhythm: return "^\"节奏" + std::to_string(event.value) + "\"";
    case JianpuEventKind::RhythmStop: return "^\"节奏停\"";
    default: return {};
    }
}

std::string unitText(const JianpuUnit& unit, bool tied) {
    if (unit.kind == JianpuUnit::Dash) return tied ? "-~" : "-";
    std::string text;
    if (unit.underlines > 0) text += "qsd"[unit.underlines - 1];
    text += unit.digit;
    text.append(static_cast<std::size_t>(std::max(unit.octave, 0)), '\'');
    text.append(static_cast<std::size_t>(std::max(-unit.octave, 0)), ',');
    if (unit.dotted) text += '.';
    if (tied) text += '~';
    return text;
}

}  // namespace

std::string jianpuText(const JianpuReading& reading) {
    std::string out = keyLine(reading.keyIndex) + "\n" + std::to_string(reading.beatsPerBar) + "/4\n4=" +
                      std::to_string(reading.tempo) + "\n";
    const std::vector<JianpuUnit> units = jianpuUnits(reading);
    const int barTicks = 8 * reading.beatsPerBar;
    const int total = units.empty() ? 0 : units.back().tick + units.back().ticks;

    std::string line;
    auto word = [&line](const std::string& w) {
        if (!line.empty()) line += ' ';
        line += w;
    };
    int barsOnLine = 0;
    std::size_t u = 0;
    for (std::size_t e = 0; e < reading.events.size(); ++e) {
        const JianpuEvent& event = reading.events[e];
        if (event.kind != JianpuEventKind::Note && event.kind != JianpuEventKind::Rest) {
            word(commandText(event));
            continue;
        }
        for (; u < units.size() && units[u].event == static_cast<int>(e); ++u) {
            const JianpuUnit& unit = units[u];
            // The tie stands on the last column before the note's next digit.
            const bool tied = event.kind == JianpuEventKind::Note && u + 1 < units.size() &&
                              units[u + 1].event == unit.event && units[u + 1].kind == JianpuUnit::Digit;
            word(unitText(unit, tied));
            const int end = unit.tick + unit.ticks;
            if (end % barTicks == 0) {
                const bool last = end == total && reading.stopped;
                word(last ? "||" : "|");
                if (++barsOnLine == kBarsPerLine && !last) {
                    out += line + "\n";
                    line.clear();
                    barsOnLine = 0;
                }
            }
        }
    }
    if (reading.stopped && total % barTicks != 0) word("||");
    if (!line.empty()) out += line + "\n";
    if (reading.error) out += "% 第 " + std::to_string(reading.error->from + 1) + " 个字符：" + reading.error->message + "\n";
    return out;
}

}  // namespace tessaly
