// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <limits>
#include <string_view>

#include "findings/Check.h"
#include "findings/Numbers.h"

namespace gcode_check {

// Heights and places closer than this are the same: what reading numbers may cost.
constexpr double kSame = 1e-6;

// The line from which on an axis has been told where to be.
struct AxisLines {
    static constexpr std::uint32_t kNever = std::numeric_limits<std::uint32_t>::max();
    std::uint32_t x = kNever;
    std::uint32_t y = kNever;
    std::uint32_t z = kNever;
};

// What all rules look at. Lengths are in the program's unit.
struct Setting {
    std::string_view program;
    const Reading& reading;
    const CheckOptions& options;
    double mmPerUnit = 1;
    double unitsPerDrawingUnit = 1;  // program units
    double surface = 0;
    double tolerance = 0;
    AxisLines known;
    // Something that cuts stands behind the line where the reading ends.
    bool moreBehind = false;
    Wording words{false};
    Progress* progress = nullptr;

    // Said in each round of a long loop; false: the check is stopped.
    bool goesOn(std::size_t done, std::size_t all) const {
        return progress == nullptr || progress->goesOn(done, all);
    }
    // Said within such a round; false: the check is stopped.
    bool isWanted() const { return progress == nullptr || progress->isWanted(); }
    // What comes next is so much of the check.
    void beginStage(double share) const {
        if (progress != nullptr) {
            progress->beginStage(share);
        }
    }
};

Setting settingOf(std::string_view program, const Reading& reading, const CheckOptions& options,
                  const Drawing* drawing);

bool isInches(const Reading& reading, const CheckOptions& options);

}  // namespace gcode_check
