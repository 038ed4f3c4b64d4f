// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// A load, a frame and a tick of the playback in the view. The drawing itself is left out: it
// belongs to the driver, which on most machines of those who measure this draws in software.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QString>

#include "CountedGl.h"
#include "CountedMemory.h"
#include "MillingProgram.h"
#include "OGLWindowState.h"

namespace {

constexpr int kMillion = 1'000'000;

/// Its frames leave out what belongs to the window system, above all showing the picture.
class View : public OGLWindow {
public:
    View() : OGLWindow(nullptr) {
        resize(270, 270);
        show();
        QCoreApplication::processEvents();
        makeCurrent();
    }
    void updateGL() override { paintGL(); }
    const OGLWindowState& state() const { return m_state; }

private:
    OGLWindowState m_state{*this};
};

QString programOf(const benchmark::State& state) {
    return QString::fromStdString(millingProgram(static_cast<std::size_t>(state.range(0))));
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(kMillion / 10)->Arg(kMillion)->Arg(5 * kMillion)->Unit(benchmark::kMillisecond);
}

void interpreter(benchmark::State& state) {
    const QString program = programOf(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(interpretProgram(QStringView(program)));
    }
}
BENCHMARK(interpreter)->Apply(sizes);

/// From the signal to the first frame, the upload into the driver's memory included.
void wholeLoad(benchmark::State& state) {
    const QString program = programOf(state);
    View view;
    CountedGl gl(CountedGl::Uploads::reachTheDriver);
    for (auto _ : state) {
        view.ShowGCode(program);
    }
}
BENCHMARK(wholeLoad)->Apply(sizes);

void loadWithoutUpload(benchmark::State& state) {
    const QString program = programOf(state);
    View view;
    CountedGl gl(CountedGl::Uploads::areDropped);
    for (auto _ : state) {
        view.ShowGCode(program);
    }
}
BENCHMARK(loadWithoutUpload)->Apply(sizes);

/// The bytes that a load needs for each vertex, at most and in the end, outside the driver.
void memoryOfALoad(benchmark::State& state) {
    const QString program = programOf(state);
    for (auto _ : state) {
        View view;
        CountedGl gl(CountedGl::Uploads::areDropped);
        const CountedMemory memory;
        view.ShowGCode(program);
        const auto vertices = static_cast<double>(view.state().pathSize());
        state.counters["vertices"] = vertices;
        state.counters["peakBytesAVertex"] = static_cast<double>(memory.peak()) / vertices;
        state.counters["shownBytesAVertex"] = static_cast<double>(memory.held()) / vertices;
    }
}
BENCHMARK(memoryOfALoad)->Apply(sizes)->Iterations(1);

/// A peck cycle that runs into the greatest number of points.
void loadOfFiftyMillionPoints(benchmark::State& state) {
    for (auto _ : state) {
        View view;
        CountedGl gl(CountedGl::Uploads::areDropped);
        const CountedMemory memory;
        view.ShowGCode(QString::fromLatin1("G83 X0 Y0 Z-2000000000 R0 Q1"));
        const auto vertices = static_cast<double>(view.state().pathSize());
        state.counters["vertices"] = vertices;
        state.counters["peakBytesAVertex"] = static_cast<double>(memory.peak()) / vertices;
        state.counters["shownBytesAVertex"] = static_cast<double>(memory.held()) / vertices;
    }
}
BENCHMARK(loadOfFiftyMillionPoints)->Iterations(1)->Unit(benchmark::kMillisecond);

void frame(benchmark::State& state) {
    View view;
    view.ShowGCode(programOf(state));
    CountedGl gl(CountedGl::Uploads::areDropped);
    for (auto _ : state) {
        view.state().paintGL();
    }
}
BENCHMARK(frame)->Apply(sizes)->Unit(benchmark::kMicrosecond);

/// With its frame, and with the start of the next segment after the last step of each.
void tick(benchmark::State& state) {
    View view;
    view.ShowGCode(programOf(state));
    CountedGl gl(CountedGl::Uploads::areDropped);
    view.Simulate(1);
    for (auto _ : state) {
        view.update();
    }
}
BENCHMARK(tick)->Apply(sizes)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
