// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/HelpAddress.h"

#include <algorithm>
#include <iterator>

QString helpLanguageName(long language) {
    struct Language {
        long number;
        const char* name;
    };
    static constexpr Language kLanguages[] = {{1, "German"},
                                              {2, "English"},
                                              {3, "Turkish"},
                                              {5, "Polish"},
                                              {6, "Japanese"},
                                              {7, "French"},
                                              {8, "Chinese"},
                                              {9, "Chinese-simplified"},
                                              {10, "Italian"},
                                              {11, "Spanish"},
                                              {13, "Korean"},
                                              {18, "Russian"},
                                              {19, "Portuguese-brazilian"},
                                              {20, "Czech"}};
    const auto* const found =
        std::find_if(std::begin(kLanguages), std::end(kLanguages),
                     [&](const Language& known) { return known.number == language; });
    return found == std::end(kLanguages) ? QString() : QString::fromLatin1(found->name);
}

QString webHelpAddress(const QString& link, long language) {
    return link + QLatin1String("?P=16&L=") + helpLanguageName(language) +
           QString::fromLatin1("&V=2019&C=KestrixQM&I=%1").arg(kHelpTopic);
}

QString localHelpFile(const QString& hostHelpFile) {
    QString path = hostHelpFile;
    return path.replace(QLatin1String("Kestrix.chm"), QLatin1String("KestrixQM.chm"));
}
