// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <string>
#include <vector>

#include "ContourProgram.h"
#include "interpreter/Interpreter.h"

namespace {

constexpr std::size_t kMillion = 1'000'000;

const std::string& programOf(std::size_t lines) {
    static std::size_t known = 0;
    static std::string text;
    if (known != lines) {
        text = contourProgram(lines);
        known = lines;
    }
    return text;
}

void report(benchmark::State& state, const std::string& text) {
    const auto rounds = static_cast<std::int64_t>(state.iterations());
    state.SetItemsProcessed(rounds * state.range(0));
    state.SetBytesProcessed(rounds * static_cast<std::int64_t>(text.size()));
}

void interpreter(benchmark::State& state) {
    const std::string& text = programOf(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        const gcode_check::Reading reading = gcode_check::read(text);
        if (reading.endLine != static_cast<std::uint32_t>(state.range(0)) ||
            !reading.diagnostics.empty()) {
            state.SkipWithError("not read to its end");
        }
        benchmark::DoNotOptimize(reading.motions.data());
    }
    report(state, text);
}

/// The least that must be done: one scan of the bytes, each number converted, and a step appended
/// for each line with a coordinate.
void bareScan(benchmark::State& state) {
    const std::string& text = programOf(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        std::vector<gcode_check::Motion> motions;
        std::array<double, 256> values{};
        const char* at = text.data();
        const char* const end = at + text.size();
        bool moves = false;
        while (at != end) {
            const auto letter = static_cast<unsigned char>(*at++);
            if (letter >= 'A' && letter <= 'Z') {
                at = std::from_chars(at, end, values[letter]).ptr;
                moves = moves || (letter >= 'X' && letter <= 'Z');
            } else if (letter == '\n' && moves) {
                gcode_check::Motion motion;
                motion.to = {values['X'], values['Y'], values['Z']};
                motions.push_back(motion);
                moves = false;
            }
        }
        benchmark::DoNotOptimize(motions.data());
    }
    report(state, text);
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond);
}

BENCHMARK(interpreter)->Apply(sizes);
BENCHMARK(bareScan)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
