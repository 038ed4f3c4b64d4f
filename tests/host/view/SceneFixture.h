// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <random>
#include <utility>
#include <vector>

#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>

#include "view/DrawingScene.h"

/// A drawing and the scene made of it.
struct SceneFixture {
    explicit SceneFixture(std::vector<kxObject_ptr> objects, std::vector<kxLayer> layers = {}) {
        document->SetLayers(std::move(layers));
        document->SetObjects(std::move(objects));
        scene = DrawingScene(*document);
    }

    kxHostApplication_ptr application = kxCreateHostApplication({});
    kxHostDocument_ptr document = application->AddDocument("drawing", true);
    DrawingScene scene;
};

/// Random objects of every kind with a curve, about ten units large, in the same order each time.
class RandomObjects {
public:
    explicit RandomObjects(unsigned seed) : m_random(seed) {}

    double between(double low, double high) {
        return low + (high - low) * static_cast<double>(m_random()) / 4294967296.0;
    }
    kxObject_ptr next(int kind);
    std::vector<kxObject_ptr> take(int count);

private:
    kxVector3 point(double size) { return {between(-size, size), between(-size, size), 0}; }
    kxVector3 anywhere() { return point(100); }
    kxObject_ptr polyLine();
    kxObject_ptr spline();

    std::mt19937 m_random;
};

/// Points along an object's curve, close to each other.
std::vector<QPointF> pointsAlong(kxObject* object, int count);
