// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <benchmark/benchmark.h>
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

#include <kx/host/kxHostApplication.h>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <cmath>
#include <fstream>

#include "BigDrawing.h"
#include "drawing/DxfReader.h"
#include "view/CanvasPainter.h"
#include "view/DrawingScene.h"

namespace {

constexpr int kEntities = 100'000;
constexpr int kWidth = 1200;
constexpr int kHeight = 800;

/// The file, in a folder that goes with the program.
class DrawingFile {
public:
    DrawingFile() : m_path(m_folder.filePath("big.dxf").toStdString()) {
        std::ofstream(m_path, std::ios::binary) << bigDrawing(kEntities);
    }
    const std::string& path() const { return m_path; }

private:
    QTemporaryDir m_folder;
    std::string m_path;
};

const std::string& bigFile() {
    static const DrawingFile file;
    return file.path();
}

/// The drawing, opened as the program does.
struct Opened {
    Opened() {
        const kxdrawing::ReadResult result = kxdrawing::readDxf(bigFile());
        application = kxCreateHostApplication({});
        document = application->AddDocument("big", true);
        kxdrawing::loadInto(*document, *result.drawing);
        scene = DrawingScene(*document);
    }

    kxHostApplication_ptr application;
    kxHostDocument_ptr document;
    DrawingScene scene;
};

const Opened& opened() {
    static const Opened big;
    return big;
}

ViewTransform wholeView() {
    ViewTransform transform;
    transform.resize(QSizeF(kWidth, kHeight));
    transform.fit(opened().scene.extents());
    return transform;
}

void paintFrames(benchmark::State& state, const ViewTransform& transform, bool selected) {
    const std::vector<bool> chosen(kEntities, selected);
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    for (auto _ : state) {
        CanvasPainter(opened().scene, transform, {})
            .paint(&painter, QRectF(0, 0, kWidth, kHeight), chosen);
    }
}

void readingByDxflibAlone(benchmark::State& state) {
    for (auto _ : state) {
        DL_CreationAdapter nothing;
        DL_Dxf reader;
        benchmark::DoNotOptimize(reader.in(bigFile(), &nothing));
    }
}
BENCHMARK(readingByDxflibAlone)->Unit(benchmark::kMillisecond);

void reading(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(kxdrawing::readDxf(bigFile()));
    }
}
BENCHMARK(reading)->Unit(benchmark::kMillisecond);

void makingTheScene(benchmark::State& state) {
    opened();
    for (auto _ : state) {
        benchmark::DoNotOptimize(DrawingScene(*opened().document));
    }
}
BENCHMARK(makingTheScene)->Unit(benchmark::kMillisecond);

/// All that happens between the choice of a file and its first frame.
void opening(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(Opened());
    }
}
BENCHMARK(opening)->Unit(benchmark::kMillisecond);

void frameOfAll(benchmark::State& state) {
    paintFrames(state, wholeView(), false);
}
BENCHMARK(frameOfAll)->Unit(benchmark::kMillisecond);

void frameOfAllSelected(benchmark::State& state) {
    paintFrames(state, wholeView(), true);
}
BENCHMARK(frameOfAllSelected)->Unit(benchmark::kMillisecond);

/// A part of the drawing, the first argument times as large as when all is seen.
void frameZoomedIn(benchmark::State& state) {
    ViewTransform transform = wholeView();
    transform.zoomAt({400, 300}, static_cast<double>(state.range(0)));
    paintFrames(state, transform, false);
}
BENCHMARK(frameZoomedIn)->Arg(2)->Arg(5)->Arg(20)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// Under the cursor, which is somewhere else each time, when all is seen.
void pick(benchmark::State& state) {
    const ViewTransform transform = wholeView();
    int i = 0;
    for (auto _ : state) {
        i = (i + 7919) % (kWidth * kHeight);
        const QPointF cursor(i % kWidth, std::floor(i / kWidth));
        benchmark::DoNotOptimize(
            opened().scene.nearest(transform.toWorld(cursor), 5 / transform.scale()));
    }
}
BENCHMARK(pick)->Unit(benchmark::kMicrosecond);

/// A quarter of the drawing.
WorldBox quarterBox() {
    const WorldBox& all = opened().scene.extents();
    WorldBox box;
    box.add(all.center());
    box.add(QPointF(all.maxX, all.maxY));
    return box;
}

void windowSelection(benchmark::State& state) {
    const WorldBox quarter = quarterBox();
    for (auto _ : state) {
        benchmark::DoNotOptimize(opened().scene.contained(quarter));
    }
}
BENCHMARK(windowSelection)->Unit(benchmark::kMillisecond);

void crossingSelection(benchmark::State& state) {
    const WorldBox quarter = quarterBox();
    for (auto _ : state) {
        benchmark::DoNotOptimize(opened().scene.crossing(quarter));
    }
}
BENCHMARK(crossingSelection)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    // Nothing here has a window.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
