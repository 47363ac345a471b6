#include "jianpu/JianpuSheet.h"

#include <algorithm>

namespace tessaly {

namespace {

bool sameStart(const JianpuStart& a, const JianpuStart& b) {
    return a.keyIndex == b.keyIndex && a.tempo == b.tempo && a.beatsPerBar == b.beatsPerBar &&
           a.keptDuration == b.keptDuration;
}

}  // namespace

const JianpuLayout& JianpuSheet::update(std::string_view text, const JianpuStart& start,
                                        const JianpuLayoutOptions& options) {
    const bool sameSettings =
        made_ && sameStart(start, start_) && options.width == options_.width && options.title == options_.title;
    if (sameSettings && text == text_) return layouter_.layout();
    // While the user plays, the text grows at its end: the reading goes on
    // from before its last item and only the last line is placed again.
    if (sameSettings && reading_.resume && text.size() > text_.size() && text.substr(0, text_.size()) == text_) {
        const std::size_t kept = reading_.resume->events;
        text_.assign(text);
        readJianpuOn(text_, reading_);
        return layouter_.layOutGrown(reading_, kept);
    }
    text_.assign(text);
    start_ = start;
    options_ = options;
    reading_ = readJianpu(text_, start_);
    made_ = true;
    return layouter_.layOut(reading_, options_);
}

int JianpuSheet::eventAt(int character) const {
    const auto& events = reading_.events;
    auto it = std::upper_bound(events.begin(), events.end(), character,
                               [](int c, const JianpuEvent& e) { return c < e.from; });
    if (it == events.begin()) return -1;
    --it;
    const bool sounding = it->kind == JianpuEventKind::Note || it->kind == JianpuEventKind::Rest;
    return sounding && character < it->to ? static_cast<int>(it - events.begin()) : -1;
}

}  // namespace tessaly
