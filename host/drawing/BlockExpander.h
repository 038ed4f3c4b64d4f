// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include "drawing/Affine.h"
#include "drawing/EntityModel.h"
#include "drawing/ImportReport.h"
#include "drawing/ReadProgress.h"

namespace kxdrawing {

struct ExpandLimits {
    /// Inserts within inserts.
    int depth = 32;
    /// Objects of the whole drawing that inserts may bring it to.
    std::size_t objects = 2000000;
    /// Points that inserts may bring the objects to: vertices of polylines, control points and
    /// knots of splines; eight characters of a text or of a layer's name count as one.
    std::size_t points = 20000000;
    /// Points and inserts that are looked at to expand all inserts, for each object and entity.
    std::size_t work = 20;
};

/// Makes the objects of a drawing, in drawing order: transforms shapes, replaces inserts by what
/// their blocks hold, and reports what became of each entity.
class BlockExpander {
public:
    BlockExpander(const DxfModel& model, ExpandLimits limits, ImportReport* report);

    /// Tells `progress` on the way, and stops when that is stopped: then not all objects come.
    void setProgress(ReadProgress* progress) { m_progress = progress; }

    /// All objects, with every length scaled by `scale`. Call once.
    std::vector<kxObject_ptr> expand(double scale);

private:
    /// Where the entities of a block go.
    struct Placement {
        Affine map;
        /// What replaces layer 0 inside of the block: a name of the model.
        const std::string* layer = nullptr;
        /// That layer is frozen: then it takes all that the block holds.
        bool frozen = false;
        int depth = 0;
    };

    void expandEntity(const Entity& entity, const Affine& root);
    void expandTopInsert(const Entity& entity, const InsertShape& insert, const Affine& root);
    /// Why the insert gives nothing; empty when it was expanded.
    std::string expandInsert(const InsertShape& insert, const Placement& where);
    void expandBlock(const Block& block, const Placement& where);
    void expandInBlock(const Entity& entity, const Placement& where);
    bool isFrozen(const std::string& layer) const;
    bool overBudget(std::size_t work = 1);
    /// Why an insert gives too much; empty when it does not.
    std::string limitReason(std::size_t objectsBefore, std::size_t pointsBefore) const;
    std::size_t greatestWork() const;
    /// Counts an entity; false when the reading is stopped.
    bool goesOn();
    void tally(const Entity& entity, const std::string& layer, ImportOutcome outcome,
               const std::string& detail);
    struct Emitted {
        std::string problem;
        bool converted = false;
        long objects = 0;
    };
    Emitted makeObjects(const Shape& shape, const Affine& map, const std::string& layer);

    const DxfModel& m_model;
    ExpandLimits m_limits;
    ImportReport& m_report;
    ReadProgress* m_progress = nullptr;
    /// How many of the drawing's own entities are done.
    std::size_t m_done = 0;
    /// What happened inside of the insert at hand.
    ImportReport m_inside;
    std::vector<kxObject_ptr> m_objects;
    std::vector<Shape> m_image;
    /// The blocks that are being expanded, outermost first.
    std::vector<const Block*> m_open;
    std::size_t m_points = 0;
    std::size_t m_work = 0;
    bool m_overBudget = false;
};

}  // namespace kxdrawing
