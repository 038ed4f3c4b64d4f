// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <locale>
#include <string>

/// While it lives the global locale writes a decimal comma and groups digits by three with points.
class CommaLocale {
public:
    CommaLocale() : m_before(std::locale::global(std::locale(std::locale::classic(), new Comma))) {}
    ~CommaLocale() { std::locale::global(m_before); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale m_before;
};
