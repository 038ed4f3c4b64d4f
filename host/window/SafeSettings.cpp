// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/SafeSettings.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>

namespace {

/// Far more than the settings ever are.
constexpr qint64 kLongestFile = 16 << 20;

QByteArray sealOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

/// The value of an escape sequence with digits, "x41" or "101", of any length, as the toolkit reads
/// it; its length in `length`, 0 when it is none.
int escapedCode(const QByteArray& text, int at, int* length) {
    const bool isHex = text.mid(at, 1) == "x";
    const int begin = at + (isHex ? 1 : 0);
    const QByteArray digits = isHex ? "0123456789abcdefABCDEF" : "01234567";
    int end = begin;
    unsigned code = 0;
    while (end < text.size() && digits.contains(text.at(end))) {
        const int digit = text.mid(end, 1).toInt(nullptr, 16);
        code = code * (isHex ? 16 : 8) + static_cast<unsigned>(digit);
        ++end;
    }
    *length = end > begin ? end - at : 0;
    return static_cast<int>(code & 0xFFFFU);
}

/// The text with its escaped characters put in: what is no ASCII is of no interest here.
QByteArray withoutEscapes(const QByteArray& text) {
    QByteArray plain;
    for (int at = 0; at < text.size(); ++at) {
        int length = 0;
        if (text.at(at) == '\\') {
            const int code = escapedCode(text, at + 1, &length);
            plain += length == 0 ? '\\' : code < 0x80 ? static_cast<char>(code) : '?';
            at += length;
        } else {
            plain += text.at(at);
        }
    }
    return plain;
}

bool holdsForeignValues(const QByteArray& text) {
    static const QRegularExpression kForeign("[=,]\\s*\"?\\s*@(Variant|DateTime)\\(");
    return QString::fromLatin1(withoutEscapes(text)).contains(kForeign);
}

}  // namespace

void setForeignSettingsAside() {
    const QString name = QSettings().fileName();
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    const bool isForeign = file.size() > kLongestFile || holdsForeignValues(file.readAll());
    file.close();
    if (isForeign) {
        const QString aside = name + ".broken";
        QFile::remove(aside);
        QFile::rename(name, aside);
    }
}

void storeLayout(const QString& key, const QByteArray& layout) {
    QSettings().setValue(key, sealOf(layout) + layout);
}

QByteArray storedLayout(const QString& key) {
    const QByteArray stored = QSettings().value(key).toByteArray();
    const int sealSize = QCryptographicHash::hashLength(QCryptographicHash::Sha256);
    const QByteArray layout = stored.mid(sealSize);
    return stored.left(sealSize) == sealOf(layout) ? layout : QByteArray();
}
