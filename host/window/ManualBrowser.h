// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QTextBrowser>

/// Shows pages of one folder. A page that is not there, or lies outside, is said in its place.
class ManualBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit ManualBrowser(const QString& folder, QWidget* parent = nullptr);

    /// Follows a link of a page, as the page writes it: web links go to the browser.
    void follow(const QUrl& link);
    QVariant loadResource(int type, const QUrl& name) override;

private:
    /// The file of the folder that an address names; empty for one that is not there.
    QString fileOf(const QUrl& address) const;

    QString m_folder;
};
