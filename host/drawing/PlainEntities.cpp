// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <array>
#include <cmath>

#include "drawing/DxfModelBuilder.h"
#include "drawing/Numbers.h"

// The entities that drawings consist of for the most part. Their numbers are checked when a record
// comes here; to write them out again for dxflib takes several times as long as all the rest.

namespace kxdrawing {

namespace {

constexpr int kFirstReal = 10;
constexpr int kLastReal = 59;

class Reals {
public:
    /// False for what is no number.
    bool take(const DxfRecord& record) {
        for (const DxfGroup& group : record.groups) {
            if (group.code < kFirstReal || group.code > kLastReal) {
                continue;
            }
            const std::optional<double> value = parseReal(group.value);
            if (!value) {
                return false;
            }
            const bool isNegative = trimmed(group.value).front() == '-';
            // A number too small to be one keeps its sign there.
            at(group.code) = *value == 0 && isNegative ? -0.0 : *value;
        }
        return true;
    }

    double operator[](int code) const { return m_values[index(code)]; }

private:
    static std::size_t index(int code) { return static_cast<std::size_t>(code - kFirstReal); }
    double& at(int code) { return m_values[index(code)]; }

    std::array<double, kLastReal - kFirstReal + 1> m_values{};
};

}  // namespace

/// Does what dxflib does with a line, an arc, a circle or a point; false for what else there is.
bool DxfModelBuilder::takePlain(const DxfRecord& record) {
    const bool isLine = record.type == "LINE";
    const bool isArc = record.type == "ARC";
    const bool isCircle = record.type == "CIRCLE";
    Reals reals;
    if (!(isLine || isArc || isCircle || record.type == "POINT") || !reals.take(record)) {
        return false;
    }
    if (isLine) {
        addLine({reals[10], reals[20], reals[30], reals[11], reals[21], reals[31]});
    } else if (isArc) {
        addArc({reals[10], reals[20], reals[30], reals[40], reals[50], reals[51]});
    } else if (isCircle) {
        addCircle({reals[10], reals[20], reals[30], reals[40]});
    } else {
        addPoint({reals[10], reals[20], reals[30]});
    }
    return true;
}

}  // namespace kxdrawing
