// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Selectable.h"

#include <algorithm>
#include <map>

namespace kxdrawing {

namespace {

template <class T>
bool accepts(const std::vector<T>& wanted, const T& value) {
    return wanted.empty() || std::find(wanted.begin(), wanted.end(), value) != wanted.end();
}

}  // namespace

std::vector<kxObject_ptr> selectableObjects(const kxHostDocument_c& document,
                                            const ObjectFilter& filter) {
    std::vector<kxObject_ptr> result;
    std::map<kxString, bool> wantedLayers;
    for (const kxObject_ptr& object : document.GetObjects()) {
        if (!accepts(filter.types, object->GetType())) {
            continue;
        }
        const kxString layer = object->GetLayer();
        const auto [known, isNew] = wantedLayers.try_emplace(layer, false);
        if (isNew) {
            known->second = accepts(filter.layers, layer) && document.IsLayerVisible(layer);
        }
        if (known->second) {
            result.push_back(object);
        }
    }
    return result;
}

}  // namespace kxdrawing
