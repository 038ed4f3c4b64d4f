// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Texts and numbers of a drawing: what is shown of a text is one line of whole characters and not
// much longer than the text, and a number is the one that the C library reads.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <kx/kxString.h>

#include "FuzzCheck.h"
#include "drawing/DxfText.h"
#include "drawing/Numbers.h"

namespace {

void checkShown(const std::string& text, std::size_t sizeBefore) {
    // Latin-1 takes two bytes a character.
    FUZZ_CHECK(text.size() <= 2 * sizeBefore);
    for (const char c : text) {
        FUZZ_CHECK(static_cast<unsigned char>(c) >= 0x20 && c != 0x7F);
    }
    FUZZ_CHECK(kxdrawing::characterCount(text) <= text.size());
}

void checkReal(const std::string& text) {
    const std::optional<double> value = kxdrawing::parseReal(text);
    if (!value || !std::isfinite(*value)) {
        return;
    }
    const std::string plain(kxdrawing::trimmed(text));
    char* end = nullptr;
    const double literal = std::strtod(plain.c_str(), &end);
    FUZZ_CHECK(*end == '\0');
    FUZZ_CHECK(literal == *value || std::abs(literal) < 3e-308);
    FUZZ_CHECK(kxdrawing::parseReal(kxdrawing::realText(*value)) == *value);
}

void checkInteger(const std::string& text) {
    const std::optional<int> value = kxdrawing::parseInt(text);
    if (value) {
        const std::optional<double> real = kxdrawing::parseReal(text);
        FUZZ_CHECK(real && *real == *value);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    // The reader refuses zero bytes.
    text.erase(text.find_last_not_of('\0') + 1);
    if (text.find('\0') != std::string::npos) {
        return 0;
    }
    checkReal(text);
    checkInteger(text);
    const std::string decoded = kxdrawing::decodeText(text);
    FUZZ_CHECK(decoded.size() <= 2 * text.size());
    checkShown(kxdrawing::plainText(text), text.size());
    checkShown(kxdrawing::plainMultiLineText(text), text.size());
    return 0;
}
