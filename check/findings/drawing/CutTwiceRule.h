// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "findings/drawing/NearCuts.h"

namespace gcode_check {

// Objects, or parts of them, that the tool runs along a second time without going deeper, and
// places that are drilled again. Crossings and corners do not count.
class CutTwiceRule {
public:
    CutTwiceRule(const DrawingSetting& scene, Findings& findings);
    CutTwiceRule(const CutTwiceRule&) = delete;
    CutTwiceRule& operator=(const CutTwiceRule&) = delete;
    ~CutTwiceRule();

    // Finds the cuts near a target where it needs them. Whether the target was seen on the way to
    // be cut all along; often not, though it is.
    bool judge(std::size_t index, NearCuts& near);

private:
    class Work;
    std::unique_ptr<Work> m_work;
};

}  // namespace gcode_check
