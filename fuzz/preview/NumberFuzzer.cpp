// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The number of a word is the one the toolkit reads in its text, to the bit, in each way it is
// read.
#include <QString>
#include <cstdint>
#include <cstring>
#include <string>

#include "FuzzCheck.h"
#include "openglplotter/WordNumber.h"
#include "openglplotter/WordScan.h"

namespace {

/// The characters of numbers stand for themselves, all others for one of them, digits mostly.
std::string numberText(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view kParts = "0123456789012345678901234567890.90+-";
    std::string text(reinterpret_cast<const char*>(data), size);
    for (char& c : text) {
        if (kParts.find(c) == std::string_view::npos) {
            c = kParts[static_cast<unsigned char>(c) % kParts.size()];
        }
    }
    return text;
}

bool sameBits(float a, float b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

template <typename Unit>
float scanned(const Unit* begin, const Unit* end) {
    WordValues values{};
    WordSet seen = 0;
    FUZZ_CHECK(scanLine(begin, end, &values, &seen) == end);
    FUZZ_CHECK(seen == wordBit(wordIndex('X')));
    return values[wordIndex('X')];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = numberText(data, size);
    const float judge = QString::fromStdString(text).toFloat();
    FUZZ_CHECK(sameBits(wordNumber(text), judge));
    const std::string line = "X" + text;
    FUZZ_CHECK(sameBits(scanned(line.data(), line.data() + line.size()), judge));
    const std::u16string wide(line.begin(), line.end());
    FUZZ_CHECK(sameBits(scanned(wide.data(), wide.data() + wide.size()), judge));
    FUZZ_CHECK(sameBits(numberBehind(line, "X"), judge));
    return 0;
}
