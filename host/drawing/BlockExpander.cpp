// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/BlockExpander.h"

#include <algorithm>
#include <utility>

#include "drawing/ShapeTransform.h"

namespace kxdrawing {

namespace {

/// Block coordinates, base point at the origin, to those that the insert lies in.
Affine placementOf(const InsertShape& insert, const kxVector3& base, int column, int row) {
    const kxVector3 cell{column * insert.columnSpacing, row * insert.rowSpacing, 0};
    Affine map = Affine::translation(insert.position);
    if (insert.rotationDeg != 0) {
        map = map * Affine::rotationDeg(insert.rotationDeg);
    }
    map = map * Affine::translation(cell) * Affine::scaling(insert.scale) *
          Affine::translation({-base.x, -base.y, -base.z});
    return insert.mirrored ? Affine::mirroredExtrusion() * map : map;
}

std::string limitText(std::size_t limit, const char* things) {
    return "gives more than " + std::to_string(limit) + ' ' + things;
}

constexpr std::size_t kCharactersPerPoint = 8;

}  // namespace

BlockExpander::BlockExpander(const DxfModel& model, ExpandLimits limits, ImportReport* report)
    : m_model(model), m_limits(limits), m_report(*report) {}

std::vector<kxObject_ptr> BlockExpander::expand(double scale) {
    const Affine root = Affine::scaling({scale, scale, scale});
    for (const Entity& entity : m_model.entities) {
        if (!goesOn()) {
            break;
        }
        expandEntity(entity, root);
        ++m_done;
    }
    return std::move(m_objects);
}

void BlockExpander::expandEntity(const Entity& entity, const Affine& root) {
    if (const auto* insert = std::get_if<InsertShape>(&entity.content)) {
        expandTopInsert(entity, *insert, root);
        return;
    }
    ImportRow row{entity.type, entity.layer, ImportOutcome::Read, entity.convertedInto, 1, 0};
    if (const auto* shape = std::get_if<Shape>(&entity.content)) {
        const Emitted emitted = makeObjects(*shape, root, entity.layer);
        row.objects = emitted.objects;
        if (!emitted.problem.empty()) {
            row.outcome = ImportOutcome::LeftOut;
            row.detail = emitted.problem;
        } else if (!entity.convertedInto.empty()) {
            row.outcome = ImportOutcome::Converted;
        }
    } else {
        row.outcome = ImportOutcome::LeftOut;
        row.detail = std::get<LeftOut>(entity.content).reason;
    }
    m_report.add(row);
}

void BlockExpander::expandTopInsert(const Entity& entity, const InsertShape& insert,
                                    const Affine& root) {
    const std::size_t before = m_objects.size();
    const std::size_t pointsBefore = m_points;
    m_inside = {};
    m_overBudget = false;
    std::string reason = expandInsert(insert, {root, &entity.layer, isFrozen(entity.layer), 0});
    const std::string limit = limitReason(before, pointsBefore);
    if (!limit.empty()) {
        m_objects.resize(before);
        m_points = pointsBefore;
        reason = limit;
    } else {
        m_report.addInBlocks(m_inside);
    }
    const auto objects = static_cast<long>(m_objects.size() - before);
    if (reason.empty() && objects == 0) {
        const std::vector<ImportRow> inside = m_inside.rowsInBlocks();
        reason = inside.empty() ? "the block is empty" : "nothing usable in the block";
    }
    if (reason.empty()) {
        m_report.add({entity.type, entity.layer, ImportOutcome::Converted, "objects of the block",
                      1, objects});
    } else {
        m_report.add({entity.type, entity.layer, ImportOutcome::LeftOut, reason, 1, 0});
    }
}

std::string BlockExpander::expandInsert(const InsertShape& insert, const Placement& where) {
    const auto block = m_model.blocks.find(insert.block);
    if (block == m_model.blocks.end()) {
        return "the block is missing";
    }
    if (std::find(m_open.begin(), m_open.end(), &block->second) != m_open.end()) {
        return "the block refers to itself";
    }
    if (where.depth >= m_limits.depth) {
        return "blocks nested more than " + std::to_string(m_limits.depth) + " deep";
    }
    if (insert.scale.x == 0 || insert.scale.y == 0) {
        return "a scale of 0";
    }
    m_open.push_back(&block->second);
    for (int row = 0; row < insert.rows && !m_overBudget; ++row) {
        for (int column = 0; column < insert.columns && !overBudget(); ++column) {
            const Affine map = placementOf(insert, block->second.base, column, row);
            expandBlock(block->second,
                        {where.map * map, where.layer, where.frozen, where.depth + 1});
        }
    }
    m_open.pop_back();
    return "";
}

void BlockExpander::expandBlock(const Block& block, const Placement& where) {
    for (const Entity& entity : block.entities) {
        if (overBudget()) {
            return;
        }
        expandInBlock(entity, where);
    }
}

void BlockExpander::expandInBlock(const Entity& entity, const Placement& where) {
    const bool inherits = entity.layer == "0" || where.frozen;
    const std::string& layer = inherits ? *where.layer : entity.layer;
    if (const auto* insert = std::get_if<InsertShape>(&entity.content)) {
        const std::string problem =
            expandInsert(*insert, {where.map, &layer, isFrozen(layer), where.depth});
        if (!problem.empty()) {
            tally(entity, layer, ImportOutcome::LeftOut, problem);
        }
    } else if (const auto* shape = std::get_if<Shape>(&entity.content)) {
        if (overBudget(pointsOf(*shape))) {
            return;
        }
        const Emitted emitted = makeObjects(*shape, where.map, layer);
        if (!emitted.problem.empty()) {
            tally(entity, layer, ImportOutcome::LeftOut, emitted.problem);
        } else if (emitted.converted) {
            tally(entity, layer, ImportOutcome::Converted, "ellipse arcs, by an uneven scale");
        } else if (!entity.convertedInto.empty()) {
            tally(entity, layer, ImportOutcome::Converted, entity.convertedInto);
        }
    } else {
        tally(entity, layer, ImportOutcome::LeftOut, std::get<LeftOut>(entity.content).reason);
    }
}

bool BlockExpander::isFrozen(const std::string& layer) const {
    return m_model.frozenLayers.count(nameKey(layer)) != 0;
}

bool BlockExpander::goesOn() {
    return m_progress == nullptr || m_progress->step([this] {
        const double share =
            static_cast<double>(m_done) / static_cast<double>(m_model.entities.size());
        return ReadProgress::kFileShare + (1 - ReadProgress::kFileShare) * share;
    });
}

bool BlockExpander::overBudget(std::size_t work) {
    // Blocks of nothing but inserts double without giving an object: the work counts as well.
    m_work += work;
    m_overBudget = m_overBudget || !goesOn() || m_objects.size() > m_limits.objects ||
                   m_points > m_limits.points || m_work > greatestWork();
    return m_overBudget;
}

std::size_t BlockExpander::greatestWork() const {
    return m_limits.work * (m_limits.objects + m_model.entities.size());
}

std::string BlockExpander::limitReason(std::size_t objectsBefore, std::size_t pointsBefore) const {
    if (m_objects.size() > std::max(objectsBefore, m_limits.objects)) {
        return limitText(m_limits.objects, "objects");
    }
    if (m_points > std::max(pointsBefore, m_limits.points)) {
        return limitText(m_limits.points, "points");
    }
    if (m_work > greatestWork()) {
        return "the inserts take too many steps";
    }
    return m_overBudget ? limitText(m_limits.objects, "objects") : "";
}

void BlockExpander::tally(const Entity& entity, const std::string& layer, ImportOutcome outcome,
                          const std::string& detail) {
    m_inside.addInBlock({entity.type, layer, outcome, detail, 1, 0});
}

BlockExpander::Emitted BlockExpander::makeObjects(const Shape& shape, const Affine& map,
                                                  const std::string& layer) {
    Emitted result;
    m_image.clear();
    result.converted = transformShape(shape, map, &m_image);
    for (const Shape& part : m_image) {
        const std::optional<std::string> problem = shapeProblem(part);
        if (problem) {
            result.problem = *problem;
            return result;
        }
    }
    const kxString name(layer);
    const std::size_t before = m_objects.size();
    for (const Shape& part : m_image) {
        if (kxObject_ptr object = makeObject(name, part)) {
            m_objects.push_back(std::move(object));
            m_points += pointsOf(part) + layer.size() / kCharactersPerPoint;
        }
    }
    result.objects = static_cast<long>(m_objects.size() - before);
    if (result.objects == 0) {
        result.problem = "knots, weights and control points do not fit together";
    }
    return result;
}

}  // namespace kxdrawing
