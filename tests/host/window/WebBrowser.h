// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>

/// Takes web addresses in place of the browser.
class WebBrowser : public QObject {
    Q_OBJECT

public:
    WebBrowser() { QDesktopServices::setUrlHandler("https", this, "open"); }
    ~WebBrowser() override { QDesktopServices::unsetUrlHandler("https"); }
    Q_SLOT void open(const QUrl& address) { opened << address.toString(); }

    QStringList opened;
};
