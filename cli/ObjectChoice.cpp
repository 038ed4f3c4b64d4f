// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ObjectChoice.h"

#include "Summary.h"
#include "drawing/Explode.h"
#include "drawing/Selectable.h"

std::vector<kxObject_ptr> chooseObjects(kxHostDocument_c& document, const ObjectChoice& choice,
                                        std::string* unknown) {
    kxdrawing::ObjectFilter filter;
    filter.layers = layersOf(document.GetLayers(), choice.layers, unknown);
    if (!unknown->empty()) {
        return {};
    }
    for (const std::string& type : choice.types) {
        for (const kxObjectType_e code : {kxLineType, kxCircleArcType, kxCircleType, kxPointType}) {
            if (typeName(code) == type) {
                filter.types.push_back(code);
            }
        }
    }
    if (choice.explode) {
        kxdrawing::explode(document, document.GetObjects(), choice.explodeTolerance);
    }
    return kxdrawing::selectableObjects(document, filter);
}
