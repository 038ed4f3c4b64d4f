// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/OutputFiles.h"

#include <QFile>
#include <QTextCodec>

#include "core/LineNumbering.h"

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

void write(const QString& path, const std::string& text, QIODevice::OpenMode mode) {
    QFile file(path);
    if (file.open(mode | QIODevice::Text)) {
        file.write(text.data(), static_cast<qint64>(text.size()));
    }
}

QByteArray readBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// All of the bytes as text, beyond zero bytes too, without a byte order mark.
QString textOf(const QByteArray& bytes) {
    return QTextCodec::codecForName("UTF-8")->toUnicode(bytes);
}

void numberIfAsked(const QString& path, const GCode::OutputText& output) {
    if (output.numbersLines) {
        numberFileLines(path);
    }
}

}  // namespace

void writeTextFile(const QString& path, const std::string& text) {
    write(path, text, QIODevice::WriteOnly);
}

void appendTextFile(const QString& path, const std::string& text) {
    write(path, text, QIODevice::Append);
}

void numberFileLines(const QString& path) {
    const QByteArray bytes = readBytes(path);
    // Kept, the mark would stand behind the first number, where it marks nothing.
    const int start =
        bytes.startsWith(kByteOrderMark) ? static_cast<int>(sizeof kByteOrderMark) - 1 : 0;
    writeTextFile(path, GCode::numberLines(bytes.mid(start).toStdString()));
}

QString readTextFile(const QString& path) {
    return textOf(readBytes(path));
}

QString readProgramFile(const QString& path) {
    const QByteArray bytes = readBytes(path);
    const int end = bytes.indexOf('\0');
    return textOf(end < 0 ? bytes : bytes.left(end));
}

void saveOutput(const QString& path, const GCode::OutputText& output) {
    writeTextFile(path, GCode::savedText(output));
    numberIfAsked(path, output);
}

QString rebuildOutput(const QString& path, const std::string& kept,
                      const GCode::OutputText& output) {
    writeTextFile(path, kept + GCode::appendedText(output));
    numberIfAsked(path, output);
    return readTextFile(path);
}

QString extendOutput(const QString& path, const GCode::OutputText& output) {
    appendTextFile(path, GCode::appendedText(output));
    numberIfAsked(path, output);
    return readTextFile(path);
}
