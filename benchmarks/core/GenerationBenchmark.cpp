// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The text of a tool path, when its order is known.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <sstream>
#include <string>
#include <vector>

#include "LiteralGenerators.h"
#include "SheetDrawing.h"
#include "core/ProgramText.h"

namespace {

GCode::ToolPathSettings settings(const benchmark::State& state) {
    GCode::ToolPathSettings settings;
    settings.mode = state.range(1) == 0 ? GCode::MotionMode::absolute : GCode::MotionMode::relative;
    settings.feedXY = 300;
    settings.feedZ = 100;
    settings.parameters.SetParams(2, 10, -1, mm);
    return settings;
}

template <class Writer>
std::string programOf(const std::vector<Drawn>& drawing, const GCode::ToolPathSettings& settings) {
    std::stringstream buffer;
    GCode::PositionAndFeed position;
    Writer writer(settings, &position);
    for (const Drawn& drawn : drawing) {
        buffer << (drawn.kind == Drawn::Kind::line ? writer.line(drawn.first, drawn.second)
                                                   : writer.arc(arcGeometry(drawn)));
    }
    return buffer.str();
}

template <class Writer>
void generate(benchmark::State& state) {
    const std::vector<Drawn> drawing = sheetDrawing(static_cast<std::size_t>(state.range(0)));
    std::string program;
    for (auto _ : state) {
        program = programOf<Writer>(drawing, settings(state));
    }
    if (program != programOf<LiteralToolPath>(drawing, settings(state))) {
        state.SkipWithError("the program is another one");
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(program.size()));
}

void fast(benchmark::State& state) {
    generate<GCode::ToolPathWriter>(state);
}

void literal(benchmark::State& state) {
    generate<LiteralToolPath>(state);
}

/// The least that must be done: the numbers that differ from entity to entity, in their shortest
/// form, and the other bytes of the program, which do not.
void bareNumbers(benchmark::State& state) {
    const std::vector<Drawn> drawing = sheetDrawing(static_cast<std::size_t>(state.range(0)));
    const std::string rest = "G01 Z2 F100\nG0 Z10\nG0 X Y\nG0 Z2\nG01 Z-1 F100\nG03 X Y I J F300\n";
    for (auto _ : state) {
        std::string program;
        std::array<char, 32> text{};
        for (const Drawn& drawn : drawing) {
            const std::array<double, 6> values{drawn.first.m_x,  drawn.first.m_y,
                                               drawn.second.m_x, drawn.second.m_y,
                                               drawn.centre.m_x, drawn.centre.m_y};
            const std::size_t count = drawn.kind == Drawn::Kind::line ? 4 : values.size();
            program += rest;
            for (std::size_t i = 0; i < count; ++i) {
                program.append(text.begin(),
                               std::to_chars(text.begin(), text.end(), values[i]).ptr);
            }
        }
        benchmark::DoNotOptimize(program);
    }
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Unit(benchmark::kMillisecond)->ArgNames({"entities", "relative"});
    for (const int entities : {1'000, 10'000, 100'000}) {
        subject->Args({entities, 0})->Args({entities, 1});
    }
}

BENCHMARK(fast)->Apply(sizes);
BENCHMARK(literal)->Apply(sizes);
BENCHMARK(bareNumbers)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
