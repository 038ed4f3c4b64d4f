// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>

#include <QPixmap>
#include <QTextBrowser>

/// Shows pages of one folder, with images and styles of it. A page that is not there, or lies
/// outside, is said in its place; of other files nothing is opened.
class ManualBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit ManualBrowser(const QString& folder, QWidget* parent = nullptr);

    /// Follows a link of a page, as the page writes it: web links go to the browser.
    void follow(const QUrl& link);
    /// Never null: for what is null the toolkit tries to open the named file by itself.
    QVariant loadResource(int type, const QUrl& name) override;

private:
    /// The file of the folder that an address names; empty for one that is not there.
    QString fileOf(const QUrl& address) const;
    std::optional<QByteArray> readOwn(const QUrl& name) const;
    /// The picture of the bytes; a sign that there is none for what is no picture.
    QPixmap imageOf(const QByteArray& bytes) const;
    static QString pageNotFound(const QString& page);

    QString m_folder;
};
