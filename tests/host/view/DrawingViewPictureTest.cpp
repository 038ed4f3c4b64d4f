// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// What the view shows while the user looks around: pixels, not promises.
#include <cmath>
#include <random>

#include <gmock/gmock.h>

#include <QApplication>

#include "ViewFixture.h"

namespace {

using Objects = std::vector<kxObject_ptr>;

/// In the window below the view.
constexpr QPoint kOutside(300, 430);

class DrawingViewPictureTest : public ViewFixture {
public:
    /// Lines in all directions, circles and arcs, as a test of every pixel.
    void addTangle() {
        std::mt19937 random(5);
        std::uniform_real_distribution<double> x(0, 552);
        std::uniform_real_distribution<double> y(0, 352);
        std::uniform_real_distribution<double> radius(1, 90);
        Objects objects;
        for (int i = 0; i < 60; ++i) {
            objects.push_back(line(x(random), y(random), x(random), y(random)));
            objects.push_back(kxCreateCircle("0", {x(random), y(random), 0}, radius(random)));
        }
        objects.push_back(kxCreateSimpleNote("0", {{100, 100, 0}, "Text", 20, 0.3}));
        add(objects);
    }

    /// Everything painted again, at the same place.
    QImage freshPicture() {
        view->reload();
        return picture();
    }

    QImage withoutGround() {
        CanvasOptions plain = view->options();
        plain.grid = false;
        plain.axes = false;
        view->setOptions(plain);
        return picture();
    }

    /// How many pixels of a row or column of the picture are not background.
    static int inked(const QImage& image, const QPoint& from, const QPoint& step, int count) {
        const QRgb background = CanvasColors::of(Canvas::Dark).background.rgb();
        int result = 0;
        for (int i = 0; i < count; ++i) {
            result += image.pixel(from + step * i) != background ? 1 : 0;
        }
        return result;
    }

    static std::vector<QPoint> inkedPixels(const QImage& image) {
        std::vector<QPoint> result;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (inked(image, {x, y}, {}, 1) == 1) {
                    result.emplace_back(x, y);
                }
            }
        }
        return result;
    }
};

TEST_F(DrawingViewPictureTest, middleDragMovesTheDrawingByTheWayOfTheMouse) {
    move({100, 100});
    press(Qt::MiddleButton, {100, 100});
    EXPECT_EQ(view->cursor().shape(), Qt::ClosedHandCursor);
    move({137, 83});
    EXPECT_EQ(at(0, 0), QPoint(24 + 37, 376 - 17));
    move({90, 220});
    release(Qt::MiddleButton, {90, 220});
    EXPECT_EQ(at(0, 0), QPoint(24 - 10, 376 + 120));
    EXPECT_DOUBLE_EQ(view->transform().scale(), 1);
    EXPECT_EQ(view->cursor().shape(), Qt::CrossCursor);
    move({200, 200});
    EXPECT_EQ(at(0, 0), QPoint(24 - 10, 376 + 120)) << "the button is up";
}

TEST_F(DrawingViewPictureTest, pannedPictureIsAFreshPicture) {
    addTangle();
    wheel({211, 77}, 500);
    std::mt19937 random(7);
    std::uniform_int_distribution<int> x(0, 599);
    std::uniform_int_distribution<int> y(0, 399);
    for (int i = 0; i < 8; ++i) {
        drag({x(random), y(random)}, {x(random), y(random)}, {}, Qt::MiddleButton);
        move(kOutside);
        const QImage panned = picture();
        EXPECT_EQ(differences(panned, freshPicture()), 0) << "pan " << i;
    }
}

TEST_F(DrawingViewPictureTest, panMovesThePixels) {
    addTangle();
    const QImage before = picture();
    drag({300, 200}, {323, 189}, {}, Qt::MiddleButton);
    move(kOutside);
    const QImage after = picture();
    const int ratio = static_cast<int>(view->devicePixelRatioF());
    const QSize size = before.size() - QSize(23, 11) * ratio;
    const QImage source = before.copy(QRect(QPoint(0, 11) * ratio, size));
    const QImage target = after.copy(QRect(QPoint(23, 0) * ratio, size));
    EXPECT_EQ(differences(source, target), 0);
}

TEST_F(DrawingViewPictureTest, tilesShowWhatOnePieceShows) {
    addTangle();
    wheel({211, 77}, -240);
    QImage whole = picture();
    const QImage tiled = whole;
    whole.fill(Qt::magenta);
    QPainter painter(&whole);
    CanvasPainter(view->scene(), view->transform(), view->options())
        .paint(&painter, view->rect(), {});
    painter.end();
    // A line that is cut at the edge of a tile may be smoothed a bit otherwise there.
    EXPECT_LT(differences(tiled, whole, 64), whole.width() * whole.height() / 1000);
}

TEST_F(DrawingViewPictureTest, wheelKeepsThePointUnderTheCursor) {
    addTangle();
    for (const int angle : {120, 120, -360, 37, -15, 1200, -960}) {
        const QPointF cursor(431, 122);
        const QPointF before = view->transform().toWorld(cursor);
        const double scale = view->transform().scale();
        wheel(cursor, angle);
        const QPointF after = view->transform().toScreen(before);
        EXPECT_NEAR(after.x(), cursor.x(), 1e-6);
        EXPECT_NEAR(after.y(), cursor.y(), 1e-6);
        EXPECT_NEAR(view->transform().scale(), scale * std::pow(1.25, angle / 120.0), 1e-9);
    }
}

TEST_F(DrawingViewPictureTest, keysZoomAndPan) {
    const QPointF center = view->transform().toWorld({300, 200});
    key(Qt::Key_Plus);
    EXPECT_DOUBLE_EQ(view->transform().scale(), 1.25);
    EXPECT_EQ(view->transform().toWorld({300, 200}), center);
    key(Qt::Key_Minus);
    EXPECT_NEAR(view->transform().scale(), 1, 1e-12);
    key(Qt::Key_Right);
    EXPECT_EQ(at(0, 0), QPoint(24 - 60, 376)) << "the view goes right, the drawing left";
    key(Qt::Key_Left);
    key(Qt::Key_Up);
    EXPECT_EQ(at(0, 0), QPoint(24, 376 + 40));
    key(Qt::Key_Down);
    EXPECT_EQ(at(0, 0), QPoint(24, 376));
}

TEST_F(DrawingViewPictureTest, spaceHomeAndDoubleMiddleClickFit) {
    const auto isFitted = [this] {
        return view->transform().scale() == 1 && at(0, 0) == QPoint(24, 376);
    };
    wheel({50, 50}, 360);
    EXPECT_FALSE(isFitted());
    key(Qt::Key_Space);
    EXPECT_TRUE(isFitted());
    wheel({50, 50}, -360);
    key(Qt::Key_Home);
    EXPECT_TRUE(isFitted());
    wheel({50, 50}, 360);
    QTest::mouseDClick(window.windowHandle(), Qt::MiddleButton, Qt::NoModifier, {80, 90});
    EXPECT_TRUE(isFitted());
    EXPECT_EQ(view->cursor().shape(), Qt::CrossCursor);
}

TEST_F(DrawingViewPictureTest, resizeKeepsTheMiddle) {
    addTangle();
    wheel({50, 50}, 250);
    const double scale = view->transform().scale();
    const QPointF center = view->transform().toWorld({300, 200});
    for (const QSize size : {QSize(500, 300), QSize(571, 333), QSize(600, 400)}) {
        view->resize(size);
        const QPointF now =
            view->transform().toScreen(center) - QPointF(size.width(), size.height()) / 2;
        EXPECT_LE(std::max(std::abs(now.x()), std::abs(now.y())), 0.5 + 1e-9) << size.width();
        const QImage resized = picture();
        EXPECT_EQ(differences(resized, freshPicture()), 0);
    }
    EXPECT_DOUBLE_EQ(view->transform().scale(), scale);
    EXPECT_NEAR(view->transform().toWorld({300, 200}).x(), center.x(), 1e-9);
}

TEST_F(DrawingViewPictureTest, reloadKeepsWhatIsShown) {
    wheel({50, 50}, 250);
    const QPoint origin = at(0, 0);
    add({line(-1000, -1000, 2000, 2000)});
    EXPECT_EQ(at(0, 0), origin);
}

TEST_F(DrawingViewPictureTest, objectUnderTheCursorIsMarkedUntilItIsLeft) {
    add({line(100, 200, 300, 200), line(100, 300, 300, 300)});
    move(at(400, 100));
    const QImage plain = picture();
    move(at(200, 204));
    ASSERT_TRUE(comes([&] { return differences(picture(), plain) > 0; }));
    const QImage hovered = picture();
    const int ratio = static_cast<int>(view->devicePixelRatioF());
    EXPECT_EQ(hovered.pixelColor(at(200, 200) * ratio), CanvasColors::of(Canvas::Dark).hovered);
    EXPECT_EQ(hovered.pixel(at(200, 300) * ratio), plain.pixel(at(200, 300) * ratio));
    move(at(400, 100));
    EXPECT_TRUE(comes([&] { return differences(picture(), plain) == 0; }));
    move(at(200, 204));
    ASSERT_TRUE(comes([&] { return differences(picture(), plain) > 0; }));
    move(kOutside);
    EXPECT_TRUE(comes([&] { return differences(picture(), plain) == 0; }));
}

TEST_F(DrawingViewPictureTest, objectThatCameInByPanningIsMarked) {
    add({line(-400, 200, -100, 200)});
    drag({100, 100}, {500, 150}, {}, Qt::MiddleButton);
    move(kOutside);
    const QImage plain = picture();
    move(at(-300, 201));
    EXPECT_TRUE(comes([&] { return differences(picture(), plain) > 0; }));
    const int ratio = static_cast<int>(view->devicePixelRatioF());
    EXPECT_EQ(picture().pixelColor(at(-300, 200) * ratio), CanvasColors::of(Canvas::Dark).hovered);
}

TEST_F(DrawingViewPictureTest, nothingIsMarkedWhereAClickPicksNothing) {
    add({line(100, 200, 300, 200)});
    move(at(400, 100));
    const QImage plain = picture();
    view->startPoints(1);
    move(at(200, 200));
    QTest::qWait(50);
    EXPECT_EQ(differences(picture(), plain), 0);
}

TEST_F(DrawingViewPictureTest, selectedObjectsAreShownAsSelected) {
    const auto first = line(100, 200, 300, 200);
    const auto second = line(100, 300, 300, 300);
    add({first, second});
    const int ratio = static_cast<int>(view->devicePixelRatioF());
    const CanvasColors colors = CanvasColors::of(Canvas::Dark);
    const QImage plain = picture();
    view->showSelected({second});
    EXPECT_EQ(picture().pixelColor(at(200, 200) * ratio), colors.object);
    EXPECT_EQ(picture().pixelColor(at(200, 300) * ratio), colors.selected);
    view->reload();
    EXPECT_EQ(picture().pixelColor(at(200, 300) * ratio), colors.selected);
    EXPECT_EQ(differences(picture(), freshPicture()), 0);
    view->showSelected({});
    EXPECT_EQ(differences(picture(), plain), 0);
}

TEST_F(DrawingViewPictureTest, selectionRepaintsAllThatChangedAndOnlyThat) {
    addTangle();
    wheel({211, 77}, 500);
    const Objects& all = document->GetObjects();
    const auto part = [&](std::size_t first, std::size_t last) {
        using Difference = Objects::difference_type;
        return Objects(all.begin() + static_cast<Difference>(first),
                       all.begin() + static_cast<Difference>(last));
    };
    for (const Objects& objects :
         {part(5, 9), part(7, 60), part(0, 1), part(all.size() - 3, all.size())}) {
        view->showSelected(objects);
        const QImage shown = picture();
        EXPECT_EQ(differences(shown, freshPicture()), 0);
    }
}

TEST_F(DrawingViewPictureTest, boxesAreDrawnWithTheirOwnColours) {
    const CanvasColors colors = CanvasColors::of(Canvas::Dark);
    CanvasOptions plain;
    plain.grid = false;
    plain.axes = false;
    view->setOptions(plain);
    const int ratio = static_cast<int>(view->devicePixelRatioF());
    click({300, 100});
    move({450, 300});
    EXPECT_EQ(picture().pixelColor(QPoint(300, 200) * ratio), colors.windowBox);
    const QColor windowFill = picture().pixelColor(QPoint(400, 200) * ratio);
    EXPECT_GT(windowFill.blue() - colors.background.blue(), 5);
    EXPECT_EQ(inked(picture(), QPoint(302, 100) * ratio, {1, 0}, 140 * ratio), 140 * ratio);
    move({150, 300});
    const QColor crossingFill = picture().pixelColor(QPoint(200, 200) * ratio);
    EXPECT_GT(crossingFill.green() - colors.background.green(), 5);
    EXPECT_NE(crossingFill, windowFill);
    int gaps = 0;
    for (int x = 152 * ratio; x < 298 * ratio; ++x) {
        gaps += picture().pixelColor(x, 300 * ratio) == colors.crossingBox ? 0 : 1;
    }
    EXPECT_GT(gaps, 30) << "dashed";
    key(Qt::Key_Escape);
    EXPECT_EQ(picture().pixelColor(QPoint(400, 200) * ratio), colors.background);
}

TEST_F(DrawingViewPictureTest, givenPointsAreMarkedAndJoinedUntilTheNextClick) {
    // Blue, on a ground that is nearly grey.
    const auto isMarked = [&](const QPoint& place) {
        const QColor seen = picture().pixelColor(place * view->devicePixelRatioF());
        return seen.blue() - seen.red() > 50;
    };
    view->startPoints(2);
    click({200, 200});
    move({300, 200});
    EXPECT_TRUE(isMarked({200, 196}));
    EXPECT_TRUE(isMarked({250, 200})) << "a line to the cursor";
    click({300, 200});
    move({400, 100});
    EXPECT_TRUE(isMarked({300, 196}));
    EXPECT_TRUE(isMarked({250, 200})) << "what was measured stays to be seen";
    key(Qt::Key_Escape);
    EXPECT_FALSE(isMarked({250, 200}));
    EXPECT_FALSE(isMarked({200, 196}));
}

TEST_F(DrawingViewPictureTest, linesStayOnePixelWideAtAnyZoom) {
    const int ratio = static_cast<int>(view->devicePixelRatioF());
    add({line(-1e6, 200, 1e6, 200), line(276, -1e6, 276, 1e6)});
    for (int i = 0; i < 12; ++i) {
        wheel(view->transform().toScreen({276, 200}), i % 2 == 0 ? 777 : 333);
        const QImage image = withoutGround();
        const QPointF crossing = view->transform().toScreen({276, 200}) * ratio;
        const QPoint pixel(static_cast<int>(crossing.x()), static_cast<int>(crossing.y()));
        EXPECT_EQ(inked(image, pixel + QPoint(-60, -20), {0, 1}, 40), 1) << "level " << i;
        EXPECT_EQ(inked(image, pixel + QPoint(-20, -60), {1, 0}, 40), 1) << "level " << i;
    }
}

TEST_F(DrawingViewPictureTest, circlesStayRoundAtAnyZoom) {
    const QPointF middle(276, 176);
    add({kxCreateCircle("0", {middle.x(), middle.y(), 0}, 100)});
    const double ratio = view->devicePixelRatioF();
    for (int i = 0; i < 6; ++i) {
        const QImage image = withoutGround();
        const QPointF center = view->transform().toScreen(middle) * ratio;
        const double radius = 100 * view->transform().scale() * ratio;
        // The marks of the two points lie far outside.
        const double reach = 2 * radius;
        int seen = 0;
        for (const QPoint& pixel : inkedPixels(image)) {
            const double distance =
                std::hypot(pixel.x() + 0.5 - center.x(), pixel.y() + 0.5 - center.y());
            seen += distance < reach ? 1 : 0;
            ASSERT_TRUE(distance > reach || std::abs(distance - radius) < 1.6)
                << pixel.x() << ' ' << pixel.y() << " is off at level " << i;
        }
        EXPECT_GT(seen, 200);
        wheel(view->transform().toScreen({346, 246}), 400);
    }
}

TEST_F(DrawingViewPictureTest, severalEventsCostOnePaint) {
    class PaintCounter : public QObject {
    public:
        bool eventFilter(QObject*, QEvent* event) override {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int paints = 0;
    };
    QTest::qWait(50);
    PaintCounter counter;
    view->installEventFilter(&counter);
    for (int i = 0; i < 20; ++i) {
        wheel({200, 200}, 12);
    }
    EXPECT_EQ(counter.paints, 0);
    ASSERT_TRUE(comes([&] { return counter.paints > 0; }));
    QTest::qWait(50);
    EXPECT_LE(counter.paints, 2);
}

TEST_F(DrawingViewPictureTest, pictureHasTheResolutionOfTheScreen) {
    const double ratio = view->devicePixelRatioF();
    EXPECT_EQ(picture().size(), (QSizeF(600, 400) * ratio).toSize());
    const QString factor = qEnvironmentVariable("QT_SCALE_FACTOR");
    EXPECT_DOUBLE_EQ(ratio, factor.isEmpty() ? 1 : factor.toDouble());
}

}  // namespace
