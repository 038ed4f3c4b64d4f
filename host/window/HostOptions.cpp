// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostOptions.h"

#include <QCommandLineParser>

#include "Version.h"
#include "files/PrintableText.h"

namespace {

constexpr int kWrongArguments = 2;

// Not the parser's own text: that needs an application, and so a display.
constexpr char kHelp[] = R"(Usage: kxhost [OPTIONS] [DRAWINGS...]
Opens DXF drawings in a window, each in a tab of its own.

  --addin FILE   load this add-in, besides the one that is found; may be repeated
  --no-addins    load no add-in
  --open-each    open and close each drawing, print what came of it, and end
  --help         print this text and end
  --version      print the version and end

Add-ins are looked for in the folders of the environment variable KX_ADDIN_PATH,
beside the program, and in the library folders next to the program's folder.
)";

struct Switches {
    QCommandLineOption addin{QStringLiteral("addin"), QString(), QStringLiteral("FILE")};
    QCommandLineOption withoutAddins{QStringLiteral("no-addins")};
    QCommandLineOption openEach{QStringLiteral("open-each")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")}};
};

QString wrong(const QString& problem) {
    return QStringLiteral("kxhost: %1\nTry kxhost --help.\n")
        .arg(QString::fromStdString(kxfiles::printable(problem.toStdString())));
}

/// What is wrong with the arguments; empty when they can be obeyed.
QString problemWith(const QCommandLineParser& parser, const HostOptions& options) {
    if (!parser.errorText().isEmpty()) {
        return parser.errorText();
    }
    if (options.addins.contains(QString())) {
        return QStringLiteral("--addin needs a file.");
    }
    if (options.withoutAddins && !options.addins.isEmpty()) {
        return QStringLiteral("--addin and --no-addins exclude each other.");
    }
    if (options.openEach && options.drawings.isEmpty()) {
        return QStringLiteral("--open-each needs a drawing.");
    }
    return {};
}

}  // namespace

std::optional<HostOptions> parseHostOptions(const QStringList& arguments, QString* message,
                                            int* exitCode) {
    const Switches switches;
    QCommandLineParser parser;
    parser.addOptions({switches.addin, switches.withoutAddins, switches.openEach, switches.help,
                       switches.version});
    parser.parse(arguments);
    *exitCode = 0;
    if (parser.isSet(switches.help)) {
        *message = QString::fromLatin1(kHelp);
        return std::nullopt;
    }
    if (parser.isSet(switches.version)) {
        *message = QStringLiteral("kxhost %1\n").arg(QString::fromLatin1(kVersion));
        return std::nullopt;
    }
    HostOptions options;
    options.drawings = parser.positionalArguments();
    options.addins = parser.values(switches.addin);
    options.withoutAddins = parser.isSet(switches.withoutAddins);
    options.openEach = parser.isSet(switches.openEach);
    const QString problem = problemWith(parser, options);
    if (!problem.isEmpty()) {
        *message = wrong(problem);
        *exitCode = kWrongArguments;
        return std::nullopt;
    }
    return options;
}
