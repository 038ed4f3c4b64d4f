// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Entities that are read without dxflib against what dxflib reads of the same record.
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "drawing/DxfModelBuilder.h"
#include "drawing/Numbers.h"

using kxdrawing::DxfRecord;

namespace {

/// The numbers of the entities that came, each entity with its kind before them.
using Received = std::vector<double>;

/// Keeps what `Base` is told, which dxflib tells both.
template <class Base>
class Listener : public Base {
public:
    void addPoint(const DL_PointData& data) override { keep({1, data.x, data.y, data.z}); }
    void addLine(const DL_LineData& data) override {
        keep({2, data.x1, data.y1, data.z1, data.x2, data.y2, data.z2});
    }
    void addArc(const DL_ArcData& data) override {
        keep({3, data.cx, data.cy, data.cz, data.radius, data.angle1, data.angle2});
    }
    void addCircle(const DL_CircleData& data) override {
        keep({4, data.cx, data.cy, data.cz, data.radius});
    }

    Received received;

private:
    void keep(const Received& numbers) {
        received.insert(received.end(), numbers.begin(), numbers.end());
    }
};

class RandomRecords {
public:
    explicit RandomRecords(std::uint64_t seed) : m_random(seed) {}

    DxfRecord next() {
        constexpr std::array<const char*, 4> kTypes{"LINE", "ARC", "CIRCLE", "POINT"};
        constexpr std::array<int, 15> kCodes{10, 20, 30, 11, 21, 31, 40, 50,
                                             51, 39, 48, 59, 10, 41, 12};
        DxfRecord record;
        record.type = kTypes.at(m_random() % kTypes.size());
        record.section = "ENTITIES";
        record.groups.push_back({8, "0", 1});
        // What it can't do without, and now and then once more.
        for (const int code : {10, 20, 11, 21, 40}) {
            record.groups.push_back({code, number(), 1});
        }
        for (auto left = m_random() % 10; left > 0; --left) {
            record.groups.push_back({kCodes.at(m_random() % kCodes.size()), number(), 1});
        }
        return record;
    }

private:
    /// A number that passes the checks of a file.
    std::string number() {
        for (;;) {
            const std::string text = anyText();
            const std::optional<double> value = kxdrawing::parseReal(text);
            if (value && std::isfinite(*value)) {
                return text;
            }
        }
    }

    std::string anyText() {
        constexpr std::array<const char*, 8> kFormats{"%.9f",  "%.17g",  "%g",   "%e",
                                                      "%+.3f", " %.1f ", "%.0f", "\t%.20E"};
        constexpr std::array<const char*, 16> kOdd{
            "0",       "-0",     "-0.0",    "+0",     "1.",      ".5",   "-.5",     "1e-400",
            "-1e-400", "1e-320", "-4e-324", "2e-324", "-2e-324", "1e+5", "0e99999", "-0e-5"};
        if (m_random() % 4 == 0) {
            return kOdd.at(m_random() % kOdd.size());
        }
        std::array<char, 400> text{};
        std::snprintf(text.data(), text.size(), kFormats.at(m_random() % kFormats.size()),
                      anyValue());
        return text.data();
    }

    double anyValue() {
        if (m_random() % 4 == 0) {
            const std::uint64_t bits = m_random();
            double value = 0;
            std::memcpy(&value, &bits, sizeof value);
            return value;
        }
        return static_cast<double>(m_random() % 2000000001) * 1e-6 - 1000;
    }

    std::mt19937_64 m_random;
};

Received readByDxflib(const DxfRecord& record) {
    std::string text = "0\n" + record.type + "\n";
    for (const kxdrawing::DxfGroup& group : record.groups) {
        text += std::to_string(group.code) + "\n" + group.value + "\n";
    }
    std::stringstream stream(text + "0\nEOF\n");
    Listener<DL_CreationAdapter> listener;
    DL_Dxf reader;
    while (reader.readDxfGroups(stream, &listener)) {
    }
    return listener.received;
}

Received readByUs(const DxfRecord& record) {
    Listener<kxdrawing::DxfModelBuilder> builder;
    builder.take(record);
    return builder.received;
}

std::string textOf(const DxfRecord& record) {
    std::string text = record.type;
    for (const kxdrawing::DxfGroup& group : record.groups) {
        text += " " + std::to_string(group.code) + "=" + group.value;
    }
    return text;
}

bool sameBits(const Received& a, const Received& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0;
}

TEST(PlainEntities, AreWhatDxflibReadsBitForBit) {
    RandomRecords records(1);
    for (int i = 0; i < 50000; ++i) {
        const DxfRecord record = records.next();
        const Received literal = readByDxflib(record);
        ASSERT_FALSE(literal.empty()) << textOf(record);
        ASSERT_TRUE(sameBits(readByUs(record), literal)) << textOf(record);
    }
}

TEST(PlainEntities, WithEndlessNumbersAreReadWhole) {
    DxfRecord record;
    record.type = "CIRCLE";
    record.section = "ENTITIES";
    record.groups = {{10, std::string(2000, '0') + "1.5", 1}, {20, "2", 1}, {40, "5", 1}};
    const Received received = readByUs(record);
    ASSERT_EQ(received.size(), 5U);
    EXPECT_EQ(received[1], 1.5);
    EXPECT_EQ(received[4], 5);
}

}  // namespace
