// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfDiagnostic.h"

#include "files/PrintableText.h"

namespace kxdrawing {

std::string DxfDiagnostic::toText() const {
    std::string text = kxfiles::printable(file);
    if (line > 0) {
        text += ':' + std::to_string(line);
    }
    text += ": " + found;
    if (!expected.empty()) {
        text += "; expected " + expected;
    }
    return text;
}

}  // namespace kxdrawing
