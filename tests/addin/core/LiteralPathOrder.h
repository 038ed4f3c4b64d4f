// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <list>

#include "core/PathEntity.h"
#include "core/Point.h"

/// The path order in its plainest form, over a linked list and without any shortcut: the judge of
/// the fast one.
std::list<GCode::Entity> literalPathOrder(std::list<GCode::Entity> entityList,
                                          const GCode::Point& start);
