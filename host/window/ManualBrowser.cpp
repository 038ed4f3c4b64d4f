// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ManualBrowser.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QStyle>

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
    const std::optional<QByteArray> bytes = readOwn(name);
    switch (type) {
        case QTextDocument::ImageResource:
            return imageOf(bytes.value_or(QByteArray()));
        case QTextDocument::StyleSheetResource:
            // Pages and styles are UTF-8, whatever they say or the locale is.
            return QString::fromUtf8(bytes.value_or(""));
        default:
            return bytes ? QString::fromUtf8(*bytes) : pageNotFound(name.fileName());
    }
}

std::optional<QByteArray> ManualBrowser::readOwn(const QUrl& name) const {
    QFile file(fileOf(source().resolved(name)));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return file.readAll();
}

QPixmap ManualBrowser::imageOf(const QByteArray& bytes) const {
    QPixmap image;
    image.loadFromData(bytes);
    return image.isNull() ? style()->standardPixmap(QStyle::SP_FileIcon) : image;
}

QString ManualBrowser::pageNotFound(const QString& page) {
    return tr("<html><head><title>Page not found</title></head><body><h2>Page not found</h2>"
              "<p>The manual has no page <b>%1</b>.</p></body></html>")
        .arg(page.toHtmlEscaped());
}
