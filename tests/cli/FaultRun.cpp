// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "FaultRun.h"

#include <algorithm>

ChildRun runWords(const Words& words, const ChildOptions& options) {
    return runChild(Words{KX_PROGRAM} + words, options);
}

Words programOf(const std::string& drawing) {
    return {drawing,   "--quiet", "--safe-height", "2",   "--retraction", "10",
            "--depth", "-1",      "--feed-z",      "100", "--feed-xy",    "300"};
}

Words operator+(Words all, const Words& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

std::string linesDrawing(int count) {
    std::string text = "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < count; ++i) {
        const std::string x = std::to_string(i);
        text += "0\nLINE\n8\n0\n10\n" + x + "\n20\n0\n11\n" + x + "\n21\n50\n";
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}

bool isOneLineWith(const std::string& text, const Words& parts) {
    const bool isOneLine = std::count(text.begin(), text.end(), '\n') == 1 && text.back() == '\n';
    return isOneLine && std::all_of(parts.begin(), parts.end(), [&](const std::string& part) {
               return text.find(part) != std::string::npos;
           });
}
