// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "Message.h"

#include <iostream>

#include "files/PrintableText.h"

void sayLine(const std::string& line) {
    std::cerr << kxfiles::printable(line) + "\n";
}

int sayFailure(int code, const std::string& cause) {
    sayLine("kxgcode: " + cause);
    return code;
}
