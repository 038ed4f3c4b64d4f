// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ViewFixture.h"

#include <algorithm>
#include <cstdlib>

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QScreen>
#include <QWheelEvent>
#include <QWindow>

ViewFixture::ViewFixture() : application(kxCreateHostApplication({})) {
    // The real pointer is not to take part.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    document = application->AddDocument("drawing", true);
    document->SetObjects({kxCreatePoint("0", {0, 0, 0}), kxCreatePoint("0", {552, 352, 0})});
    window.setGeometry(0, 0, 600, 440);
    view = new DrawingView(document, &window);
    view->setGeometry(0, 0, 600, 400);
    const auto record = [this](const std::vector<kxObject_ptr>& objects, SelectionEdit edit) {
        edits.push_back({objects, edit});
    };
    QObject::connect(view, &DrawingView::selectionEdited, record);
    QObject::connect(view, &DrawingView::confirmed, [this] { ++confirmed; });
    QObject::connect(view, &DrawingView::cancelled, [this] { ++cancelled; });
    QObject::connect(view, &DrawingView::hintChanged,
                     [this](const QString& hint) { hints.append(hint); });
    QObject::connect(view, &DrawingView::pointGiven,
                     [this](const QPointF& point) { points.push_back(point); });
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    view->setFocus();
    picture();
}

void ViewFixture::add(const std::vector<kxObject_ptr>& objects) {
    std::vector<kxObject_ptr> all = document->GetObjects();
    all.insert(all.end(), objects.begin(), objects.end());
    document->SetObjects(all);
    view->reload();
}

kxObject_ptr ViewFixture::line(double x1, double y1, double x2, double y2, const char* layer) {
    return kxCreateLine(layer, {x1, y1, 0}, {x2, y2, 0});
}

QPoint ViewFixture::at(double x, double y) const {
    return view->transform().toScreen({x, y}).toPoint();
}

void ViewFixture::move(const QPoint& position, Qt::KeyboardModifiers modifiers) {
    QTest::mouseEvent(QTest::MouseMove, window.windowHandle(), Qt::NoButton, modifiers, position);
}

void ViewFixture::press(Qt::MouseButton button, const QPoint& position,
                        Qt::KeyboardModifiers modifiers) {
    QTest::mousePress(window.windowHandle(), button, modifiers, position);
}

void ViewFixture::release(Qt::MouseButton button, const QPoint& position,
                          Qt::KeyboardModifiers modifiers) {
    QTest::mouseRelease(window.windowHandle(), button, modifiers, position);
}

void ViewFixture::click(const QPoint& position, Qt::KeyboardModifiers modifiers) {
    move(position, modifiers);
    press(Qt::LeftButton, position, modifiers);
    release(Qt::LeftButton, position, modifiers);
}

void ViewFixture::drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers,
                       Qt::MouseButton button) {
    move(from, modifiers);
    press(button, from, modifiers);
    move((from + to) / 2, modifiers);
    move(to, modifiers);
    release(button, to, modifiers);
}

void ViewFixture::key(Qt::Key key) {
    QTest::keyClick(view, key);
}

void ViewFixture::wheel(const QPointF& position, int angle) {
    QWheelEvent event(position, view->mapToGlobal(position.toPoint()), {}, {0, angle}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &event);
}

int ViewFixture::differences(const QImage& one, const QImage& other, int tolerance) {
    if (one.size() != other.size()) {
        return one.width() * one.height();
    }
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            const int difference =
                std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                          std::abs(qBlue(a) - qBlue(b))});
            count += difference > tolerance ? 1 : 0;
        }
    }
    return count;
}

bool ViewFixture::comes(const std::function<bool()>& condition) {
    constexpr int kLimitMs = 10000;
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > kLimitMs) {
            return false;
        }
        QTest::qWait(5);
    }
    return true;
}
