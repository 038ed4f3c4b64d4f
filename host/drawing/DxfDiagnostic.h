// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

namespace kxdrawing {

/// Why a drawing was refused. Line 0 means the file as a whole.
struct DxfDiagnostic {
    std::string file;
    long line = 0;
    /// What stands there, or what is wrong.
    std::string found;
    /// What belongs there; may be empty.
    std::string expected;

    /// "FILE:LINE: FOUND; expected EXPECTED", without the parts that are not known.
    std::string toText() const;
};

}  // namespace kxdrawing
