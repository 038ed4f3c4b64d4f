// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "Summary.h"

#include <algorithm>

namespace {

std::string folded(std::string text) {
    for (char& character : text) {
        if (character >= 'a' && character <= 'z') {
            character = static_cast<char>(character - 'a' + 'A');
        }
    }
    return text;
}

}  // namespace

std::vector<kxString> layersOf(const std::vector<kxLayer>& layers,
                               const std::vector<std::string>& names, std::string* unknown) {
    std::vector<kxString> found;
    for (const std::string& name : names) {
        const auto layer = std::find_if(layers.begin(), layers.end(), [&](const kxLayer& known) {
            return folded(known.name.toUtf8()) == folded(name);
        });
        if (layer != layers.end()) {
            found.push_back(layer->name);
            continue;
        }
        *unknown = "there is no layer " + name + "; there are:";
        for (const kxLayer& known : layers) {
            *unknown += " " + known.name.toUtf8();
        }
        return {};
    }
    return found;
}

bool givesToolPath(kxObjectType_e type) {
    return type == kxLineType || type == kxCircleArcType || type == kxCircleType ||
           type == kxPointType;
}

std::string typeName(kxObjectType_e type) {
    switch (type) {
        case kxLineType:
            return "line";
        case kxCircleType:
            return "circle";
        case kxCircleArcType:
            return "arc";
        case kxSimpleNoteType:
            return "note";
        case kxPointType:
            return "point";
        case kxEllipseArcType:
            return "ellipse";
        case kxPolyLineType:
            return "polyline";
        case kxSplineType:
            return "spline";
        case kxUnknownType:
            break;
    }
    return "unknown object";
}

std::string noToolPathLine(const std::vector<kxObject_ptr>& selected) {
    std::map<std::string, long> counts;
    long total = 0;
    for (const kxObject_ptr& object : selected) {
        if (!givesToolPath(object->GetType())) {
            ++counts[typeName(object->GetType())];
            ++total;
        }
    }
    if (total == 0) {
        return {};
    }
    std::string line = std::to_string(total) + " of " + std::to_string(selected.size()) +
                       " selected objects give no tool path:";
    const char* separator = " ";
    for (const auto& [name, count] : counts) {
        line += separator + std::to_string(count) + " " + name + (count == 1 ? "" : "s");
        separator = ", ";
    }
    return line;
}
