// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "core/PositionAndFeed.h"

namespace GCode {

/// Turns one drawing object into G-code text. Generators are local objects, destroyed by their own
/// type: nobody deletes one through this interface.
class GCodeGeneratorInt {
public:
    /// The object's motion lines, each ended by a line feed. `state` must not be null.
    virtual std::string Generate(PositionAndFeed* state) = 0;

protected:
    ~GCodeGeneratorInt() = default;
};

}  // namespace GCode
