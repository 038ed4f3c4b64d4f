// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ToolPathCheck.h"

#include <QCoreApplication>

namespace {

bool givesPath(kxObjectType_e type) {
    return type == kxLineType || type == kxCircleArcType || type == kxCircleType ||
           type == kxPointType;
}

bool canExplode(kxObjectType_e type) {
    return type == kxPolyLineType || type == kxEllipseArcType || type == kxSplineType;
}

QString tr(const char* text) {
    return QCoreApplication::translate("ToolPathCheck", text);
}

}  // namespace

ToolPathCheck::ToolPathCheck(const std::vector<kxObject_ptr>& objects)
    : total(static_cast<long>(objects.size())) {
    for (const auto& [type, count] : countTypes(objects)) {
        if (!givesPath(type)) {
            withoutPath[type] = count;
        }
    }
}

long ToolPathCheck::countWithoutPath() const {
    long count = 0;
    for (const auto& entry : withoutPath) {
        count += entry.second;
    }
    return count;
}

long ToolPathCheck::countExplodable() const {
    long count = 0;
    for (const auto& [type, number] : withoutPath) {
        count += canExplode(type) ? number : 0;
    }
    return count;
}

QString ToolPathCheck::shortText() const {
    if (total == 0) {
        return tr("Nothing selected");
    }
    const QString selected = tr("%1 selected").arg(total);
    const long pathless = countWithoutPath();
    if (pathless == 0) {
        return selected;
    }
    const QString rest = pathless == 1 ? tr("%1, %2 gives no path") : tr("%1, %2 give no path");
    return rest.arg(selected).arg(pathless);
}

QString ToolPathCheck::longText() const {
    const long pathless = countWithoutPath();
    if (pathless == 0) {
        return tr("All of %1 give a tool path.").arg(plural(total, tr("object"), tr("objects")));
    }
    QString text = tr("%1 of %2 give a tool path.\nNo path: %3.")
                       .arg(total - pathless)
                       .arg(plural(total, tr("object"), tr("objects")), countText(withoutPath));
    if (countExplodable() != 0) {
        text += tr("\nEXPLODE turns polylines, ellipses and splines into lines and arcs.");
    }
    return text;
}
