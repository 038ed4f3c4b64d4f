// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "GroupText.h"

#include <cstdlib>

namespace {

std::string takeLine(std::string_view* text) {
    const std::size_t end = text->find('\n');
    std::string line(text->substr(0, end));
    text->remove_prefix(end == std::string_view::npos ? text->size() : end + 1);
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return line;
}

}  // namespace

std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    return text;
}

int GroupText::number() const {
    const std::string digits(withoutBlanks(code));
    char* end = nullptr;
    const long number = std::strtol(digits.c_str(), &end, 10);
    const bool isNumber = !digits.empty() && *end == '\0' && number > -1000 && number < 10000;
    return isNumber ? static_cast<int>(number) : -1000;
}

std::vector<GroupText> groupsOf(std::string_view text) {
    std::vector<GroupText> groups;
    while (!text.empty()) {
        std::string code = takeLine(&text);
        groups.push_back({std::move(code), takeLine(&text)});
    }
    return groups;
}

std::string textOf(const std::vector<GroupText>& groups) {
    std::string text;
    for (const GroupText& group : groups) {
        text += group.code + '\n' + group.value + '\n';
    }
    return text;
}
