// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ContourProgram.h"
#include "interpreter/Interpreter.h"

namespace fs = std::filesystem;

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

double secondsOfChildren() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The whole process: it starts, reads the file, and prints what it does, which goes nowhere.
void rs274(benchmark::State& state) {
    const fs::path judge = KX_JUDGE;
    if (!fs::exists(judge / "bin/rs274")) {
        state.SkipWithError("no rs274: tools/fetch-linuxcnc-programs brings it");
        return;
    }
    const std::string& text = programOf(static_cast<std::size_t>(state.range(0)));
    const fs::path folder = fs::temp_directory_path() / ("rs274-" + std::to_string(getpid()));
    fs::create_directories(folder);
    std::ofstream(folder / "program.ngc", std::ios::binary) << text;
    std::ofstream(folder / "tools.tbl") << "T1 P1 Z1 D1 ;\n";
    const std::string command = "cd '" + folder.string() + "' && HOME=\"$PWD\" LD_LIBRARY_PATH='" +
                                (judge / "lib").string() + "' '" + (judge / "bin/rs274").string() +
                                "' -g -t tools.tbl program.ngc >/dev/null 2>&1";
    for (auto _ : state) {
        const double before = secondsOfChildren();
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("rs274 does not take the program");
            break;
        }
        state.SetIterationTime(secondsOfChildren() - before);
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    report(state, text);
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond);
}

BENCHMARK(interpreter)->Apply(sizes);
BENCHMARK(bareScan)->Apply(sizes);
BENCHMARK(rs274)->Apply(sizes)->UseManualTime()->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
