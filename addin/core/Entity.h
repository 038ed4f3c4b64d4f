// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

/// The base through which geometric records are owned and destroyed.
class Entity {
public:
    virtual ~Entity() = default;
};
