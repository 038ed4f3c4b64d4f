// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <kx/host/kxGeometryFactory.h>

#include "drawing/DxfReader.h"

namespace kxdrawing {

struct Group {
    int code;
    std::string value;
};

/// The text of groups, one line for a code and one for its value.
std::string groups(std::initializer_list<Group> list);

/// The parts of a drawing, as group text.
struct TestDxf {
    std::string entities;
    std::string blocks;
    std::string header;
    std::string tables;

    std::string text() const;
};

std::string block(const std::string& name, const std::string& entities, const std::string& x = "0",
                  const std::string& y = "0");
std::string line(const std::string& x1, const std::string& y1, const std::string& x2,
                 const std::string& y2, const std::string& layer = "0");
std::string circle(const std::string& x, const std::string& y, const std::string& radius);
/// An insert at (x, y) with further groups.
std::string insert(const std::string& name, const std::string& x, const std::string& y,
                   std::initializer_list<Group> more = {}, const std::string& layer = "0");
std::string layer(const std::string& name, int flags, int color);

/// A file that lives as long as the object.
class TestFile {
public:
    explicit TestFile(const std::string& content);
    TestFile(const TestFile&) = delete;
    TestFile& operator=(const TestFile&) = delete;
    ~TestFile() { std::remove(m_path.c_str()); }
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

ReadResult readText(const std::string& text, const ReadOptions& options = {});
/// The drawing of a text that must be readable.
Drawing readGood(const std::string& text, const ReadOptions& options = {});
Drawing readEntities(const std::string& entities);
/// The only object of a drawing of these entities, narrowed; fails when it is of another class.
template <class T>
kxInterfacePtr<T> onlyObject(const Drawing& drawing) {
    EXPECT_EQ(drawing.objects.size(), 1U) << drawing.report.toText();
    if (drawing.objects.size() != 1) {
        return nullptr;
    }
    kxInterfacePtr<T> object = kxCast<T>(drawing.objects.front().get());
    EXPECT_TRUE(object) << "type " << drawing.objects.front()->GetType();
    return object;
}
template <class T>
kxInterfacePtr<T> onlyEntity(const std::string& entities) {
    return onlyObject<T>(readEntities(entities));
}

/// The reason of the only row of a report, which must be left out.
std::string onlyReason(const Drawing& drawing);

kxVector3 firstPoint(const kxLine_c& line);
kxVector3 secondPoint(const kxLine_c& line);
template <class T>
kxVector3 centerOf(const T& round) {
    kxVector3 p;
    round.GetCenter(&p.x, &p.y, &p.z);
    return p;
}
template <class T>
kxVector3 pointAt(const T& curve, double parameter) {
    std::array<double, 3> p{};
    if constexpr (std::is_same_v<T, kxSpline_c>) {
        curve.EvaluateAtParameter(parameter, p.data(), nullptr);
    } else {
        curve.EvaluateAtParameter(parameter, p.data(), nullptr, nullptr);
    }
    return {p[0], p[1], p[2]};
}
template <class T>
std::pair<double, double> endParams(const T& curve) {
    std::pair<double, double> ends;
    curve.GetEndParams(&ends.first, &ends.second);
    return ends;
}
/// The ends of a line or an arc, in the order of a counter-clockwise arc.
std::pair<kxVector3, kxVector3> endsOf(kxObject& object);

/// Equal in all bits that count: -0 equals 0.
void expectSame(const kxVector3& actual, const kxVector3& wanted);
void expectNear(const kxVector3& actual, const kxVector3& wanted, double bound = 1e-9);
double distance(const kxVector3& a, const kxVector3& b);

}  // namespace kxdrawing
