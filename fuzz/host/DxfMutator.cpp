// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Changes drawings as groups and records, so that most stay readable and the change lands behind
// the reader's checks.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "GroupText.h"

// There only where a fuzzer searches.
extern "C" __attribute__((weak)) std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size,
                                                              std::size_t maxSize);

namespace {

using Groups = std::vector<GroupText>;

constexpr std::array<const char*, 44> kValues = {
    "0",       "1",          "-1",          "2",         "3",         "0.5",        "10",
    "1e-9",    "1e-12",      "1e9",         "1e12",      "1.0001e12", "-1e12",      "1e-320",
    "1e300",   "1e-300",     "90",          "180",       "360",       "359.999999", "6.28318531",
    "3.14159", "2147483647", "-2147483648", "64",        "128",       "8",          "16",
    "4",       "32767",      "1e3",         "+1",        "nan",       "inf",        "A",
    "B",       "C",          "\\P\\S1^2;",  "%%c%%d%%u", "\\U+00e4",  "",           " 1\t",
    "\x1b[1m", "*U1"};

constexpr std::array<const char*, 38> kCodes = {
    "0",  "1",  "2",  "3",  "5",  "6",  "8",  "9",  "10",  "20",  "30",  "11", "21",
    "31", "38", "39", "40", "41", "42", "43", "44", "45",  "50",  "51",  "60", "62",
    "67", "70", "71", "72", "73", "74", "90", "91", "101", "102", "210", "230"};

/// Entities as lines of groups, "/" for the line end.
constexpr std::array<const char*, 22> kRecords = {
    "0/LINE/8/A/10/1/20/2/11/3/21/4/",
    "0/ARC/8/A/10/1/20/2/40/3/50/350/51/40/",
    "0/CIRCLE/8/B/10/1/20/2/40/3/",
    "0/POINT/8/0/10/1/20/2/",
    "0/LWPOLYLINE/8/A/90/3/70/1/10/0/20/0/42/1/10/4/20/0/10/4/20/3/42/-0.5/",
    "0/POLYLINE/8/A/66/1/70/0/0/VERTEX/10/1/20/2/42/2/0/VERTEX/10/5/20/2/0/SEQEND/",
    "0/POLYLINE/8/A/66/1/70/8/0/VERTEX/10/1/20/2/30/3/0/VERTEX/10/5/20/2/30/9/0/SEQEND/",
    "0/SPLINE/8/A/70/8/71/2/72/6/73/3/40/0/40/0/40/0/40/1/40/1/40/1/10/0/20/0/10/1/20/2/10/2/20/0/",
    "0/SPLINE/8/A/70/4/71/2/40/0/40/0/40/0/40/1/40/1/40/1/10/0/20/0/41/1/10/1/20/2/41/2/10/2/20/0/"
    "41/1/",
    "0/SPLINE/8/B/70/1/71/3/74/3/11/0/21/0/11/3/21/4/11/6/21/0/",
    "0/ELLIPSE/8/A/10/1/20/2/11/4/21/3/40/0.5/41/0/42/6.283185307/",
    "0/ELLIPSE/8/A/10/1/20/2/11/4/21/3/40/0.2/41/1/42/2/230/-1/",
    "0/INSERT/8/A/2/A/10/1/20/2/41/-2/42/1/50/30/",
    "0/INSERT/8/A/2/B/10/1/20/2/70/3/71/2/44/5/45/6/",
    "0/TEXT/8/A/10/1/20/2/40/3/50/45/1/a%%db/",
    "0/MTEXT/8/A/10/1/20/2/40/3/3/{\\fArial;a/1/b}\\Pc/11/0/21/1/",
    "0/ATTRIB/8/A/10/1/20/2/40/1/2/TAG/1/value/",
    "0/HATCH/8/A/2/SOLID/70/1/91/1/92/2/93/3/10/0/20/0/10/1/20/0/10/1/20/1/",
    "0/LEADER/8/A/76/3/10/0/20/0/10/1/20/1/10/2/20/2/",
    "0/DIMENSION/8/A/70/1/10/0/20/0/",
    "9/$INSUNITS/70/1/9/$MEASUREMENT/70/0/",
    "0/LAYER/2/A/70/1/62/-7/"};

constexpr std::array<const char*, 3> kFrames = {"0/SECTION/2/BLOCKS/0/BLOCK/8/0/2/A/10/1/20/1/",
                                                "0/ENDBLK/0/ENDSEC/0/SECTION/2/ENTITIES/",
                                                "0/ENDSEC/0/SECTION/2/TABLES/0/TABLE/2/LAYER/"};

std::string linesOf(std::string text) {
    std::replace(text.begin(), text.end(), '/', '\n');
    return text;
}

class Mutator {
public:
    Mutator(Groups groups, unsigned seed) : m_groups(std::move(groups)), m_random(seed) {}

    void change() {
        using Change = void (Mutator::*)();
        constexpr std::array<Change, 14> kChanges = {
            &Mutator::newValue,    &Mutator::newValue,     &Mutator::newValue,
            &Mutator::newCode,     &Mutator::editValue,    &Mutator::removeGroup,
            &Mutator::repeatGroup, &Mutator::repeatOften,  &Mutator::addRecord,
            &Mutator::addRecord,   &Mutator::removeRecord, &Mutator::repeatRecord,
            &Mutator::moveRecord,  &Mutator::addFrame};
        (this->*kChanges[below(kChanges.size())])();
    }

    /// What a file must begin and end with.
    void mend() {
        if (m_groups.empty() || m_groups.front().value != "SECTION") {
            insert(0, "0/SECTION/2/ENTITIES/");
        }
        while (m_groups.back().value == "EOF" || m_groups.back().value == "ENDSEC") {
            m_groups.pop_back();
        }
        insert(m_groups.size(), "0/ENDSEC/0/EOF/");
    }

    std::size_t below(std::size_t bound) { return bound == 0 ? 0 : m_random() % bound; }
    std::string text() const { return textOf(m_groups); }

private:
    /// Where a record begins, and where the next does.
    struct Range {
        std::size_t first = 0;
        std::size_t last = 0;
    };

    std::size_t place() { return below(m_groups.size()); }

    Range anyRecord() {
        Range range;
        range.first = place();
        while (range.first > 0 && m_groups[range.first].number() != 0) {
            --range.first;
        }
        range.last = std::min(range.first + 1, m_groups.size());
        while (range.last < m_groups.size() && m_groups[range.last].number() != 0) {
            ++range.last;
        }
        return range;
    }

    void insert(std::size_t at, const char* text) {
        const Groups added = groupsOf(linesOf(text));
        m_groups.insert(m_groups.begin() + static_cast<std::ptrdiff_t>(at), added.begin(),
                        added.end());
    }

    void newValue() {
        if (!m_groups.empty()) {
            m_groups[place()].value = kValues[below(kValues.size())];
        }
    }
    void newCode() {
        if (!m_groups.empty()) {
            m_groups[place()].code = kCodes[below(kCodes.size())];
        }
    }
    void editValue() {
        if (m_groups.empty()) {
            return;
        }
        std::string& value = m_groups[place()].value;
        std::array<std::uint8_t, 64> bytes{};
        const std::size_t size = std::min(value.size(), bytes.size());
        std::memcpy(bytes.data(), value.data(), size);
        const std::size_t changed = LLVMFuzzerMutate(bytes.data(), size, bytes.size());
        value.assign(reinterpret_cast<const char*>(bytes.data()), changed);
    }
    void removeGroup() {
        if (!m_groups.empty()) {
            m_groups.erase(m_groups.begin() + static_cast<std::ptrdiff_t>(place()));
        }
    }
    void repeat(std::size_t times) {
        if (!m_groups.empty()) {
            const std::size_t at = place();
            const GroupText group = m_groups[at];
            m_groups.insert(m_groups.begin() + static_cast<std::ptrdiff_t>(at), times, group);
        }
    }
    void repeatGroup() { repeat(1); }
    void repeatOften() { repeat(2 + below(30)); }
    void addRecord() { insert(anyRecord().first, kRecords[below(kRecords.size())]); }
    void addFrame() { insert(anyRecord().first, kFrames[below(kFrames.size())]); }
    void removeRecord() {
        const Range range = anyRecord();
        m_groups.erase(m_groups.begin() + static_cast<std::ptrdiff_t>(range.first),
                       m_groups.begin() + static_cast<std::ptrdiff_t>(range.last));
    }
    void repeatRecord() {
        const Range range = anyRecord();
        const Groups record(m_groups.begin() + static_cast<std::ptrdiff_t>(range.first),
                            m_groups.begin() + static_cast<std::ptrdiff_t>(range.last));
        const auto at = static_cast<std::ptrdiff_t>(anyRecord().first);
        m_groups.insert(m_groups.begin() + at, record.begin(), record.end());
    }
    void moveRecord() {
        const Range range = anyRecord();
        const auto first = m_groups.begin() + static_cast<std::ptrdiff_t>(range.first);
        const auto last = m_groups.begin() + static_cast<std::ptrdiff_t>(range.last);
        std::rotate(first, last, m_groups.end());
    }

    Groups m_groups;
    std::minstd_rand m_random;
};

std::size_t put(const std::string& text, std::uint8_t* data, std::size_t maxSize) {
    const std::size_t size = std::min(text.size(), maxSize);
    std::memcpy(data, text.data(), size);
    return size;
}

std::string_view textAt(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    Mutator mutator(groupsOf(textAt(data, size)), seed);
    if (mutator.below(6) == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    for (std::size_t changes = 1 + mutator.below(4); changes > 0; --changes) {
        mutator.change();
    }
    if (mutator.below(8) != 0) {
        mutator.mend();
    }
    return put(mutator.text(), data, maxSize);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                                 const std::uint8_t* data2, std::size_t size2,
                                                 std::uint8_t* out, std::size_t maxOutSize,
                                                 unsigned seed) {
    std::minstd_rand random(seed);
    Groups groups = groupsOf(textAt(data1, size1));
    const Groups other = groupsOf(textAt(data2, size2));
    groups.resize(random() % (groups.size() + 1));
    const auto from = static_cast<std::ptrdiff_t>(random() % (other.size() + 1));
    groups.insert(groups.end(), other.begin() + from, other.end());
    return put(textOf(groups), out, maxOutSize);
}
