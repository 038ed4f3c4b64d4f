// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// The unit of the drawing and of the program.
enum Units : std::int32_t { mm = 1, inches = 2 };

/// The heights and the unit of one generation run, in drawing units: the height to lift to at feed
/// and to plunge from, the height of rapid travel, and the height of cutting.
class Parameters {
public:
    Parameters() = default;

    void SetParams(double zSafeHeight, double zClearance, double zDepth, Units unit) {
        m_ZSafeheight = zSafeHeight;
        m_ZClearance = zClearance;
        m_ZDepth = zDepth;
        m_unit = unit;
    }

    double GetZSafeHeight() const { return m_ZSafeheight; }
    double GetZClearance() const { return m_ZClearance; }
    double GetZDepth() const { return m_ZDepth; }
    Units GetUnits() const { return m_unit; }

private:
    double m_ZSafeheight = 10.0;
    double m_ZClearance = 100.0;
    double m_ZDepth = 0.0;
    Units m_unit = mm;
};
