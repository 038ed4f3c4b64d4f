// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace kxfiles {

/// Replaces the content of a file, or makes it, whole or not at all: false, with the cause, when
/// what stood there before still stands. A link stays and the file behind it is written, also one
/// that is not there yet. Rights are kept, and owner and group where that is allowed. A device or
/// pipe is written as it is.
bool replaceFile(const std::string& path, std::string_view content, std::string* cause);

}  // namespace kxfiles
