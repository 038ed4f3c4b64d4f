// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "miscellaneous.h"

#include <QVector>

#include <kx/kxByteArray.h>
#include <kx/kxString.h>
#include <kx/kxStringArray.h>

void setEnvironmentVariable(const QString& name, const QString& value) {
    qputenv(name.toUtf8().constData(), value.toUtf8());
}

QString getEnvironmentVariable(const QString& name) {
    return QString::fromLatin1(qgetenv(name.toUtf8().constData()));
}

kxString q2d(const QString& text) {
    const std::wstring wide = text.toStdWString();
    return {wide.c_str(), wide.size()};
}

QString d2q(const kxString& text) {
    // The toolkit drops a leading U+FEFF as a byte order mark, so one of ours goes before.
    const std::wstring marked = L'\uFEFF' + std::wstring(text.c_str(), text.length());
    return QString::fromWCharArray(marked.c_str(), static_cast<int>(marked.size()));
}

kxByteArray q2d(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

QByteArray d2q(const kxByteArray& bytes) {
    return {bytes.data(), static_cast<int>(bytes.size())};
}

kxStringArray q2d(const QStringList& texts) {
    kxStringArray array;
    for (const QString& text : texts) {
        array.Add(q2d(text));
    }
    return array;
}

QStringList d2q(const kxStringArray& texts) {
    QStringList list;
    for (std::size_t i = 0; i < texts.GetCount(); ++i) {
        list.append(d2q(texts.GetAt(i)));
    }
    return list;
}
