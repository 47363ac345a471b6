// What a note key costs on the event thread with the main window's real view
// bound (Qt's offscreen platform), with a score of 0, 8 K and 32 K characters
// already in the score box. The time is the key's press, delivered to the
// keyboard button as Qt delivers it, until its handler has returned: the
// note-on has been sent by then. "catch_up_ms" is what the score box's widget
// does afterwards, a few milliseconds later, to show the new note.
//   ./build/benchmarks/tessaly_key_handler_benchmark
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QtTest/QTest>
#include <chrono>
#include <string>
#include <thread>

#include "shell/HeadlessProgram.h"
#include "shell/Instrument.h"
#include "ui/ControlBinder.h"
#include "ui/MainWindowView.h"
#include "ui/PlainTextFollower.h"

using namespace tessaly;

namespace {

using Clock = std::chrono::steady_clock;

double msSince(Clock::time_point from) {
    return std::chrono::duration<double, std::milli>(Clock::now() - from).count();
}

std::string scoreOfLength(std::size_t chars) {
    std::string score;
    while (score.size() + 3 <= chars) score += "KC8";
    return score.substr(0, chars);
}

void BM_NoteKeyWithScoreBox(benchmark::State& state) {
    const auto chars = static_cast<std::size_t>(state.range(0));
    HeadlessProgram::Options options;
    options.name = "tessaly-key-bench";
    options.started = false;
    HeadlessProgram program(options);
    MainWindow& form = program.app->form1;
    MainWindowView view(form);
    program.startUntilActive();
    view.show();
    QWidget* keyboard = view.binder().widgetOf(form.SFYXYZ);

    auto refill = [&] {
        form.Text3.setText(scoreOfLength(chars));
        QTest::qWait(3 * PlainTextFollower::kCatchUpDelayMs);
    };
    refill();
    unsigned long stamp = 1000;
    double catchUpMs = 0;
    int presses = 0;
    for (auto _ : state) {
        // The score grows by a note each press: back to its length now and then.
        if (presses % 64 == 63) refill();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_G, Qt::NoModifier, 0, 0, 0, QString());
        press.setTimestamp(stamp += 100);
        const Clock::time_point start = Clock::now();
        QApplication::sendEvent(keyboard, &press);
        state.SetIterationTime(msSince(start) / 1000.0);

        // The catch-up alone: its timer is made due first, then run.
        std::this_thread::sleep_for(std::chrono::milliseconds(PlainTextFollower::kCatchUpDelayMs + 1));
        const Clock::time_point shown = Clock::now();
        QApplication::processEvents();
        catchUpMs += msSince(shown);
        int16_t code = 71;
        form.SFYXYZ.onKeyUp(code, 0);
        program.midi.take();
        ++presses;
    }
    state.counters["catch_up_ms"] = benchmark::Counter(catchUpMs / presses);
}
// A fixed count: the manual time is a small part of each iteration.
BENCHMARK(BM_NoteKeyWithScoreBox)
    ->Arg(0)
    ->Arg(8000)
    ->Arg(32000)
    ->Iterations(400)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
