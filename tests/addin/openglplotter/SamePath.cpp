// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "SamePath.h"

#include <cmath>
#include <cstring>

namespace {

/// Of two NaN an addition keeps the one the compiler puts first, so their bits don't count.
bool sameBits(float a, float b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

bool same(const Point3d& a, const Point3d& b) {
    return sameBits(a.x, b.x) && sameBits(a.y, b.y) && sameBits(a.z, b.z);
}

bool same(const Color& a, const Color& b) {
    return sameBits(a.r, b.r) && sameBits(a.g, b.g) && sameBits(a.b, b.b) && sameBits(a.a, b.a);
}

template <typename Value>
testing::AssertionResult sameList(const char* what, const PathList<Value>& list,
                                  const std::vector<Value>& judge) {
    if (static_cast<std::size_t>(list.size()) != judge.size()) {
        return testing::AssertionFailure()
               << list.size() << " " << what << ", not " << judge.size();
    }
    for (std::size_t i = 0; i < judge.size(); ++i) {
        if (!same(list[static_cast<qsizetype>(i)], judge[i])) {
            return testing::AssertionFailure() << what << " differ at " << i;
        }
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult sameExtents(const PathExtents& box, const std::array<float, 8>& judge) {
    const std::array<float, 8> values{box.minX, box.minY, box.minZ, box.maxX,
                                      box.maxY, box.maxZ, box.min,  box.max};
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!sameBits(values[i], judge[i])) {
            return testing::AssertionFailure()
                   << "extent " << i << " is " << values[i] << ", not " << judge[i];
        }
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult sameStop(const PreviewPath& path, std::string_view text,
                                  const std::optional<std::string>& judge) {
    if (path.stop.has_value() != judge.has_value()) {
        return testing::AssertionFailure() << "only one of them was cut short";
    }
    if (judge && text.substr(path.stop->offset, judge->size()) != *judge) {
        return testing::AssertionFailure() << "cut short in another line than " << *judge;
    }
    return testing::AssertionSuccess();
}

}  // namespace

testing::AssertionResult samePath(const PreviewPath& path, std::string_view text,
                                  const LiteralPath& judge) {
    testing::AssertionResult result = sameList("vertices", path.vertices, judge.vertices);
    if (result) {
        result = sameList("colours", path.colors, judge.colors);
    }
    if (result) {
        result = sameExtents(path.extents, judge.extents);
    }
    return result ? sameStop(path, text, judge.stoppedIn) : result;
}

testing::AssertionResult samePathInUtf16(PreviewPath path, const QString& text,
                                         const LiteralPath& judge) {
    const QByteArray utf8 = text.toUtf8();
    if (path.stop) {
        const int units = static_cast<int>(path.stop->offset);
        path.stop->offset = static_cast<std::size_t>(text.left(units).toUtf8().size());
    }
    return samePath(path, {utf8.constData(), static_cast<std::size_t>(utf8.size())}, judge);
}
