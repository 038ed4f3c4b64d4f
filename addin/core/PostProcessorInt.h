// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

/// The table of the words that a program is written with, from symbolic key to code.
class PostProcessorInt {
public:
    /// Fills the table; a repeated call leaves it as it is.
    virtual void CreateMap() = 0;
    virtual ~PostProcessorInt() = default;
    /// A copy of the table, in ascending bytewise order of the keys.
    virtual std::map<std::string, std::string> GetMap() const = 0;
};
