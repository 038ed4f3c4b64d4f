// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/CheckedProgram.h"

#include <algorithm>
#include <utility>

#include <QFile>

#include "files/InputFile.h"

namespace {

/// A line can be as long as the file: so much of it is shown.
constexpr std::size_t kMaxShown = 500;

std::vector<std::size_t> lineStarts(const std::string& text) {
    std::vector<std::size_t> starts;
    for (std::size_t at = 0; at < text.size();) {
        starts.push_back(at);
        const std::size_t end = text.find('\n', at);
        at = end == std::string::npos ? text.size() : end + 1;
    }
    return starts;
}

QString shown(std::string_view line) {
    const QString text =
        QString::fromUtf8(line.data(), static_cast<int>(std::min(line.size(), kMaxShown)));
    return line.size() > kMaxShown ? text + "..." : text;
}

}  // namespace

bool CheckedProgram::load(const QString& file, QString* error) {
    std::string text;
    std::string cause;
    if (!kxfiles::readInput(QFile::encodeName(file).toStdString(), kMaxBytes, &text, &cause)) {
        *error = QString::fromStdString(cause);
        return false;
    }
    m_file = file;
    m_text = std::move(text);
    m_starts = lineStarts(m_text);
    return true;
}

std::string_view CheckedProgram::line(std::size_t number) const {
    if (number == 0 || number > m_starts.size()) {
        return {};
    }
    const std::size_t begin = m_starts[number - 1];
    const std::size_t end = std::min(m_text.find('\n', begin), m_text.size());
    const std::string_view bytes(m_text.data() + begin, end - begin);
    return !bytes.empty() && bytes.back() == '\r' ? bytes.substr(0, bytes.size() - 1) : bytes;
}

QString CheckedProgram::excerpt(std::size_t number, std::size_t around, int* row) const {
    const std::size_t first = number > around ? number - around : 1;
    const std::size_t last = std::min(number + around, m_starts.size());
    const int width = QString::number(last).size();
    QStringList lines;
    for (std::size_t at = first; at <= last; ++at) {
        lines.append(QString::number(at).rightJustified(width) + "  " + shown(line(at)));
    }
    *row = static_cast<int>(number - first);
    return lines.join('\n');
}
