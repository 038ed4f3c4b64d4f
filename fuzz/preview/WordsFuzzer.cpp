// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The same for programs that are made of words, so that nearly every input draws something.
#include <array>
#include <cstdint>
#include <string>

#include "ByteReader.h"
#include "SamePrograms.h"

namespace {

constexpr std::array<const char*, 16> kCodes{"G0",  "G1",  "G2",  "G3",  "G01",  "G80",
                                             "G81", "G82", "G83", "G90", "G183", "G91",
                                             "G4",  "",    "",    "G"};
constexpr std::array<const char*, 8> kLineEnds{"\n",   "\n", "\n",   "\n",
                                               "\r\n", "\r", "\n\r", "\n\n"};
constexpr std::array<const char*, 12> kOddNumbers{"",
                                                  "-",
                                                  "-0",
                                                  ".",
                                                  "1.2.3",
                                                  "5-",
                                                  "+-1",
                                                  "1e3",
                                                  "-.5",
                                                  "+7.",
                                                  "99999999999999999999999999999999999999999",
                                                  "0.000000000000001"};

std::string number(ByteReader* input) {
    const std::uint8_t kind = input->byte();
    if (kind < 96) {
        return std::to_string(static_cast<int>(kind) - 48);
    }
    if (kind < 224) {
        const int thousandths = input->value<std::int16_t>() * (kind < 160 ? 1 : 100);
        std::string digits = std::to_string(thousandths);
        return digits.insert(digits.size() - 1, 1, '.');
    }
    if (kind < 240) {
        const std::string whole = std::to_string(input->value<std::int32_t>());
        return whole + "." + std::to_string(input->byte());
    }
    return kOddNumbers[kind % kOddNumbers.size()];
}

std::string word(ByteReader* input, std::uint8_t choice) {
    constexpr char kLetters[] = "XYZIJRQPFXYZIJMS";
    return kLetters[choice % 16] + number(input);
}

/// One byte for a code and how many words follow, one for each word's letter, and their numbers.
std::string line(ByteReader* input) {
    const std::uint8_t head = input->byte();
    std::string text = kCodes[head % 16];
    for (int count = (head >> 4U) & 7U; count > 0; --count) {
        const std::uint8_t choice = input->byte();
        text += choice < 128 ? " " : "";
        text += choice == 255 ? "(Z safe)" : word(input, choice);
    }
    return text + (head < 128 ? "\n" : kLineEnds[input->below(kLineEnds.size())]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteReader input(data, size);
    const std::uint8_t limit = input.byte();
    std::string program;
    while (!input.atEnd()) {
        program += line(&input);
    }
    checkProgram(program, limit < 200 ? 20000 : limit - 200U);
    return 0;
}
