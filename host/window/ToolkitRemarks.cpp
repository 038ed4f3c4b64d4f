// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ToolkitRemarks.h"

#include <QString>

namespace {

QtMessageHandler g_next = nullptr;

void passOn(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const bool isRemark = text.contains(QLatin1String("does not have a property named")) &&
                          text.contains(QLatin1String("\"icon-size\""));
    if (!isRemark) {
        g_next(type, context, text);
    }
}

}  // namespace

void hideIconSizeRemark() {
    const QtMessageHandler before = qInstallMessageHandler(passOn);
    if (before != passOn) {
        g_next = before;
    }
}
