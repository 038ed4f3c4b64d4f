// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/DrawingScene.h"

#include <algorithm>
#include <limits>

#include "drawing/Selectable.h"
#include "view/Distance.h"
#include "view/SceneData.h"

DrawingScene::DrawingScene() : m_data(std::make_unique<Data>()) {}
DrawingScene::DrawingScene(DrawingScene&&) noexcept = default;
DrawingScene& DrawingScene::operator=(DrawingScene&&) noexcept = default;
DrawingScene::~DrawingScene() = default;

DrawingScene::DrawingScene(const kxHostDocument_c& document) : m_data(std::make_unique<Data>()) {
    Data& data = *m_data;
    data.objects = kxdrawing::selectableObjects(document);
    data.outlines.boxes.reserve(data.objects.size());
    data.outlines.begins.reserve(data.objects.size() + 1);
    data.indices.reserve(data.objects.size());
    for (std::size_t i = 0; i < data.objects.size(); ++i) {
        data.outlines.add(data.objects[i].get());
        data.extents.add(data.outlines.boxes.back());
        data.indices.emplace_back(data.objects[i].get(), i);
    }
    std::sort(data.indices.begin(), data.indices.end());
    data.tree = BoxTree(data.outlines.boxes);
}

const std::vector<kxObject_ptr>& DrawingScene::objects() const {
    return m_data->objects;
}

std::optional<std::size_t> DrawingScene::indexOf(const kxObject* object) const {
    const auto found = std::lower_bound(m_data->indices.begin(), m_data->indices.end(),
                                        std::make_pair(object, std::size_t{0}));
    const bool known = found != m_data->indices.end() && found->first == object;
    return known ? std::optional<std::size_t>(found->second) : std::nullopt;
}

const WorldBox& DrawingScene::extents() const {
    return m_data->extents;
}

std::optional<std::size_t> DrawingScene::nearest(const QPointF& world, double tolerance) const {
    const WorldBox around{world.x() - tolerance, world.y() - tolerance, world.x() + tolerance,
                          world.y() + tolerance};
    // Distances that differ by rounding only are equal: the object drawn last is the one seen.
    const double rounding = tolerance * 1e-9;
    const double precision = tolerance * 1e-6;
    std::optional<std::size_t> result;
    double best = tolerance;
    for (const std::uint32_t object : m_data->tree.meeting(around)) {
        const double limit = best + rounding;
        const double distance =
            outline::distance(m_data->outlines, object, world, limit, precision);
        if (distance <= limit && distance <= tolerance) {
            best = std::min(best, distance);
            result = object;
        }
    }
    return result;
}

std::vector<std::size_t> DrawingScene::contained(const WorldBox& box) const {
    std::vector<std::size_t> result;
    for (const std::uint32_t object : m_data->tree.meeting(box)) {
        if (box.contains(m_data->outlines.boxes[object])) {
            result.push_back(object);
        }
    }
    return result;
}

std::vector<std::size_t> DrawingScene::crossing(const WorldBox& box) const {
    std::vector<std::size_t> result;
    for (const std::uint32_t object : m_data->tree.meeting(box)) {
        if (box.contains(m_data->outlines.boxes[object]) ||
            outline::touches(m_data->outlines, object, box)) {
            result.push_back(object);
        }
    }
    return result;
}
