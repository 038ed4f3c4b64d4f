// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "ReadingText.h"

#include <cmath>
#include <sstream>

using namespace gcode_check;  // NOLINT(google-build-using-namespace): a test's own source

namespace {

double tidy(double value) {
    const double rounded = std::round(value * 1e6) / 1e6;
    return rounded == 0 ? 0 : rounded;
}

void writePoint(std::ostream& out, const Point& point) {
    out << ' ' << tidy(point.x) << ' ' << tidy(point.y) << ' ' << tidy(point.z);
}

void writeStep(std::ostream& out, const Motion& motion) {
    switch (motion.kind) {
        case MotionKind::Rapid:
        case MotionKind::Feed:
            out << (motion.kind == MotionKind::Rapid ? "rapid" : "feed");
            writePoint(out, motion.to);
            break;
        case MotionKind::Arc:
            out << "arc";
            writePoint(out, motion.to);
            out << " round";
            writePoint(out, motion.centre);
            out << " turns " << motion.turns;
            break;
        case MotionKind::Dwell:
            out << "dwell " << motion.seconds;
            break;
        case MotionKind::Spindle:
            out << "spindle " << static_cast<int>(motion.spindle) << ' ' << motion.spindleSpeed;
            break;
        case MotionKind::ToolChange:
            out << "tool " << motion.tool;
            break;
        case MotionKind::Coolant:
            out << "coolant " << static_cast<int>(motion.coolant);
            break;
        case MotionKind::Stop:
            out << "stop";
            break;
        case MotionKind::ProgramEnd:
            out << "end";
            break;
    }
    if (motion.kind == MotionKind::Feed || motion.kind == MotionKind::Arc) {
        out << " F" << tidy(motion.feed);
    }
}

std::string stop(const Reading& reading) {
    if (reading.diagnostics.empty()) {
        return {};
    }
    const Diagnostic& first = reading.diagnostics.front();
    return std::to_string(first.line) + ":" + std::to_string(first.column) + " " +
           identifierOf(first.rule);
}

}  // namespace

std::string stepsIn(const Reading& reading) {
    std::ostringstream out;
    out.precision(10);
    for (const Motion& motion : reading.motions) {
        out << (out.tellp() == 0 ? "" : " | ");
        writeStep(out, motion);
    }
    const std::string why = stop(reading);
    return out.str() + (why.empty() ? "" : " ! " + why);
}

std::string stopOf(const std::string& program, const MachineOptions& options) {
    return stop(read(program, options));
}
