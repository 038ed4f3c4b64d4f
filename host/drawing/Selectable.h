// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include <kx/host/kxHostDocument.h>

namespace kxdrawing {

/// Which objects are wanted; an empty list accepts all.
struct ObjectFilter {
    /// In the exact spelling of the drawing.
    std::vector<kxString> layers;
    std::vector<kxObjectType_e> types;
};

/// The objects that a user could select, in drawing order: those of the filter that do not lie on
/// a hidden layer.
std::vector<kxObject_ptr> selectableObjects(const kxHostDocument_c& document,
                                            const ObjectFilter& filter = {});

}  // namespace kxdrawing
