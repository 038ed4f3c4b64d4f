// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/Units.h"

#include <array>

namespace kxdrawing {

namespace {

struct LengthUnit {
    int code;
    const char* name;
    short unit;
    double scale;
};

constexpr double kInchesPerMile = 63360;
constexpr double kMillimetresPerAstronomicalUnit = 149597870700e3;
constexpr double kMillimetresPerLightYear = 9460730472580800e3;
constexpr double kMillimetresPerParsec = 3.0856775814913673e19;

constexpr std::array<LengthUnit, 24> kUnits = {{
    {1, "inches", kUnitInches, 1},
    {2, "feet", kUnitInches, 12},
    {3, "miles", kUnitInches, kInchesPerMile},
    {4, "millimetres", kUnitMillimetres, 1},
    {5, "centimetres", kUnitMillimetres, 10},
    {6, "metres", kUnitMillimetres, 1e3},
    {7, "kilometres", kUnitMillimetres, 1e6},
    {8, "microinches", kUnitInches, 1e-6},
    {9, "mils", kUnitInches, 1e-3},
    {10, "yards", kUnitInches, 36},
    {11, "angstroms", kUnitMillimetres, 1e-7},
    {12, "nanometres", kUnitMillimetres, 1e-6},
    {13, "microns", kUnitMillimetres, 1e-3},
    {14, "decimetres", kUnitMillimetres, 100},
    {15, "decametres", kUnitMillimetres, 1e4},
    {16, "hectometres", kUnitMillimetres, 1e5},
    {17, "gigametres", kUnitMillimetres, 1e12},
    {18, "astronomical units", kUnitMillimetres, kMillimetresPerAstronomicalUnit},
    {19, "light years", kUnitMillimetres, kMillimetresPerLightYear},
    {20, "parsecs", kUnitMillimetres, kMillimetresPerParsec},
    {21, "US survey feet", kUnitInches, 12 * 1.000002000004},
    {22, "US survey inches", kUnitInches, 1.000002000004},
    {23, "US survey yards", kUnitInches, 36 * 1.000002000004},
    {24, "US survey miles", kUnitInches, kInchesPerMile * 1.000002000004},
}};

UnitDecision fromMeasurement(std::optional<int> measurement, const std::string& prefix) {
    if (!measurement) {
        return {kUnitMillimetres, 1, prefix + "no unit in the file, millimetres assumed", false};
    }
    if (*measurement == 0) {
        return {kUnitInches, 1, prefix + "unit: inches (from $MEASUREMENT)"};
    }
    return {kUnitMillimetres, 1, prefix + "unit: millimetres (from $MEASUREMENT)"};
}

}  // namespace

UnitDecision decideUnit(std::optional<int> insertUnits, std::optional<int> measurement) {
    const int code = insertUnits.value_or(0);
    for (const LengthUnit& known : kUnits) {
        if (known.code != code) {
            continue;
        }
        const std::string target = known.unit == kUnitInches ? "inches" : "millimetres";
        if (known.scale == 1) {
            return {known.unit, 1, "unit: " + target};
        }
        return {known.unit, known.scale,
                std::string("unit: ") + known.name + ", scaled to " + target};
    }
    const std::string prefix =
        code == 0 ? "" : "$INSUNITS " + std::to_string(code) + " is unknown; ";
    return fromMeasurement(measurement, prefix);
}

}  // namespace kxdrawing
