// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/CanvasPainter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "SceneFixture.h"

namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 200;
const QRectF kWhole(0, 0, kWidth, kHeight);

ViewTransform viewOf(const QPointF& center, double scale) {
    ViewTransform transform;
    transform.resize(kWhole.size());
    WorldBox box;
    box.add(center);
    transform.fit(box);
    transform.zoomAt(kWhole.center(), scale / transform.scale());
    return transform;
}

/// Only the objects.
CanvasOptions bare(Canvas canvas = Canvas::Dark) {
    return {canvas, false, false};
}

using Paint = std::function<void(QPainter*)>;

QImage painted(const Paint& paint, double ratio = 1) {
    QImage image(static_cast<int>(kWidth * ratio), static_cast<int>(kHeight * ratio),
                 QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    paint(&painter);
    return image;
}

QImage painted(const DrawingScene& scene, const ViewTransform& view, double ratio = 1,
               const std::vector<bool>& selected = {}) {
    return painted(
        [&](QPainter* painter) {
            CanvasPainter(scene, view, bare()).paint(painter, kWhole, selected);
        },
        ratio);
}

const QRgb kBackground = CanvasColors::of(Canvas::Dark).background.rgb();
const QRgb kObject = CanvasColors::of(Canvas::Dark).object.rgb();
const QRgb kSelected = CanvasColors::of(Canvas::Dark).selected.rgb();

/// How much of each pixel of a column is covered, summed: the width of a flat line in pixels.
double coverage(const QImage& image, int column) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        const int full = qRed(kObject) - qRed(kBackground);
        sum += static_cast<double>(qRed(image.pixel(column, y)) - qRed(kBackground)) / full;
    }
    return sum;
}

/// Where the ink of a part of a column lies, on average.
double inkHeight(const QImage& image, int column, int top, int bottom) {
    double sum = 0;
    double moment = 0;
    for (int y = top; y < bottom; ++y) {
        const int ink = std::abs(qRed(image.pixel(column, y)) - qRed(kBackground));
        sum += ink;
        moment += ink * (y + 0.5);
    }
    return moment / sum;
}

int countPixels(const QImage& image, QRgb color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) == color ? 1 : 0;
        }
    }
    return count;
}

/// So many short lines in a corner of the view that nothing is smoothed.
void addCrowd(std::vector<kxObject_ptr>* objects, double scale) {
    for (int i = 0; i < 6000; ++i) {
        objects->push_back(
            kxCreateLine("0", {-148 / scale, -90 / scale, 0}, {-140 / scale, -98 / scale, 0}));
    }
}

double luminance(const QColor& color) {
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double brighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (brighter + 0.05) / (darker + 0.05);
}

TEST(CanvasColors, ObjectsStandOutFromTheGroundAndFromEachOther) {
    for (const Canvas canvas : {Canvas::Dark, Canvas::Light}) {
        const CanvasColors colors = CanvasColors::of(canvas);
        EXPECT_GE(contrast(colors.object, colors.background), 7);
        EXPECT_GE(contrast(colors.selected, colors.background), 3);
        EXPECT_GE(contrast(colors.hovered, colors.background), 3);
        EXPECT_GE(contrast(colors.windowBox, colors.background), 3);
        EXPECT_GE(contrast(colors.crossingBox, colors.background), 3);
        EXPECT_LT(contrast(colors.majorGrid, colors.background), 2);
        EXPECT_LT(contrast(colors.minorGrid, colors.majorGrid), 2);
        EXPECT_NE(colors.selected.hue() / 60, colors.hovered.hue() / 60);
    }
}

class CanvasPainterRatio : public testing::TestWithParam<double> {};

TEST_P(CanvasPainterRatio, ALineIsOneDevicePixelWideAtAnyZoom) {
    const double ratio = GetParam();
    for (const double scale : {1e-3, 0.37, 1.0, 50.0, 1e4, 1e9}) {
        const SceneFixture fixture(
            {kxCreateLine("0", {-1e6, 0, 0}, {1e6, 0, 0}),
             kxCreateLine("0", {0.3 / scale, 20 / scale, 0}, {0.3 / scale, 70 / scale, 0})});
        const QImage image =
            painted(fixture.scene, viewOf({0.2 / scale, 0.2 / scale}, scale), ratio);
        for (int x = 0; x < image.width(); ++x) {
            if (std::abs(x - image.width() / 2) > 2 * ratio) {
                ASSERT_NEAR(coverage(image, x), 1, 0.02) << scale << ' ' << x;
            }
        }
        EXPECT_GT(countPixels(image, kObject), kWidth * ratio - 10) << scale;
    }
}

TEST_P(CanvasPainterRatio, ASlantedLineIsAsWideWhetherSmoothedOrNot) {
    const double ratio = GetParam();
    const double scale = 3;
    std::vector<kxObject_ptr> objects = {kxCreateLine("0", {-100, -10, 0}, {100, 10, 0})};
    const SceneFixture smooth(objects);
    addCrowd(&objects, scale);
    const SceneFixture crowded(objects);
    const QImage soft = painted(smooth.scene, viewOf({0, 0}, scale), ratio);
    const QImage hard = painted(crowded.scene, viewOf({0, 0}, scale), ratio);
    for (int x = soft.width() / 4; x < soft.width(); ++x) {
        ASSERT_NEAR(coverage(soft, x), 1, 0.1) << x;
        ASSERT_EQ(coverage(hard, x), 1) << x;
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, CanvasPainterRatio, testing::Values(1.0, 2.0, 1.5));

TEST(CanvasPainter, ALineThroughTheMiddleIsThereAtAHugeZoom) {
    for (const double scale : {1e3, 1e6, 1e9}) {
        const SceneFixture fixture(
            {kxCreateLine("0", {1e6 - 3e5, 1e6 - 3e5, 0}, {1e6 + 2e5, 1e6 + 2e5, 0}),
             kxCreateCircle("0", {1e6, 1e6 - 1000, 0}, 1000)});
        const QImage image = painted(fixture.scene, viewOf({1e6, 1e6}, scale));
        for (int x = 60; x < 240; x += 30) {
            if (x == 150) {
                continue;
            }
            // Going up to the right, and the circle's top, which is flat here.
            EXPECT_NEAR(coverage(image, x), 1 + std::sqrt(2.0), 0.1) << scale << ' ' << x;
            const int y = 100 - (x - 150);
            EXPECT_NE(image.pixel(x, y), kBackground) << scale << ' ' << x;
        }
        EXPECT_NE(image.pixel(10, 100), kBackground) << scale;
    }
}

/// Left and right of the column where a line meets an arc, the ink lies equally high.
void expectNoStepAt(const QImage& image, int join, int top) {
    const int outside = join < 150 ? -2 : 2;
    EXPECT_NEAR(inkHeight(image, join - outside, top, top + 60),
                inkHeight(image, join + outside, top, top + 60), 0.25)
        << join << ' ' << top;
}

TEST(CanvasPainter, ALineRunsIntoAnArcWithoutAStep) {
    const double quarter = std::acos(0.0);
    // A plate with rounded corners: above and below lines meet arcs at x = -100 and x = 100.
    const SceneFixture fixture(
        {kxCreateLine("0", {-100, 80, 0}, {100, 80, 0}),
         kxCreateLine("0", {-100, -80, 0}, {100, -80, 0}),
         kxCreateCircleArc("0", {{100, 40, 0}, 40, 0, quarter}),
         kxCreateCircleArc("0", {{-100, 40, 0}, 40, quarter, 2 * quarter}),
         kxCreateCircleArc("0", {{-100, -40, 0}, 40, 2 * quarter, 3 * quarter}),
         kxCreateCircleArc("0", {{100, -40, 0}, 40, 3 * quarter, 4 * quarter})});
    for (const bool isSelected : {false, true}) {
        for (double off = 0; off < 1; off += 0.1) {
            const QImage image =
                painted(fixture.scene, viewOf({off, off}, 1), 1, std::vector<bool>(6, isSelected));
            for (const int join : {50, 250}) {
                SCOPED_TRACE(testing::Message() << off << ' ' << isSelected);
                expectNoStepAt(image, join, 0);
                expectNoStepAt(image, join, 140);
            }
        }
    }
}

TEST(CanvasPainter, SelectedObjectsAreDrawnLastInTheirColourAndBold) {
    std::vector<kxObject_ptr> objects = {kxCreateLine("0", {-60, 0, 0}, {60, 0, 0}),
                                         kxCreateLine("0", {-60, 0, 0}, {60, 0, 0}),
                                         kxCreateLine("0", {-60, 30, 0}, {60, 30, 0})};
    for (const bool crowded : {false, true}) {
        if (crowded) {
            addCrowd(&objects, 1);
        }
        const SceneFixture fixture(objects);
        const QImage image = painted(fixture.scene, viewOf({0, 0}, 1), 1, {true, false, false});
        EXPECT_GE(countPixels(image, kSelected), 2 * 118);
        EXPECT_NE(image.pixel(150, 100), kObject);
        EXPECT_GE(countPixels(image, kObject), 118);
    }
}

TEST(CanvasPainter, TheHoveredObjectHasAHalo) {
    const SceneFixture fixture({kxCreateCircle("0", {0, 0, 0}, 50)});
    const ViewTransform view = viewOf({0, 0}, 1);
    const CanvasPainter canvas(fixture.scene, view, bare());
    const QImage image = painted([&](QPainter* painter) {
        canvas.paint(painter, kWhole, {});
        canvas.paintHovered(painter, 0);
        canvas.paintHovered(painter, 7);
    });
    EXPECT_NE(image.pixel(150 + 48, 100), kBackground);
    EXPECT_NE(image.pixel(150 + 51, 100), kBackground);
    EXPECT_EQ(image.pixel(150 + 44, 100), kBackground);
    EXPECT_EQ(image.pixel(150, 100), kBackground);
}

TEST(CanvasPainter, ThePainterStaysAsItWas) {
    const SceneFixture fixture(RandomObjects(5).take(50));
    const ViewTransform view = viewOf({0, 0}, 1);
    painted([&](QPainter* painter) {
        painter->setPen(Qt::red);
        CanvasPainter(fixture.scene, view, {}).paint(painter, {10, 10, 50, 50}, {});
        CanvasPainter(fixture.scene, view, {}).paintHovered(painter, 1);
        EXPECT_EQ(painter->pen().color(), QColor(Qt::red));
        EXPECT_FALSE(painter->hasClipping());
        EXPECT_TRUE(painter->transform().isIdentity());
        EXPECT_FALSE(painter->testRenderHint(QPainter::Antialiasing));
    });
}

TEST(CanvasPainter, NothingIsDrawnOutsideOfThePart) {
    const SceneFixture fixture(RandomObjects(6).take(500));
    const ViewTransform view = viewOf({0, 0}, 1);
    const QRect part(40, 30, 100, 80);
    const QImage image = painted([&](QPainter* painter) {
        CanvasPainter(fixture.scene, view, {}).paint(painter, part, std::vector<bool>(500, true));
    });
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const bool untouched = image.pixel(x, y) == QColor(Qt::magenta).rgb();
            ASSERT_EQ(untouched, !part.contains(x, y)) << x << ' ' << y;
        }
    }
}

void paintTiles(const CanvasPainter& canvas, const std::vector<bool>& selected, int size,
                QPainter* painter) {
    for (int y = 0; y < kHeight; y += size) {
        for (int x = 0; x < kWidth; x += size) {
            canvas.paint(painter, QRectF(x, y, size, size), selected);
        }
    }
}

TEST(CanvasPainter, PartsPaintedOneByOneMatchTheWhole) {
    const SceneFixture fixture(RandomObjects(7).take(400));
    const ViewTransform view = viewOf({3, 4}, 1.7);
    std::vector<bool> selected(400);
    for (std::size_t i = 0; i < selected.size(); i += 3) {
        selected[i] = true;
    }
    const CanvasPainter canvas(fixture.scene, view, {});
    const auto paintIn = [&](int size) {
        return painted([&](QPainter* painter) { paintTiles(canvas, selected, size, painter); });
    };
    const QImage whole = paintIn(1000);
    const QImage parts = paintIn(50);
    int different = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const QColor a(whole.pixel(x, y));
            const QColor b(parts.pixel(x, y));
            different += std::abs(a.red() - b.red()) > 40 ? 1 : 0;
        }
    }
    EXPECT_LT(different, kWidth * kHeight / 1000);
}

TEST(CanvasPainter, ObjectsSmallerThanAPixelAreDots) {
    std::vector<kxObject_ptr> objects;
    for (int i = 0; i < 20; ++i) {
        objects.push_back(kxCreateCircle("0", {10.0 * (i - 10), 0, 0}, 0.01));
        objects.push_back(kxCreateLine("0", {10.0 * (i - 10), 30, 0}, {10.0 * (i - 10), 30, 0}));
    }
    const SceneFixture fixture(objects);
    const QImage image = painted(fixture.scene, viewOf({0, 0}, 1));
    EXPECT_EQ(countPixels(image, kObject), 40);
    EXPECT_EQ(countPixels(image, kBackground), kWidth * kHeight - 40);
}

TEST(CanvasPainter, APointIsACrossOfTheSameSizeAtAnyZoom) {
    const SceneFixture fixture({kxCreatePoint("0", {0, 0, 0})});
    const int cross =
        kWidth * kHeight - countPixels(painted(fixture.scene, viewOf({0, 0}, 1)), kBackground);
    EXPECT_GT(cross, 9);
    EXPECT_LT(cross, 30);
    for (const double scale : {1e-6, 1e6}) {
        const QImage image = painted(fixture.scene, viewOf({0, 0}, scale));
        EXPECT_EQ(kWidth * kHeight - countPixels(image, kBackground), cross);
    }
}

TEST(CanvasPainter, ATextIsReadableOrABoxOrADot) {
    const SceneFixture fixture({kxCreateSimpleNote("0", {{0, 0, 0}, "HHHH", 10, 0.5})});
    const auto inked = [&](double scale) {
        const QImage image = painted(fixture.scene, viewOf({10, 10}, scale));
        return kWidth * kHeight - countPixels(image, kBackground);
    };
    EXPECT_GT(inked(4), 500);
    EXPECT_GT(inked(0.3), 8);
    EXPECT_EQ(inked(0.01), 1);
    // Inside of a stroke, or beside it, there is no edge; nothing fails.
    EXPECT_EQ(inked(1e9), 0);
}

TEST(CanvasPainter, TheGridAndTheAxesMeetInTheOrigin) {
    const SceneFixture fixture({});
    const ViewTransform view = viewOf({5, 5}, 1);
    const CanvasColors colors = CanvasColors::of(Canvas::Light);
    const QImage image = painted([&](QPainter* painter) {
        CanvasPainter(fixture.scene, view, {Canvas::Light, true, true}).paint(painter, kWhole, {});
    });
    EXPECT_EQ(image.pixel(20, 105), colors.xAxis.rgb());
    EXPECT_EQ(image.pixel(145, 20), colors.yAxis.rgb());
    EXPECT_EQ(image.pixel(155, 22), colors.minorGrid.rgb());
    EXPECT_EQ(image.pixel(245, 22), colors.majorGrid.rgb());
    EXPECT_NE(image.pixel(149, 103), colors.background.rgb());
    const QImage without = painted([&](QPainter* painter) {
        CanvasPainter(fixture.scene, view, bare(Canvas::Light)).paint(painter, kWhole, {});
    });
    EXPECT_EQ(countPixels(without, colors.background.rgb()), kWidth * kHeight);
}

TEST(CanvasPainter, TheGridIsDrawnAtEveryScaleAndPlace) {
    const SceneFixture fixture({});
    for (double scale = 1e-18; scale < 1e13; scale *= 1000) {
        const ViewTransform view = viewOf({1e5 / scale, -2e5 / scale}, scale);
        const QImage image = painted([&](QPainter* painter) {
            CanvasPainter(fixture.scene, view, {}).paint(painter, kWhole, {});
        });
        EXPECT_GT(countPixels(image, CanvasColors::of(Canvas::Dark).minorGrid.rgb()), 1000)
            << scale;
        EXPECT_GT(countPixels(image, kBackground), kWidth * kHeight / 2) << scale;
    }
}

}  // namespace
