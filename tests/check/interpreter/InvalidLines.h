// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace judge {

/// Lines that no controller of this kind takes, whatever ran before them, each for one reason.
/// Where "{n}" stands any number between 1 and 40 will do.
const std::vector<std::string>& invalidLines();

}  // namespace judge
