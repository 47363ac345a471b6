#include "jianpu/JianpuLayout.h"

#include <algorithm>

#include "notation/NoteVocabulary.h"

namespace tessaly {

namespace {

constexpr int kBeat = 8;  // ticks

// Where things stand within a line of music, from its top.
constexpr float kLineHeight = 3.3f;
constexpr float kMarkBaseline = 0.7f;
constexpr float kDigitBaseline = 2.1f;
constexpr float kDigitTop = 1.38f;
constexpr float kUnderlineTop = 2.3f;
constexpr float kUnderlineStep = 0.16f;
constexpr float kUnderlineThickness = 0.06f;
constexpr float kDotRadius = 0.075f;
constexpr float kDotStep = 0.2f;

// Widths along a line.
constexpr float kMargin = 1.0f;
constexpr float kColumn = 1.0f;
constexpr float kDottedColumn = 1.3f;
constexpr float kBeatGap = 0.35f;
constexpr float kBarPad = 0.5f;
constexpr float kMarkSize = 0.55f;
constexpr float kKeySize = 0.7f;

int underlinesFor(int ticks) {
    switch (ticks) {
    case 4: case 6: return 1;
    case 2: case 3: return 2;
    case 1: return 3;
    default: return 0;
    }
}

// Columns of one note or rest, cut at beats and bar lines.
class UnitWriter {
public:
    UnitWriter(std::vector<JianpuUnit>& units, int barTicks) : units_(units), barTicks_(barTicks) {}

    void sound(const JianpuEvent& event, int eventIndex, int tick) {
        event_ = &event;
        index_ = eventIndex;
        int left = event.ticks;
        while (left > 0) {
            const int barEnd = (tick / barTicks_ + 1) * barTicks_;
            const int piece = std::min(left, barEnd - tick);
            inBar(tick, piece);
            tick += piece;
            left -= piece;
        }
    }

private:
    void inBar(int tick, int length) {
        if (int into = tick % kBeat; into != 0) {
            const int head = std::min(length, kBeat - into);
            withinBeat(tick, head);
            tick += head;
            length -= head;
        }
        if (const int beats = length / kBeat; beats > 0) {
            const bool note = event_->kind == JianpuEventKind::Note;
            for (int b = 0; b < beats; ++b)
                add(note && b > 0 ? JianpuUnit::Dash : JianpuUnit::Digit, tick + b * kBeat, kBeat);
            tick += beats * kBeat;
            length -= beats * kBeat;
        }
        if (length > 0) withinBeat(tick, length);
    }

    // A dot adds half within a beat: 6 and 3 ticks are dotted, the rest are
    // written from the longest values down.
    void withinBeat(int tick, int length) {
        static constexpr int kValues[] = {6, 4, 3, 2, 1};
        while (length > 0) {
            int value = *std::find_if(std::begin(kValues), std::end(kValues), [&](int v) { return v <= length; });
            add(JianpuUnit::Digit, tick, value);
            tick += value;
            length -= value;
        }
    }

    void add(JianpuUnit::Kind kind, int tick, int ticks) {
        JianpuUnit unit;
        unit.kind = kind;
        unit.event = index_;
        const bool note = event_->kind == JianpuEventKind::Note;
        unit.digit = note ? static_cast<char>('0' + event_->degree) : '0';
        unit.octave = note ? event_->octave : 0;
        unit.underlines = underlinesFor(ticks);
        unit.dotted = ticks == 6 || ticks == 3;
        unit.tick = tick;
        unit.ticks = ticks;
        units_.push_back(unit);
    }

    std::vector<JianpuUnit>& units_;
    int barTicks_;
    const JianpuEvent* event_ = nullptr;
    int index_ = -1;
};

std::string markText(const JianpuEvent& event) {
    switch (event.kind) {
    case JianpuEventKind::Tempo: return tempoMark(event.value);
    case JianpuEventKind::Instruments: return "乐器组" + std::to_string(event.value);
    case JianpuEventKind::Rhythm: return "节奏" + std::to_string(event.value);
    case JianpuEventKind::RhythmStop: return "节奏停";
    default: return {};
    }
}

// Width of a text in em at size 1: CJK characters are square, the rest about half.
float textWidth(const std::string& text) {
    float width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        const std::size_t bytes = c < 0x80 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : 4;
        width += bytes >= 3 ? 1.0f : 0.6f;
        i += bytes;
    }
    return width;
}

}  // namespace

class JianpuLayouter::Placer {
public:
    const JianpuLayout& full(const JianpuReading& reading, const JianpuLayoutOptions& options) {
        reading_ = &reading;
        options_ = options;
        barTicks_ = kBeat * std::max(1, reading.beatsPerBar);
        out_ = JianpuLayout{};
        units_.clear();
        commandsBefore_.assign(1, {});
        bars_.clear();
        lines_.clear();
        centres_.clear();
        lineOfUnit_.clear();
        writeUnits(0);
        heading();
        cutIntoBars(0);
        placeFrom(0);
        finish();
        return out_;
    }

    const JianpuLayout& grown(const JianpuReading& reading, std::size_t keptEvents) {
        reading_ = &reading;
        const auto firstNew = std::lower_bound(units_.begin(), units_.end(), static_cast<int>(keptEvents),
                                               [](const JianpuUnit& u, int e) { return u.event < e; });
        const std::size_t keptUnits = static_cast<std::size_t>(firstNew - units_.begin());
        // The heading may still change while nothing has sounded.
        if (keptUnits == 0 || lines_.empty()) return full(reading, options_);

        units_.resize(keptUnits);
        commandsBefore_.resize(keptUnits + 1);
        auto& trailing = commandsBefore_.back();
        trailing.erase(std::remove_if(trailing.begin(), trailing.end(),
                                      [&](int e) { return e >= static_cast<int>(keptEvents); }),
                       trailing.end());
        writeUnits(keptEvents);

        // The bar of the last kept unit may change (its end, its bar line, the
        // commands after it): its line is placed again from the line's start.
        const std::size_t bar = barIndexOf(keptUnits - 1);
        std::size_t line = lines_.size() - 1;
        while (line > 0 && lines_[line].bar > bar) --line;
        // A bar that became narrower may now fit at the end of the line before.
        if (line > 0) --line;
        const LineStart start = lines_[line];
        lines_.resize(line);
        out_.glyphs.resize(start.glyphs);
        out_.dots.resize(start.dots);
        out_.rules.resize(start.rules);
        out_.arcs.resize(start.arcs);
        out_.lineTops.resize(line);
        out_.errorMessage.clear();
        bars_.resize(start.bar);
        cutIntoBars(start.bar == 0 ? 0 : bars_.back().last);
        centres_.resize(start.bar < bars_.size() ? bars_[start.bar].first : units_.size());
        lineOfUnit_.resize(centres_.size());
        lineTop_ = start.top - kLineHeight;
        placeFrom(start.bar);
        finish();
        return out_;
    }

    const JianpuLayout& layout() const { return out_; }

private:
    struct Bar {
        std::size_t first = 0, last = 0;  // units [first, last)
        float width = 0;
        bool complete = false;
    };
    // What the layout held when a line began, to go back to it.
    struct LineStart {
        std::size_t bar = 0;
        std::size_t glyphs = 0, dots = 0, rules = 0, arcs = 0;
        float top = 0;
    };

    // The columns of the events from `firstEvent` on; commands stand before
    // the unit that follows them.
    void writeUnits(std::size_t firstEvent) {
        const auto& events = reading_->events;
        UnitWriter writer(units_, barTicks_);
        int tick = units_.empty() ? 0 : units_.back().tick + units_.back().ticks;
        for (std::size_t e = firstEvent; e < events.size(); ++e) {
            const JianpuEvent& event = events[e];
            if (event.kind == JianpuEventKind::Note || event.kind == JianpuEventKind::Rest) {
                writer.sound(event, static_cast<int>(e), tick);
                tick += event.ticks;
                commandsBefore_.resize(units_.size() + 1);
            } else {
                commandsBefore_.back().push_back(static_cast<int>(e));
            }
        }
    }

    void heading() {
        float y = 0;
        if (!options_.title.empty()) {
            y += 1.6f;
            out_.glyphs.push_back({options_.width / 2, y, 1.2f, true, options_.title, JianpuRole::Title});
        }
        y += 1.4f;
        std::string text = keyLine(reading_->keyIndex) + "  " + std::to_string(reading_->beatsPerBar) + "/4  " +
                           tempoMark(reading_->tempo);
        out_.glyphs.push_back({kMargin, y, 0.8f, false, std::move(text), JianpuRole::Heading});
        lineTop_ = y + 0.2f - kLineHeight;
    }

    float inlineWidth(std::size_t unit) const {
        float width = 0;
        for (int e : commandsBefore_[unit])
            if (reading_->events[static_cast<std::size_t>(e)].kind == JianpuEventKind::Key)
                width += textWidth(keyLine(reading_->events[static_cast<std::size_t>(e)].value)) * kKeySize + 0.4f;
        return width;
    }

    float columnWidth(std::size_t u) const {
        const JianpuUnit& unit = units_[u];
        const bool lastOfBeat = u + 1 == units_.size() || units_[u + 1].tick / kBeat != unit.tick / kBeat;
        return (unit.dotted ? kDottedColumn : kColumn) + (lastOfBeat ? kBeatGap : 0);
    }

    std::size_t barIndexOf(std::size_t unit) const {
        auto it = std::upper_bound(bars_.begin(), bars_.end(), unit, [](std::size_t u, const Bar& b) { return u < b.first; });
        return static_cast<std::size_t>(it - bars_.begin()) - 1;
    }

    void cutIntoBars(std::size_t firstUnit) {
        const int total = units_.empty() ? 0 : units_.back().tick + units_.back().ticks;
        for (std::size_t u = firstUnit; u < units_.size();) {
            Bar bar;
            bar.first = u;
            const int index = units_[u].tick / barTicks_;
            bar.width = 2 * kBarPad;
            for (; u < units_.size() && units_[u].tick / barTicks_ == index; ++u)
                bar.width += inlineWidth(u) + columnWidth(u);
            bar.last = u;
            bar.complete = (index + 1) * barTicks_ <= total;
            bars_.push_back(bar);
        }
        if (!bars_.empty()) bars_.back().width += inlineWidth(units_.size());
        out_.barCount = static_cast<int>(bars_.size());
    }

    void placeFrom(std::size_t firstBar) {
        const float right = std::max(options_.width - kMargin, kMargin + 4);
        newLine(firstBar);
        float x = kMargin;
        for (std::size_t b = firstBar; b < bars_.size(); ++b) {
            if (x > kMargin && x + bars_[b].width > right) {
                newLine(b);
                x = kMargin;
            }
            x = placeBar(b, x);
        }
        if (bars_.empty()) x += placeCommands(units_.size(), x);
        // A score that stops inside a bar ends it there.
        else if (!bars_.back().complete && reading_->stopped) barLine(x, true);
        endX_ = x;
    }

    void newLine(std::size_t bar) {
        lineTop_ += kLineHeight;
        lines_.push_back({bar, out_.glyphs.size(), out_.dots.size(), out_.rules.size(), out_.arcs.size(), lineTop_});
        out_.lineTops.push_back(lineTop_);
    }

    float placeBar(std::size_t b, float x) {
        const Bar& bar = bars_[b];
        const bool lastBar = b + 1 == bars_.size();
        x += kBarPad;
        for (std::size_t u = bar.first; u < bar.last; ++u) {
            x += placeCommands(u, x);
            placeUnit(u, x);
            x += columnWidth(u);
        }
        if (lastBar) x += placeCommands(units_.size(), x);
        underlines(bar.first, bar.last);
        x += kBarPad;
        if (bar.complete) barLine(x, reading_->stopped && lastBar);
        return x;
    }

    void barLine(float x, bool final) {
        const float y1 = lineTop_ + kDigitTop - 0.1f, y2 = lineTop_ + kUnderlineTop;
        if (final) {
            out_.rules.push_back({x - 0.25f, y1, x - 0.25f, y2, 0.05f});
            out_.rules.push_back({x, y1, x, y2, 0.14f});
        } else {
            out_.rules.push_back({x, y1, x, y2, 0.05f});
        }
    }

    // Key changes take room in the line; the other commands are marks over it.
    float placeCommands(std::size_t unit, float x) {
        float used = 0, markX = x;
        for (int e : commandsBefore_[unit]) {
            const JianpuEvent& event = reading_->events[static_cast<std::size_t>(e)];
            if (event.kind == JianpuEventKind::Key) {
                std::string text = keyLine(event.value);
                const float width = textWidth(text) * kKeySize;
                out_.glyphs.push_back({x + used, lineTop_ + kDigitBaseline - 0.05f, kKeySize, false, std::move(text),
                                       JianpuRole::KeyChange, e});
                used += width + 0.4f;
            } else {
                std::string text = markText(event);
                const float width = textWidth(text) * kMarkSize;
                out_.glyphs.push_back(
                    {markX, lineTop_ + kMarkBaseline, kMarkSize, false, std::move(text), JianpuRole::Mark, e});
                markX += width + 0.3f;
            }
        }
        return used;
    }

    void placeUnit(std::size_t u, float x) {
        const JianpuUnit& unit = units_[u];
        const float centre = x + kColumn / 2;
        const float base = lineTop_ + kDigitBaseline;
        centres_.push_back(centre);
        lineOfUnit_.push_back(lineTop_);
        if (unit.kind == JianpuUnit::Dash) {
            out_.glyphs.push_back({centre, base - 0.05f, 1.0f, true, "-", JianpuRole::Dash, unit.event});
            return;
        }
        out_.glyphs.push_back({centre, base, 1.0f, true, std::string(1, unit.digit), JianpuRole::Digit, unit.event});
        if (unit.dotted) out_.dots.push_back({centre + 0.5f, base - 0.32f, kDotRadius, unit.event});
        for (int k = 0; k < unit.octave; ++k)
            out_.dots.push_back({centre, lineTop_ + kDigitTop - 0.2f - static_cast<float>(k) * kDotStep, kDotRadius, unit.event});
        const float below = lineTop_ + kUnderlineTop + static_cast<float>(unit.underlines) * kUnderlineStep + 0.1f;
        for (int k = 0; k < -unit.octave; ++k)
            out_.dots.push_back({centre, below + static_cast<float>(k) * kDotStep, kDotRadius, unit.event});
        // A note cut into several digits is tied from each digit to the next.
        std::size_t before = u;
        while (before > 0 && units_[before - 1].event == unit.event && units_[before - 1].kind == JianpuUnit::Dash) --before;
        const bool note = reading_->events[static_cast<std::size_t>(unit.event)].kind == JianpuEventKind::Note;
        if (note && before > 0 && units_[before - 1].event == unit.event) tie(before - 1, u);
    }

    // Underlines of a beat are joined like beams: each level runs over the
    // neighbouring columns that have that many lines or more.
    void underlines(std::size_t first, std::size_t last) {
        for (std::size_t u = first; u < last;) {
            std::size_t end = u;
            const int beat = units_[u].tick / kBeat;
            while (end < last && units_[end].tick / kBeat == beat) ++end;
            for (int level = 1; level <= 3; ++level) {
                for (std::size_t a = u; a < end;) {
                    if (units_[a].underlines < level) {
                        ++a;
                        continue;
                    }
                    std::size_t b = a;
                    while (b + 1 < end && units_[b + 1].underlines >= level) ++b;
                    const float y = lineOfUnit_[a] + kUnderlineTop + static_cast<float>(level - 1) * kUnderlineStep;
                    const float right = centres_[b] + (units_[b].dotted ? 0.65f : 0.35f);
                    out_.rules.push_back({centres_[a] - 0.35f, y, right, y, kUnderlineThickness});
                    a = b + 1;
                }
            }
            u = end;
        }
    }

    void tie(std::size_t a, std::size_t b) {
        const int up = std::max(units_[a].octave, 0);
        const auto over = [&](std::size_t u) {
            return lineOfUnit_[u] + kDigitTop - 0.15f - static_cast<float>(up) * kDotStep;
        };
        if (lineOfUnit_[a] == lineOfUnit_[b]) {
            out_.arcs.push_back({centres_[a] + 0.1f, centres_[b] - 0.1f, over(a), 0.3f});
            return;
        }
        // Across the end of a line: half an arc on each side.
        out_.arcs.push_back({centres_[a] + 0.1f, centres_[a] + 1.4f, over(a), 0.25f});
        out_.arcs.push_back({centres_[b] - 1.4f, centres_[b] - 0.1f, over(b), 0.25f});
    }

    void finish() {
        float bottom = lineTop_ + kLineHeight;
        if (reading_->error) {
            const JianpuError& error = *reading_->error;
            std::string shown = error.text.size() > 12 ? error.text.substr(0, 12) : error.text;
            if (!shown.empty())
                out_.glyphs.push_back(
                    {endX_ + 0.4f, lineTop_ + kDigitBaseline, 1.0f, false, shown, JianpuRole::ErrorToken});
            out_.errorMessage = "第 " + std::to_string(error.from + 1) + " 个字符：" + error.message;
            out_.glyphs.push_back({kMargin, bottom + 0.2f, 0.6f, false, out_.errorMessage, JianpuRole::ErrorMessage});
            bottom += 1.0f;
        }
        out_.width = options_.width;
        out_.height = bottom + 0.5f;
        out_.lineHeight = kLineHeight;
    }

    const JianpuReading* reading_ = nullptr;
    JianpuLayoutOptions options_;
    JianpuLayout out_;
    int barTicks_ = 32;
    std::vector<JianpuUnit> units_;
    std::vector<std::vector<int>> commandsBefore_;  // one more than the units: the end
    std::vector<Bar> bars_;
    std::vector<LineStart> lines_;
    std::vector<float> centres_, lineOfUnit_;
    float lineTop_ = 0, endX_ = kMargin;
};

JianpuLayouter::JianpuLayouter() : placer_(std::make_unique<Placer>()) {}
JianpuLayouter::~JianpuLayouter() = default;
JianpuLayouter::JianpuLayouter(JianpuLayouter&&) noexcept = default;
JianpuLayouter& JianpuLayouter::operator=(JianpuLayouter&&) noexcept = default;

const JianpuLayout& JianpuLayouter::layOut(const JianpuReading& reading, const JianpuLayoutOptions& options) {
    return placer_->full(reading, options);
}

const JianpuLayout& JianpuLayouter::layOutGrown(const JianpuReading& reading, std::size_t keptEvents) {
    return placer_->grown(reading, keptEvents);
}

const JianpuLayout& JianpuLayouter::layout() const { return placer_->layout(); }

std::string keyLine(int keyIndex) {
    return std::string("1=") + kTonalityNames[static_cast<std::size_t>(std::clamp(keyIndex, 0, 11))];
}

std::string tempoMark(int tempo) { return "♩=" + std::to_string(tempo); }

std::vector<JianpuUnit> jianpuUnits(const JianpuReading& reading) {
    std::vector<JianpuUnit> units;
    UnitWriter writer(units, kBeat * std::max(1, reading.beatsPerBar));
    int tick = 0;
    for (std::size_t e = 0; e < reading.events.size(); ++e) {
        const JianpuEvent& event = reading.events[e];
        if (event.kind != JianpuEventKind::Note && event.kind != JianpuEventKind::Rest) continue;
        writer.sound(event, static_cast<int>(e), tick);
        tick += event.ticks;
    }
    return units;
}

JianpuLayout layoutJianpu(const JianpuReading& reading, const JianpuLayoutOptions& options) {
    JianpuLayouter layouter;
    return layouter.layOut(reading, options);
}

}  // namespace tessaly
