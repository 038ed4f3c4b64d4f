// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The check as a whole process, with its files and its report, beside rs274 on the same program:
// CPU time, and the most memory that it had.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "ChildProcess.h"
#include "ContourProgram.h"
#include "RingProgram.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMillion = 1'000'000;

/// Files of one subject, removed at the end.
class Folder {
public:
    Folder() : m_path(fs::temp_directory_path() / ("check-" + std::to_string(getpid()))) {
        fs::create_directories(m_path);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    void write(const char* name, const std::string& content) const {
        std::ofstream(m_path / name, std::ios::binary) << content;
    }
    std::string path() const { return m_path.string(); }

private:
    fs::path m_path;
};

enum class Subject { Contours, Rings };

std::string programOf(Subject subject, std::size_t lines) {
    return subject == Subject::Contours ? contourProgram(lines) : ringProgram(lines);
}

void measure(benchmark::State& state, const Folder& folder,
             const std::vector<std::string>& arguments,
             const std::vector<std::string>& variables = {}) {
    double peak = 0;
    for (auto _ : state) {
        const std::optional<ChildCost> cost = runChild(arguments, folder.path(), variables);
        // 5: the program ends within a contour, which is an error that is found.
        if (!cost || (cost->exitCode != 0 && cost->exitCode != 5)) {
            state.SkipWithError("it failed");
            return;
        }
        state.SetIterationTime(cost->seconds);
        peak = cost->peakMegabytes;
    }
    state.counters["PeakMegabytes"] = peak;
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

void check(benchmark::State& state, Subject subject) {
    const Folder folder;
    folder.write("program.nc", programOf(subject, static_cast<std::size_t>(state.range(0))));
    measure(state, folder, {KX_PROGRAM, "check", "program.nc"});
}

/// As many objects as the program has lines, divided by a hundred.
void checkWithDrawing(benchmark::State& state) {
    const Folder folder;
    const auto lines = static_cast<std::size_t>(state.range(0));
    folder.write("program.nc", ringProgram(lines));
    folder.write("drawing.dxf", ringDrawing(lines));
    measure(state, folder, {KX_PROGRAM, "check", "program.nc", "--drawing", "drawing.dxf"});
}

/// The whole process: it starts, reads the file, and prints what it does, which goes nowhere.
void rs274(benchmark::State& state, Subject subject) {
    const fs::path judge = KX_JUDGE;
    if (!fs::exists(judge / "bin/rs274")) {
        state.SkipWithError("no rs274: tools/fetch-linuxcnc-programs brings it");
        return;
    }
    const Folder folder;
    folder.write("program.ngc", programOf(subject, static_cast<std::size_t>(state.range(0))));
    folder.write("tools.tbl", "T1 P1 Z1 D1 ;\n");
    measure(state, folder, {(judge / "bin/rs274").string(), "-g", "-t", "tools.tbl", "program.ngc"},
            {"HOME=" + folder.path(), "LD_LIBRARY_PATH=" + (judge / "lib").string()});
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(kMillion / 10)->Arg(kMillion)->Unit(benchmark::kMillisecond)->UseManualTime();
}

void sizesUpTo5Million(benchmark::internal::Benchmark* subject) {
    sizes(subject);
    subject->Arg(5 * kMillion);
}

BENCHMARK_CAPTURE(check, contours, Subject::Contours)->Apply(sizesUpTo5Million);
BENCHMARK_CAPTURE(check, rings, Subject::Rings)->Apply(sizes);
BENCHMARK(checkWithDrawing)->Apply(sizesUpTo5Million);
BENCHMARK_CAPTURE(rs274, contours, Subject::Contours)->Apply(sizes)->Iterations(1);
BENCHMARK_CAPTURE(rs274, rings, Subject::Rings)->Apply(sizes)->Iterations(1);

}  // namespace
