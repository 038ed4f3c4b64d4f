// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <QImage>
#include <QStringList>
#include <QTest>
#include <QWidget>

#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

#include "view/DrawingView.h"

/// A view of 600 x 400 in a window, with a drawing from (0, 0) to (552, 352): at first one unit is
/// one pixel, and the drawing's origin is 24 pixels from the left and from the bottom. The mouse
/// and the keys go through the window, as those of a user do.
class ViewFixture : public testing::Test {
public:
    struct Edit {
        std::vector<kxObject_ptr> objects;
        SelectionEdit edit;
    };

    ViewFixture();

    /// Adds to the drawing; the view shows it.
    void add(const std::vector<kxObject_ptr>& objects);
    kxObject_ptr line(double x1, double y1, double x2, double y2, const char* layer = "0");

    /// The pixel of a point of the drawing.
    QPoint at(double x, double y) const;
    void move(const QPoint& position, Qt::KeyboardModifiers modifiers = {});
    void press(Qt::MouseButton button, const QPoint& position,
               Qt::KeyboardModifiers modifiers = {});
    void release(Qt::MouseButton button, const QPoint& position,
                 Qt::KeyboardModifiers modifiers = {});
    void click(const QPoint& position, Qt::KeyboardModifiers modifiers = {});
    /// With the left button held, or with another one.
    void drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers modifiers = {},
              Qt::MouseButton button = Qt::LeftButton);
    void key(Qt::Key key);
    void wheel(const QPointF& position, int angle);

    QImage picture() { return view->grab().toImage(); }
    /// How many pixels of two pictures differ by more than a tolerance in a channel.
    static int differences(const QImage& one, const QImage& other, int tolerance = 0);
    /// Whether a condition comes true while events are handled.
    static bool comes(const std::function<bool()>& condition);

    kxHostApplication_ptr application;
    kxHostDocument_ptr document;
    QWidget window;
    DrawingView* view = nullptr;
    std::vector<Edit> edits;
    QStringList hints;
    std::vector<QPointF> points;
    int confirmed = 0;
    int cancelled = 0;
};
