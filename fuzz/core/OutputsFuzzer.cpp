// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Saving, appending and numbering in any order: what was in a file is in the result, but for what
// is meant to go. A save replaces the file. Yes to appending rebuilds it from what the last save
// wrote, so that only that is sure to be there. Numbering drops a byte order mark.
#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "ByteReader.h"
#include "FuzzCheck.h"
#include "core/OutputFiles.h"

namespace {

constexpr std::size_t kFileCount = 5;

/// Three names for files, then two where there can't be any: a folder, and no name at all, as after
/// a cancelled dialog.
QString pathOf(std::size_t file) {
    static const QTemporaryDir folder;
    constexpr std::array<const char*, 3> kNames{"a.txt", "b (2).nc", "\xC3\xA4 \n'c'.ngc"};
    if (file < kNames.size()) {
        return folder.filePath(QString::fromUtf8(kNames[file]));
    }
    return file == kNames.size() ? folder.path() : QString();
}

std::optional<std::string> contentOf(std::size_t file) {
    QFile reader(pathOf(file));
    if (!reader.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return reader.readAll().toStdString();
}

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

/// The lines of a text, numbered one by one.
std::string literalNumbered(const std::string& text) {
    std::string result;
    std::string line;
    int number = 5;
    const auto finish = [&] {
        result += "N" + std::to_string(number) + " " + line + "\n";
        number += 5;
        line.clear();
    };
    for (const char c : text) {
        if (c == '\n') {
            finish();
        } else {
            line += c;
        }
    }
    if (!line.empty()) {
        finish();
    }
    return result;
}

/// What the files must hold, and what the panel keeps between the operations.
class Model {
public:
    std::optional<std::string> files[kFileCount];
    std::string kept;
    std::size_t lastSaved = kFileCount - 1;

    void write(std::size_t file, const std::string& text) {
        if (canBeWritten(file)) {
            files[file] = text;
        }
    }

    /// A file that isn't there is made, and empty.
    void number(std::size_t file) {
        const std::string text = files[file].value_or("");
        const bool marked = startsWith(text, "\xEF\xBB\xBF");
        write(file, literalNumbered(text.substr(marked ? 3 : 0)));
    }

    /// The file's text as the preview gets it.
    QString text(std::size_t file) const {
        const std::string bytes = files[file].value_or("");
        return QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(),
                                                            static_cast<int>(bytes.size()));
    }

    static bool canBeWritten(std::size_t file) { return file < 3; }
};

class Session {
public:
    explicit Session(ByteReader* input) : m_input(input) {
        for (std::size_t file = 0; file < kFileCount; ++file) {
            QFile::remove(pathOf(file));
        }
    }

    void step() {
        const std::uint8_t operation = m_input->byte();
        const std::size_t file = (operation >> 3U) % kFileCount;
        const GCode::OutputText output = nextOutput((operation & 128U) != 0);
        switch (operation & 7U) {
            case 0:
            case 1:
                save(file, output);
                break;
            case 2:
            case 3:
                rebuild(output);
                break;
            case 4:
            case 5:
                extend(file, output);
                break;
            case 6:
                placeFromElsewhere(file, output.program);
                break;
            default:
                number(file);
        }
        for (std::size_t i = 0; i < kFileCount; ++i) {
            FUZZ_CHECK(contentOf(i) == m_model.files[i]);
        }
    }

private:
    GCode::OutputText nextOutput(bool numbered) {
        const std::string comment(m_input->text());
        return {comment, std::string(m_input->text()), numbered};
    }

    void save(std::size_t file, const GCode::OutputText& output) {
        saveOutput(pathOf(file), output);
        const std::string comment = output.comment.empty() ? "" : output.comment + "\n";
        m_model.write(file, comment + output.program);
        numberIfAsked(file, output);
        m_model.kept = output.comment + "\n" + output.program;
        m_model.lastSaved = file;
        m_shippedKept = GCode::appendedText(output);
    }

    void rebuild(const GCode::OutputText& output) {
        const std::size_t file = m_model.lastSaved;
        const QString shown = rebuildOutput(pathOf(file), m_shippedKept, output);
        m_model.write(file, m_model.kept + output.comment + "\n" + output.program);
        numberIfAsked(file, output);
        FUZZ_CHECK(shown == m_model.text(file));
    }

    void extend(std::size_t file, const GCode::OutputText& output) {
        const QString shown = extendOutput(pathOf(file), output);
        m_model.write(file,
                      m_model.files[file].value_or("") + output.comment + "\n" + output.program);
        numberIfAsked(file, output);
        FUZZ_CHECK(shown == m_model.text(file));
    }

    void placeFromElsewhere(std::size_t file, const std::string& content) {
        QFile writer(pathOf(file));
        if (writer.open(QIODevice::WriteOnly)) {
            writer.write(content.data(), static_cast<qint64>(content.size()));
            m_model.write(file, content);
        }
    }

    void number(std::size_t file) {
        numberFileLines(pathOf(file));
        m_model.number(file);
    }

    void numberIfAsked(std::size_t file, const GCode::OutputText& output) {
        if (output.numbersLines) {
            m_model.number(file);
        }
    }

    ByteReader* m_input;
    Model m_model;
    std::string m_shippedKept;
};

}  // namespace

/// The toolkit would complain about each file without a name.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteReader input(data, size);
    Session session(&input);
    while (!input.atEnd()) {
        session.step();
    }
    return 0;
}
