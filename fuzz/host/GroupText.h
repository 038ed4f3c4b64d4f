// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A group code and its value as the file has them, without their line ends.
struct GroupText {
    std::string code;
    std::string value;

    /// What the code means; -1000 when it is no number.
    int number() const;
};

/// The lines of a text in pairs, whatever they hold; a carriage return before a line feed is
/// dropped.
std::vector<GroupText> groupsOf(std::string_view text);
std::string textOf(const std::vector<GroupText>& groups);

/// Without blanks and tabs at its ends.
std::string_view withoutBlanks(std::string_view text);
