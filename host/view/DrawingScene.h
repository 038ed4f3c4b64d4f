// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include <QPointF>

#include <kx/host/kxHostDocument.h>

#include "view/WorldBox.h"

/// The visible objects of a drawing, made ready to be drawn and picked: what lies where. Objects
/// are named by their index in `objects()`, which is drawing order without hidden layers.
/// A snapshot: make a new one when objects or layers change.
class DrawingScene {
public:
    DrawingScene();
    explicit DrawingScene(const kxHostDocument_c& document);
    DrawingScene(DrawingScene&&) noexcept;
    DrawingScene& operator=(DrawingScene&&) noexcept;
    ~DrawingScene();

    const std::vector<kxObject_ptr>& objects() const;
    /// The index of an object; nothing when it is not visible.
    std::optional<std::size_t> indexOf(const kxObject* object) const;
    /// The exact box of everything visible.
    const WorldBox& extents() const;

    /// The object nearest to a point, not farther away than `tolerance` drawing units, measured to
    /// the true curve; of equally near ones the one drawn last.
    std::optional<std::size_t> nearest(const QPointF& world, double tolerance) const;
    /// Objects that lie wholly inside of the box, in drawing order.
    std::vector<std::size_t> contained(const WorldBox& box) const;
    /// Objects of which any point lies inside of the box, in drawing order.
    std::vector<std::size_t> crossing(const WorldBox& box) const;

    /// For the painter.
    struct Data;
    const Data& data() const { return *m_data; }

private:
    std::unique_ptr<Data> m_data;
};
