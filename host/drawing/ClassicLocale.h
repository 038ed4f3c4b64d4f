// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace kxdrawing {

/// Makes streams write numbers with a point while it lives: dxflib reads numbers through streams
/// of the global C++ locale. Does nothing where that already is the classic one, which is always
/// so in our programs; else no other thread may use the global locale meanwhile.
class ClassicLocale {
public:
    ClassicLocale() {
        if (m_old != std::locale::classic()) {
            const char* const name = std::setlocale(LC_ALL, nullptr);
            m_oldName = name != nullptr ? name : "C";
            std::locale::global(std::locale::classic());
            m_changed = true;
        }
    }
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;
    ~ClassicLocale() {
        if (m_changed) {
            std::locale::global(m_old);
            std::setlocale(LC_ALL, m_oldName.c_str());
        }
    }

private:
    std::locale m_old;
    std::string m_oldName;
    bool m_changed = false;
};

}  // namespace kxdrawing
