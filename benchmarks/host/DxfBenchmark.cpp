// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Reading a drawing: ours, the libraries alone, and a plain scan of the group codes.
#include <benchmark/benchmark.h>
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>
#ifdef KX_WITH_DIME
#include <dime/Input.h>
#include <dime/Model.h>
#endif

#include <algorithm>
#include <charconv>
#include <fstream>
#include <string_view>
#include <vector>

#include "DrawingFile.h"
#include "drawing/DxfReader.h"

namespace {

std::string fileOf(const benchmark::State& state) {
    return drawingFile(static_cast<std::size_t>(state.range(0)), DrawingOrder::random);
}

void ours(benchmark::State& state) {
    const std::string path = fileOf(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(kxdrawing::readDxf(path));
    }
}

void dxflib(benchmark::State& state) {
    const std::string path = fileOf(state);
    for (auto _ : state) {
        DL_CreationAdapter nothing;
        DL_Dxf reader;
        benchmark::DoNotOptimize(reader.in(path, &nothing));
    }
}

#ifdef KX_WITH_DIME
void dime(benchmark::State& state) {
    const std::string path = fileOf(state);
    for (auto _ : state) {
        dimeInput input;
        dimeModel model;
        if (!input.setFile(path.c_str()) || !model.read(&input)) {
            state.SkipWithError("dime does not read the drawing");
            return;
        }
        benchmark::DoNotOptimize(model.findSection("ENTITIES"));
    }
}
#endif

std::string_view takeLine(std::string_view* text) {
    const std::size_t end = std::min(text->find('\n'), text->size());
    const std::string_view line = text->substr(0, end);
    text->remove_prefix(std::min(end + 1, text->size()));
    return line;
}

template <class Number>
Number numberIn(std::string_view line) {
    Number number{};
    const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    std::from_chars(line.data() + blanks, line.data() + line.size(), number);
    return number;
}

/// The least that must be done: the file is read, each group code and each real are converted, and
/// the reals appended.
void bareScan(benchmark::State& state) {
    const std::string path = fileOf(state);
    for (auto _ : state) {
        std::ifstream file(path, std::ios::binary);
        std::string bytes;
        file.seekg(0, std::ios::end);
        bytes.resize(static_cast<std::size_t>(file.tellg()));
        file.seekg(0);
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        std::vector<double> reals;
        for (std::string_view rest = bytes; !rest.empty();) {
            const int code = numberIn<int>(takeLine(&rest));
            const std::string_view value = takeLine(&rest);
            if (code >= 10 && code <= 59) {
                reals.push_back(numberIn<double>(value));
            }
        }
        benchmark::DoNotOptimize(reals);
    }
}

void sizes(benchmark::internal::Benchmark* subject) {
    subject->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(ours)->Apply(sizes);
BENCHMARK(dxflib)->Apply(sizes);
#ifdef KX_WITH_DIME
BENCHMARK(dime)->Apply(sizes);
#endif
BENCHMARK(bareScan)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
