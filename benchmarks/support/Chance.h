// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

/// Random numbers that are the same with every standard library: its engines are fixed, its
/// distributions are not.
class Chance {
public:
    explicit Chance(std::uint64_t seed) : m_random(seed) {}

    double between(double low, double high) {
        constexpr double kTwoTo53 = 9007199254740992.0;
        return low + (high - low) * (static_cast<double>(m_random() >> 11U) / kTwoTo53);
    }

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(m_random() % limit); }

private:
    std::mt19937_64 m_random;
};
