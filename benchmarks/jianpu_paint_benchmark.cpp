// The redraw of the window 简谱 after one more note of a long take: the
// layout grown by the note, then the part of the window that shows the end
// of the take (900 x 480 pixels) painted, as the view does, into an image.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstdlib>
#include <string>

#include "drawing/JianpuPainter.h"
#include "jianpu/JianpuSheet.h"

using namespace tessaly;

namespace {

constexpr double kEm = 26;

std::string longTake(std::size_t characters) {
    static const char* const kPhrase[] = {"KC8", "KD6", "KE2", "HC10", "WG22", "XZ4", "KF7", "MD2", "LA16", "KG3"};
    std::string score;
    for (std::size_t i = 0; score.size() < characters - 8; ++i) score += kPhrase[i % std::size(kPhrase)];
    return score;
}

void BM_JianpuRedrawAfterOneMoreNote(benchmark::State& state) {
    const std::string base = longTake(31000);
    JianpuLayoutOptions options;
    options.width = static_cast<float>(900 / kEm);
    JianpuSheet sheet;
    sheet.update(base, JianpuStart{}, options);
    std::string text = base;
    QImage window(900, 480, QImage::Format_RGB32);
    for (auto _ : state) {
        text += "4KE";
        if (text.size() > 32700) {
            state.PauseTiming();
            text = base + "4KE";
            sheet = JianpuSheet();
            sheet.update(base, JianpuStart{}, options);
            state.ResumeTiming();
        }
        const JianpuLayout& layout = sheet.update(text, JianpuStart{}, options);
        // The window shows the take's last lines.
        const double top = std::max(0.0, layout.height - window.height() / kEm);
        QPainter painter(&window);
        painter.fillRect(window.rect(), Qt::white);
        painter.translate(0, -top * kEm);
        paintJianpu(painter, layout, kEm, top - 1, layout.height);
    }
}
BENCHMARK(BM_JianpuRedrawAfterOneMoreNote)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
