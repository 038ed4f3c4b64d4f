// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/FrameCache.h"

#include <gtest/gtest.h>

namespace {

constexpr int kWidth = 700;
constexpr int kHeight = 500;

class FrameCacheTest : public testing::Test {
public:
    FrameCacheTest() {
        transform.resize({kWidth, kHeight});
        frame.start(transform, 1);
    }

    int draw() {
        QPainter painter(&screen);
        return frame.draw(&painter, QRectF(0, 0, kWidth, kHeight),
                          [](QPainter* tile, const QRectF& part) {
                              // Each pixel tells where it lies.
                              for (int y = 0; y < part.height(); ++y) {
                                  for (int x = 0; x < part.width(); ++x) {
                                      const QPointF at = part.topLeft() + QPointF(x, y);
                                      tile->fillRect(QRectF(at, QSizeF(1, 1)), colorAt(at));
                                  }
                              }
                          });
    }

    static QColor colorAt(const QPointF& at) {
        const auto byte = [](double value) { return static_cast<int>(value) & 0xff; };
        return {byte(at.x()), byte(at.y()), byte(at.x() / 256) * 16 + byte(at.y() / 256)};
    }

    void expectShift(const QPoint& shift) {
        for (const QPoint pixel : {QPoint(0, 0), QPoint(kWidth - 1, 0), QPoint(0, kHeight - 1),
                                   QPoint(kWidth - 1, kHeight - 1), QPoint(255, 256)}) {
            const QPoint at = pixel - shift;
            EXPECT_EQ(screen.pixelColor(pixel).red(), at.x() & 0xff);
            EXPECT_EQ(screen.pixelColor(pixel).green(), at.y() & 0xff);
        }
    }

    ViewTransform transform;
    FrameCache frame;
    QImage screen{kWidth, kHeight, QImage::Format_RGB32};
};

TEST_F(FrameCacheTest, whatIsPaintedOnceIsKept) {
    EXPECT_EQ(draw(), 6);
    expectShift({0, 0});
    EXPECT_EQ(draw(), 0);
}

TEST_F(FrameCacheTest, panPaintsOnlyWhatComesIn) {
    draw();
    frame.panBy({-10, 0});
    EXPECT_EQ(draw(), 0) << "the rest of the last column";
    expectShift({-10, 0});
    frame.panBy({20, 0});
    EXPECT_EQ(draw(), 2);
    expectShift({10, 0});
    frame.panBy({-10, 7});
    EXPECT_EQ(draw(), 3);
    expectShift({0, 7});
}

TEST_F(FrameCacheTest, fractionsOfAPixelAddUp) {
    for (int i = 0; i < 5; ++i) {
        frame.panBy({0.2, -0.6});
    }
    EXPECT_EQ(frame.shift(), QPointF(1, -3));
}

TEST_F(FrameCacheTest, transformFollowsTheShift) {
    const QPointF point = transform.toWorld({100, 100});
    frame.panBy({33, -44});
    EXPECT_NEAR(frame.transform().toScreen(point).x(), 133, 1e-9);
    EXPECT_NEAR(frame.transform().toScreen(point).y(), 56, 1e-9);
    frame.resize({800, 400});
    EXPECT_NEAR(frame.transform().toScreen(point).x(), 183, 1e-9);
    EXPECT_NEAR(frame.transform().toScreen(point).y(), 6, 1e-9);
    EXPECT_EQ(frame.transform().size(), QSizeF(800, 400));
}

TEST_F(FrameCacheTest, farPanStartsAnewAtTheSamePlace) {
    const QPointF point = transform.toWorld({100, 100});
    frame.panBy({3e9, 0});
    EXPECT_NEAR(frame.transform().toScreen(point).x(), 3e9 + 100, 1);
    EXPECT_EQ(frame.shift(), QPointF());
    draw();
}

TEST_F(FrameCacheTest, onlyTouchedTilesAreForgotten) {
    draw();
    frame.invalidate(QRectF(250, 10, 10, 10));
    EXPECT_EQ(draw(), 2);
    frame.invalidate();
    EXPECT_EQ(draw(), 6);
}

TEST_F(FrameCacheTest, tilesFarAwayAreForgotten) {
    draw();
    frame.panBy({5000, 0});
    draw();
    frame.panBy({-5000, 0});
    EXPECT_EQ(draw(), 6);
}

TEST_F(FrameCacheTest, tilesHaveTheResolutionOfTheScreen) {
    frame.start(transform, 2);
    EXPECT_EQ(frame.transform().size(), QSizeF(kWidth, kHeight));
    screen = QImage(2 * kWidth, 2 * kHeight, QImage::Format_RGB32);
    screen.setDevicePixelRatio(2);
    EXPECT_EQ(draw(), 24);
    frame.panBy({0.5, 0});
    EXPECT_EQ(frame.shift(), QPointF(0.5, 0)) << "a device pixel";
}

}  // namespace
