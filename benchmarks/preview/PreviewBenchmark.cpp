// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <QString>
#include <array>
#include <charconv>
#include <string>
#include <vector>

#include "LiteralGCodeParser.h"
#include "MillingProgram.h"
#include "openglplotter/PreviewPath.h"

namespace {

constexpr std::size_t kMillion = 1'000'000;

void report(benchmark::State& state, std::size_t lines, const std::string& text) {
    const auto rounds = static_cast<std::int64_t>(state.iterations());
    state.SetItemsProcessed(rounds * static_cast<std::int64_t>(lines));
    state.SetBytesProcessed(rounds * static_cast<std::int64_t>(text.size()));
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(kMillion / 10)->Arg(kMillion)->Arg(5 * kMillion)->Unit(benchmark::kMillisecond);
}

struct BarePath {
    std::vector<Point3d> vertices;
    std::vector<Color> colors;
};

/// How many vertices a line of the program adds that has coordinates.
std::size_t verticesOfLine(float gCode, bool wholePath) {
    constexpr std::size_t kArcVertices = 30;
    constexpr std::size_t kPeckVertices = 12;
    if (!wholePath || gCode < 2) {
        return 1;
    }
    return gCode == 2 ? kArcVertices : kPeckVertices;
}

/// The least that must be done: one scan of the bytes, each number converted, and vertices with
/// their colours appended to lists that grow as the library lets them: one for each line with a
/// coordinate, or as many as the path really has, all at the line's point.
BarePath barePath(const std::string& text, bool wholePath) {
    BarePath path;
    std::array<float, 256> values{};
    const char* at = text.data();
    const char* const end = at + text.size();
    bool moves = false;
    while (at != end) {
        const auto letter = static_cast<unsigned char>(*at++);
        if (letter == '\n') {
            for (std::size_t i = moves ? verticesOfLine(values['G'], wholePath) : 0; i > 0; --i) {
                path.vertices.emplace_back(values['X'], values['Y'], values['Z']);
                path.colors.emplace_back(0, 1, 0, 0);
            }
            moves = false;
        } else if (letter >= 'A' && letter <= 'Z') {
            double value = 0;
            const auto [behind, error] = std::from_chars(at, end, value);
            if (error == std::errc()) {
                at = behind;
                values[letter] = static_cast<float>(value);
                moves = moves || letter >= 'X';
            }
        }
    }
    return path;
}

void bareScan(benchmark::State& state) {
    const auto lines = static_cast<std::size_t>(state.range(0));
    const std::string text = millingProgram(lines);
    for (auto _ : state) {
        benchmark::DoNotOptimize(barePath(text, false));
    }
    report(state, lines, text);
}
BENCHMARK(bareScan)->Apply(sizes);

void bareScanOfTheWholePath(benchmark::State& state) {
    const auto lines = static_cast<std::size_t>(state.range(0));
    const std::string text = millingProgram(lines);
    if (barePath(text, true).vertices.size() !=
        static_cast<std::size_t>(interpretProgram(text).vertices.size())) {
        state.SkipWithError("the floor has another number of vertices");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(barePath(text, true));
    }
    report(state, lines, text);
}
BENCHMARK(bareScanOfTheWholePath)->Apply(sizes);

void fast(benchmark::State& state) {
    const auto lines = static_cast<std::size_t>(state.range(0));
    const std::string text = millingProgram(lines);
    for (auto _ : state) {
        benchmark::DoNotOptimize(interpretProgram(text));
    }
    report(state, lines, text);
}
BENCHMARK(fast)->Apply(sizes);

/// The same from a text as the panel hands it on.
void fastInUtf16(benchmark::State& state) {
    const auto lines = static_cast<std::size_t>(state.range(0));
    const std::string text = millingProgram(lines);
    const QString qtText = QString::fromStdString(text);
    for (auto _ : state) {
        benchmark::DoNotOptimize(interpretProgram(qtText));
    }
    report(state, lines, text);
}
BENCHMARK(fastInUtf16)->Apply(sizes);

void literal(benchmark::State& state) {
    const auto lines = static_cast<std::size_t>(state.range(0));
    const std::string text = millingProgram(lines);
    const QString qtText = QString::fromStdString(text);
    for (auto _ : state) {
        benchmark::DoNotOptimize(literalPath(qtText, GCodeParserN::kMaxVertices));
    }
    report(state, lines, text);
}
BENCHMARK(literal)->Arg(kMillion)->Unit(benchmark::kMillisecond)->Iterations(1);

/// One line of a hundred million bytes.
void oneLine(benchmark::State& state) {
    std::string text = "G1 ";
    while (text.size() < 100 * kMillion) {
        text += "X5Y7 ";
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(interpretProgram(text));
    }
    report(state, 1, text);
}
BENCHMARK(oneLine)->Unit(benchmark::kMillisecond);

/// A peck cycle that runs into the greatest number of points.
void fiftyMillionPoints(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(interpretProgram("G83 X0 Y0 Z-2000000000 R0 Q1"));
    }
}
BENCHMARK(fiftyMillionPoints)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
