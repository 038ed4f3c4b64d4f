// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/Codes.h"

#include <array>
#include <cstdio>
#include <initializer_list>

namespace gcode_check {
namespace {

using GTable = std::array<GGroup, 1000>;
using MTable = std::array<MGroup, 200>;

void set(GTable& table, GGroup group, std::initializer_list<int> codes) {
    for (const int code : codes) {
        table[static_cast<std::size_t>(code)] = group;
    }
}

void set(MTable& table, MGroup group, std::initializer_list<int> codes) {
    for (const int code : codes) {
        table[static_cast<std::size_t>(code)] = group;
    }
}

GTable makeGTable() {
    GTable table{};
    set(table, GGroup::OneShot, {40, 100, 280, 281, 300, 301, 520, 530, 920});
    set(table, GGroup::Motion, {0, 10, 20, 30, 730, 810, 820, 830, 850, 860, 890});
    set(table, GGroup::CancelMotion, {800});
    set(table, GGroup::Plane, {170, 180, 190});
    set(table, GGroup::Distance, {900, 910});
    set(table, GGroup::ArcDistance, {901, 911});
    set(table, GGroup::FeedMode, {930, 940, 950});
    set(table, GGroup::Unit, {200, 210});
    set(table, GGroup::RadiusOffset, {400, 410, 411, 420, 421});
    set(table, GGroup::ToolLength, {430, 431, 432, 490});
    set(table, GGroup::Retract, {980, 990});
    set(table, GGroup::System, {540, 550, 560, 570, 580, 590, 591, 592, 593});
    set(table, GGroup::Path, {610, 611, 640});
    set(table, GGroup::SpindleMode, {970});
    set(table, GGroup::Diameter, {80});
    set(table, GGroup::OffsetOff, {921, 922, 923});
    set(table, GGroup::NotInterpreted, {50,  51,  52,  53,  70,  171, 181, 191, 330, 331,
                                        382, 383, 384, 385, 740, 760, 840, 870, 880, 960});
    set(table, GGroup::LatheContour, {700, 710, 711, 712, 720, 721, 722});
    return table;
}

MTable makeMTable() {
    MTable table{};
    set(table, MGroup::Stop, {0, 1, 2, 30, 60});
    set(table, MGroup::Tool, {6, 61});
    set(table, MGroup::Spindle, {3, 4, 5, 70, 71, 72, 73});
    set(table, MGroup::Coolant, {7, 8, 9});
    set(table, MGroup::Override, {48, 49, 50, 51, 52, 53});
    set(table, MGroup::Output, {62, 63, 64, 65, 66, 67, 68});
    set(table, MGroup::NotInterpreted, {19, 98, 99});
    for (int user = 100; user <= 199; ++user) {
        set(table, MGroup::NotInterpreted, {user});
    }
    return table;
}

}  // namespace

GGroup groupOfG(int tenths) {
    static const GTable table = makeGTable();
    return tenths >= 0 && tenths < 1000 ? table[static_cast<std::size_t>(tenths)] : GGroup::Unknown;
}

MGroup groupOfM(int code) {
    static const MTable table = makeMTable();
    return code >= 0 && code < 200 ? table[static_cast<std::size_t>(code)] : MGroup::Unknown;
}

CodeText textOfG(int tenths) {
    CodeText result{};
    if (tenths % 10 == 0) {
        std::snprintf(result.text, sizeof(result.text), "G%d", tenths / 10 % 1000);
    } else {
        std::snprintf(result.text, sizeof(result.text), "G%d.%d", tenths / 10 % 1000, tenths % 10);
    }
    return result;
}

}  // namespace gcode_check
