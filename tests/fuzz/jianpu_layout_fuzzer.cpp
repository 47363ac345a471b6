// A score file of arbitrary bytes shown as numbered notation: decoded as a
// score file is, in a metre and at a width drawn from its first two bytes.
// Every event lies inside the text, in order, and every note or rest lasts;
// the text export is made; and a sheet that first showed a part of the text
// (cut where the third byte says) and then the whole, as while a take is
// written, lays it out exactly as a layout of the whole made at once.
// Anything else aborts the run.
#include <cmath>
#include <cstdint>
#include <string>

#include "FuzzProgram.h"
#include "jianpu/JianpuSheet.h"
#include "jianpu/JianpuText.h"
#include "runtime/TextFiles.h"

namespace {

using namespace tessaly;
using tessaly::fuzz::fail;

void checkEvents(const JianpuReading& reading, std::size_t length) {
    int before = 0;
    for (const JianpuEvent& e : reading.events) {
        if (e.from < before || e.to <= e.from || static_cast<std::size_t>(e.to) > length) fail();
        const bool sound = e.kind == JianpuEventKind::Note || e.kind == JianpuEventKind::Rest;
        if (sound && (e.ticks < 1 || e.ticks > 99)) fail();
        before = e.to;
    }
}

void sameLayout(const JianpuLayout& a, const JianpuLayout& b) {
    if (a.glyphs.size() != b.glyphs.size() || a.dots.size() != b.dots.size() || a.rules.size() != b.rules.size() ||
        a.arcs.size() != b.arcs.size() || a.lineTops != b.lineTops || a.height != b.height ||
        a.errorMessage != b.errorMessage || a.barCount != b.barCount)
        fail();
    for (std::size_t i = 0; i < a.glyphs.size(); ++i) {
        const JianpuGlyph &g = a.glyphs[i], &h = b.glyphs[i];
        if (g.x != h.x || g.y != h.y || g.text != h.text || g.event != h.event || !std::isfinite(g.x)) fail();
    }
    for (std::size_t i = 0; i < a.rules.size(); ++i)
        if (a.rules[i].x1 != b.rules[i].x1 || a.rules[i].y1 != b.rules[i].y1 || a.rules[i].x2 != b.rules[i].x2) fail();
    for (std::size_t i = 0; i < a.arcs.size(); ++i)
        if (a.arcs[i].x1 != b.arcs[i].x1 || a.arcs[i].x2 != b.arcs[i].x2 || a.arcs[i].y != b.arcs[i].y) fail();
    for (std::size_t i = 0; i < a.dots.size(); ++i)
        if (a.dots[i].x != b.dots[i].x || a.dots[i].y != b.dots[i].y) fail();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 3) return 0;
    JianpuStart start;
    start.beatsPerBar = 2 + data[0] % 3;
    JianpuLayoutOptions options;
    options.width = 6.0f + static_cast<float>(data[1] % 60);
    std::string text;
    for (char c : decodeText(std::string_view(reinterpret_cast<const char*>(data) + 3, size - 3)))
        if (c != '\r' && c != '\n') text += c;

    const JianpuReading reading = readJianpu(text, start);
    checkEvents(reading, text.size());
    if (jianpuText(reading).empty()) fail();
    const JianpuLayout whole = layoutJianpu(reading, options);

    JianpuSheet sheet;
    const std::size_t cut = text.size() * data[2] / 255;
    sheet.update(std::string_view(text).substr(0, cut), start, options);
    sameLayout(sheet.update(text, start, options), whole);
    return 0;
}
