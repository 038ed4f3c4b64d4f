// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <algorithm>
#include <list>
#include <vector>

#include "LiteralPathOrder.h"
#include "SheetDrawing.h"
#include "core/PathOrder.h"

namespace {

using Entities = std::vector<GCode::Entity>;

Entities randomLines(std::size_t count) {
    return pathEntities(scatteredLines(count));
}

Entities randomSheet(std::size_t count) {
    return pathEntities(inRandomOrder(sheetDrawing(count)));
}

Entities orderedSheet(std::size_t count) {
    return pathEntities(sheetDrawing(count));
}

void fast(benchmark::State& state, Entities (*make)(std::size_t)) {
    const Entities entities = make(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(GCode::sortEntities(entities, GCode::Point()));
    }
}

/// Says so when the fast one gives anything else.
void literal(benchmark::State& state, Entities (*make)(std::size_t)) {
    const Entities entities = make(static_cast<std::size_t>(state.range(0)));
    std::list<GCode::Entity> path;
    for (auto _ : state) {
        path = literalPathOrder({entities.begin(), entities.end()}, GCode::Point());
    }
    const Entities other = GCode::sortEntities(entities, GCode::Point());
    const bool same = std::equal(path.begin(), path.end(), other.begin(), other.end(),
                                 [](const GCode::Entity& a, const GCode::Entity& b) {
                                     return a.object == b.object && a.firstPoint == b.firstPoint &&
                                            a.secondPoint == b.secondPoint;
                                 });
    if (!same) {
        state.SkipWithError("the fast path is another one");
    }
}

/// The least that must be done: each entity is looked at once and copied.
void bareCopy(benchmark::State& state) {
    const Entities entities = orderedSheet(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        Entities path;
        double sum = 0;
        for (const GCode::Entity& entity : entities) {
            sum += GCode::distance(entity.firstPoint, entity.secondPoint);
            path.push_back(entity);
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(path);
    }
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(1'000)->Arg(10'000)->Arg(20'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

void once(benchmark::internal::Benchmark* subject) {
    sizes(subject);
    subject->Iterations(1)->Repetitions(1);
}

BENCHMARK_CAPTURE(fast, randomLines, &randomLines)->Apply(sizes);
BENCHMARK_CAPTURE(literal, randomLines, &randomLines)->Apply(once);
BENCHMARK_CAPTURE(fast, randomSheet, &randomSheet)->Apply(sizes);
BENCHMARK_CAPTURE(literal, randomSheet, &randomSheet)->Apply(once);
BENCHMARK_CAPTURE(fast, orderedSheet, &orderedSheet)->Apply(sizes);
BENCHMARK_CAPTURE(literal, orderedSheet, &orderedSheet)->Apply(once);
BENCHMARK(bareCopy)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
