// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ManualBrowser.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>

ManualBrowser::ManualBrowser(const QString& folder, QWidget* parent)
    : QTextBrowser(parent), m_folder(QFileInfo(folder).canonicalFilePath()) {
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &ManualBrowser::follow);
}

void ManualBrowser::follow(const QUrl& link) {
    const QString scheme = link.scheme();
    if (scheme == QLatin1String("http") || scheme == QLatin1String("https")) {
        QDesktopServices::openUrl(link);
        return;
    }
    setSource(source().resolved(link));
}

QString ManualBrowser::fileOf(const QUrl& address) const {
    const bool isFile = address.isLocalFile() || address.isRelative();
    if (m_folder.isEmpty() || !isFile) {
        return {};
    }
    const QString path = address.isLocalFile() ? address.toLocalFile() : address.path();
    // The real place, so that neither ".." nor a link in the folder leads out of it.
    const QString file = QFileInfo(QDir(m_folder), path).canonicalFilePath();
    const bool isInside = file.startsWith(m_folder + QLatin1Char('/')) && QFileInfo(file).isFile();
    return isInside ? file : QString();
}

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
    const QString path = fileOf(source().resolved(name));
    if (!path.isEmpty()) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly)) {
            // Pages are UTF-8, whatever they say or the locale is.
            const QByteArray bytes = file.readAll();
            return type == QTextDocument::HtmlResource || type == QTextDocument::StyleSheetResource
                       ? QVariant(QString::fromUtf8(bytes))
                       : QVariant(bytes);
        }
    }
    if (type != QTextDocument::HtmlResource) {
        return {};
    }
    return tr("<html><head><title>Page not found</title></head><body><h2>Page not found</h2>"
              "<p>The manual has no page <b>%1</b>.</p></body></html>")
        .arg(name.fileName().toHtmlEscaped());
}
