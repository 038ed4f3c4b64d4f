// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <QString>
#include <array>
#include <charconv>
#include <random>
#include <string>

#include "LiteralGCodeParser.h"
#include "openglplotter/PreviewPath.h"

namespace {

constexpr std::size_t kMillion = 1'000'000;

std::string fixed(double value) {
    std::string text = std::to_string(value);
    return text.substr(0, text.size() - 3);
}

/// Lines as a CAM program writes them for a surface: short feed moves, now and then a rapid, an arc
/// or a comment.
std::string surfaceProgram(std::size_t lines) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<> anywhere(-100, 100);
    std::string text = "(surface)\nG21 G90\nG0 Z5\n";
    for (std::size_t i = 3; i < lines; ++i) {
        const std::string xy = "X" + fixed(anywhere(random)) + " Y" + fixed(anywhere(random));
        if (i % 100 == 0) {
            text += "(next row)\n";
        } else if (i % 100 == 1) {
            text += "G0 Z5 " + xy + "\n";
        } else if (i % 50 == 2) {
            text += "G2 " + xy + " I1.5 J-2\n";
        } else {
            text += "G1 " + xy + " Z" + fixed(anywhere(random)) + " F800\n";
        }
    }
    return text;
}

void report(benchmark::State& state, std::size_t lines, const std::string& text) {
    const auto rounds = static_cast<std::int64_t>(state.iterations());
    state.SetItemsProcessed(rounds * static_cast<std::int64_t>(lines));
    state.SetBytesProcessed(rounds * static_cast<std::int64_t>(text.size()));
}

/// The least that must be done: one scan of the bytes, each number converted, a vertex and a colour
/// for each line with a coordinate.
PreviewPath floorPath(const std::string& text) {
    PreviewPath path;
    std::array<float, 256> values{};
    const char* at = text.data();
    const char* const end = at + text.size();
    bool moves = false;
    while (at != end) {
        const auto letter = static_cast<unsigned char>(*at++);
        if (letter == '\n') {
            if (moves) {
                path.vertices.append(Point3d(values['X'], values['Y'], values['Z']));
                path.colors.append(Color(0, 1, 0, 0));
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
    const std::string text = surfaceProgram(lines);
    for (auto _ : state) {
        benchmark::DoNotOptimize(floorPath(text));
    }
    report(state, lines, text);
}
BENCHMARK(bareScan)->Arg(kMillion)->Unit(benchmark::kMillisecond);

void fast(benchmark::State& state) {
    const auto lines = static_cast<std::size_t>(state.range(0));
    const std::string text = surfaceProgram(lines);
    for (auto _ : state) {
        benchmark::DoNotOptimize(interpretProgram(text));
    }
    report(state, lines, text);
}
BENCHMARK(fast)->Arg(kMillion)->Unit(benchmark::kMillisecond);

void literal(benchmark::State& state) {
    const auto lines = static_cast<std::size_t>(state.range(0));
    const std::string text = surfaceProgram(lines);
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
