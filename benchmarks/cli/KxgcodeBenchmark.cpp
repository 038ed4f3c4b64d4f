// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// kxgcode as a whole process, from the drawing to the program: its CPU time, as one sees it on a
// machine that has nothing else to do.
#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <array>
#include <optional>
#include <string>

#include "DrawingFile.h"

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// User and system time of the process; nothing when it fails.
std::optional<double> cpuSecondsOfRun(const std::string& drawing) {
    const std::string output = benchmarkFolder() + "/program.nc";
    const std::array<const char*, 16> arguments{
        KX_PROGRAM, drawing.c_str(), "--quiet", "-o",      output.c_str(), "--safe-height",
        "2",        "--retraction",  "10",      "--depth", "-1",           "--feed-z",
        "100",      "--feed-xy",     "300",     nullptr};
    const pid_t process = fork();
    if (process == 0) {
        execv(KX_PROGRAM, const_cast<char* const*>(arguments.data()));
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (process < 0 || wait4(process, &status, 0, &usage) != process || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0) {
        return std::nullopt;
    }
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void kxgcode(benchmark::State& state, DrawingOrder order) {
    const std::string drawing = drawingFile(static_cast<std::size_t>(state.range(0)), order);
    for (auto _ : state) {
        const std::optional<double> time = cpuSecondsOfRun(drawing);
        if (!time) {
            state.SkipWithError("kxgcode failed");
            return;
        }
        state.SetIterationTime(*time);
    }
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(10)->Arg(1'000)->Arg(10'000)->Arg(100'000);
    subject->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(kxgcode, drawn, DrawingOrder::drawn)->Apply(sizes);
BENCHMARK_CAPTURE(kxgcode, random, DrawingOrder::random)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
