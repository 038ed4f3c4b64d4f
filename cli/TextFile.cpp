// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "TextFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextCodec>
#include <cstdio>

namespace {

bool isUtf8(const QByteArray& bytes) {
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

/// The number, from 1, of the first line that is not UTF-8.
int firstBrokenLine(const QByteArray& bytes) {
    int number = 0;
    for (const QByteArray& line : bytes.split('\n')) {
        ++number;
        if (!isUtf8(line)) {
            break;
        }
    }
    return number;
}

bool finish(QFileDevice& file, const QByteArray& content) {
    return file.write(content) == content.size() && file.flush();
}

bool fail(const std::string& path, const QFileDevice& file, std::string* error) {
    *error = path + ": " + file.errorString().toStdString();
    return false;
}

}  // namespace

std::optional<QString> readTextFile(const std::string& path, std::string* error) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        fail(path, file, error);
        return std::nullopt;
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        fail(path, file, error);
        return std::nullopt;
    }
    if (bytes.contains('\0')) {
        const int line = bytes.left(bytes.indexOf('\0')).count('\n') + 1;
        *error = path + ":" + std::to_string(line) + ": a zero byte, this is no text";
        return std::nullopt;
    }
    if (!isUtf8(bytes)) {
        *error =
            path + ":" + std::to_string(firstBrokenLine(bytes)) + ": this line is not UTF-8 text";
        return std::nullopt;
    }
    if (bytes.endsWith('\n')) {
        bytes.chop(bytes.endsWith("\r\n") ? 2 : 1);
    }
    return QString::fromUtf8(bytes);
}

bool writeOutput(const std::string& path, const QByteArray& content, std::string* error) {
    if (path.empty() || path == "-") {
        QFile out;
        const bool written = out.open(stdout, QIODevice::WriteOnly) && finish(out, content);
        return written || fail("standard output", out, error);
    }
    const QString name = QString::fromStdString(path);
    const QFileInfo info(name);
    if (info.exists() && !info.isFile() && !info.isDir()) {
        QFile device(name);
        const bool written = device.open(QIODevice::WriteOnly) && finish(device, content);
        return written || fail(path, device, error);
    }
    QSaveFile file(name);
    const bool written = file.open(QIODevice::WriteOnly) && finish(file, content) && file.commit();
    return written || fail(path, file, error);
}
