// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "TextFile.h"

#include <QByteArray>
#include <QTextCodec>
#include <cstdio>

#include "files/InputFile.h"
#include "files/OutputFile.h"

namespace {

/// Far more than any text that begins or ends a program.
constexpr std::size_t kLongestText = std::size_t{64} << 20;

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

bool writeToStandardOutput(const QByteArray& content, std::string* cause) {
    const std::string_view text(content.constData(), static_cast<std::size_t>(content.size()));
    if (kxfiles::writeAll(fileno(stdout), text)) {
        return true;
    }
    *cause = kxfiles::lastCause();
    return false;
}

}  // namespace

std::optional<QString> readTextFile(const std::string& path, std::string* error) {
    std::string content;
    std::string cause;
    if (!kxfiles::readInput(path, kLongestText, &content, &cause)) {
        *error = path + ": " + cause;
        return std::nullopt;
    }
    QByteArray bytes = QByteArray::fromStdString(content);
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
    const bool toFile = !path.empty() && path != "-";
    std::string cause;
    const bool written = toFile ? kxfiles::replaceFile(path, content.toStdString(), &cause)
                                : writeToStandardOutput(content, &cause);
    if (!written) {
        *error = (toFile ? path : "standard output") + ": " + cause;
    }
    return written;
}
