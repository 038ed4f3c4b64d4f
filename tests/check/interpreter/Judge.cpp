// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Judge.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

namespace fs = std::filesystem;
using gcode_check::MachineOptions;

namespace judge {
namespace {

const fs::path& folder() {
    static const fs::path path = KX_JUDGE;
    return path;
}

std::string bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void write(const fs::path& file, std::string_view text) {
    std::ofstream(file, std::ios::binary) << text;
}

// A folder of its own for each run: the program writes beside what it reads.
class Workplace {
public:
    Workplace() {
        static std::atomic<int> count{0};
        m_path = fs::temp_directory_path() /
                 ("judge-" + std::to_string(getpid()) + "-" + std::to_string(count++));
        fs::create_directories(m_path);
    }
    ~Workplace() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

constexpr double kMmPerInch = 25.4;

struct TableTool {
    int number;
    double x, y, z, diameter;  // inches, as the table has them
    std::uint8_t orientation;
};
constexpr TableTool kTools[] = {{1, 0, 0, 1.5, 3, 0},     {2, 0, 0, -2.25, 0.5, 0},
                                {3, 0, 0, 10, 6, 0},      {4, 0, 0, 0.5, 0.25, 0},
                                {5, 0, 0, 0.75, 0.25, 0}, {9, 0, 0, 1, 1, 0},
                                {20, 0, 0, 0, 0.25, 2}};

std::string toolTable() {
    std::ostringstream out;
    for (const TableTool& tool : kTools) {
        out << "T" << tool.number << " P" << tool.number << " Z" << tool.z << " D" << tool.diameter
            << " Q" << int{tool.orientation} << " ;\n";
    }
    return out.str();
}

std::vector<double> numbersIn(const std::string& text) {
    std::vector<double> result;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, ',');) {
        try {
            result.push_back(std::stod(part));
        } catch (const std::exception&) {
            return {};
        }
    }
    return result;
}

// Makes steps of the canonical calls; keeps the modes that the calls do not repeat.
class CanonReader {
public:
    void call(const std::string& name, const std::string& arguments) {
        if (name == "COMMENT") {
            if (arguments.compare(0, 2, "\"@") == 0) {
                m_steps.push_back({"@", {std::stod(arguments.substr(2))}});
            }
            return;
        }
        const std::vector<double> numbers = numbersIn(arguments);
        if (name == "USE_LENGTH_UNITS") {
            m_mmPerUnit = arguments == "CANON_UNITS_INCHES" ? kMmPerInch : 1;
        } else if (name == "SET_FEED_RATE") {
            m_feed = numbers.at(0) * m_mmPerUnit;
        } else if (name == "STRAIGHT_TRAVERSE") {
            m_steps.push_back({"rapid", numbers});
        } else if (name == "STRAIGHT_FEED" || name == "ARC_FEED") {
            m_steps.push_back({name == "ARC_FEED" ? "arc" : "feed", numbers});
            m_steps.push_back({"at feed", {m_feed}});
        } else {
            otherCall(name, numbers);
        }
    }

    std::vector<Step> take() { return std::move(m_steps); }

private:
    void otherCall(const std::string& name, const std::vector<double>& numbers) {
        if (name == "DWELL") {
            m_steps.push_back({"dwell", numbers});
        } else if (name == "SET_SPINDLE_SPEED") {
            m_speed = numbers.at(1);
            spindle(m_turning);
        } else if (name == "START_SPINDLE_CLOCKWISE") {
            spindle(1);
        } else if (name == "START_SPINDLE_COUNTERCLOCKWISE") {
            spindle(-1);
        } else if (name == "STOP_SPINDLE_TURNING") {
            spindle(0);
        } else if (name == "CHANGE_TOOL") {
            m_steps.push_back({"tool", numbers});
        } else if (name == "MIST_ON" || name == "FLOOD_ON" || name == "FLOOD_OFF") {
            m_coolant = name == "MIST_ON" ? m_coolant | 1 : name == "FLOOD_ON" ? m_coolant | 2 : 0;
            m_steps.push_back({"coolant", {static_cast<double>(m_coolant)}});
        } else if (name == "PROGRAM_STOP" || name == "OPTIONAL_PROGRAM_STOP") {
            m_steps.push_back({"stop", {}});
        } else if (name == "PROGRAM_END" || name == "FINISH") {
            end();
        }
    }

    void spindle(double turning) {
        m_turning = turning;
        m_steps.push_back({"spindle", {turning, m_speed}});
    }

    // What the end of a program resets is no step of its own.
    void end() {
        while (!m_steps.empty() &&
               (m_steps.back().name == "spindle" || m_steps.back().name == "coolant")) {
            m_steps.pop_back();
        }
        m_steps.push_back({"end", {}});
    }

    std::vector<Step> m_steps;
    double m_mmPerUnit = 1;
    double m_feed = 0;
    double m_speed = 0;
    double m_turning = 0;
    int m_coolant = 0;
};

// Lines of the form "   12 N0050  NAME(arguments)".
std::vector<Step> readCanon(const std::string& text) {
    CanonReader reader;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        const std::size_t open = line.find('(');
        const std::size_t close = line.rfind(')');
        if (open == std::string::npos || close == std::string::npos || close < open) {
            continue;
        }
        const std::size_t name = line.rfind(' ', open);
        const std::size_t begin = name == std::string::npos ? 0 : name + 1;
        reader.call(line.substr(begin, open - begin), line.substr(open + 1, close - open - 1));
    }
    return reader.take();
}

// After "executing" the message and the line that it is about.
void readErrors(const std::string& text, Judgement& judgement) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (line != "executing") {
            lines.push_back(line);
        }
    }
    while (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    if (lines.size() >= 2) {
        judgement.badLine = lines.back();
        lines.pop_back();
    }
    for (const std::string& line : lines) {
        judgement.message += line + " ";
    }
}

double lengthOf(const gcode_check::Motion& motion) {
    const double dx = motion.to.x - motion.from.x;
    const double dy = motion.to.y - motion.from.y;
    const double dz = motion.to.z - motion.from.z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

}  // namespace

bool areSame(const Step& a, const Step& b) {
    if (a.name != b.name || a.numbers.size() != b.numbers.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.numbers.size(); ++i) {
        // A feed is printed in inches and held against millimetres.
        const double tolerance = a.name == "at feed" ? 0.0013 : 0.0000501;
        const double difference = std::abs(a.numbers[i] - b.numbers[i]);
        if (!std::isnan(a.numbers[i]) &&
            !(difference <= tolerance + 1e-12 * std::abs(a.numbers[i]))) {
            return false;
        }
    }
    return true;
}

std::string textOf(const Step& step) {
    std::ostringstream out;
    out.precision(10);
    out << step.name;
    for (const double number : step.numbers) {
        out << ' ' << number;
    }
    return out.str();
}

// It is there and it starts: all libraries are found.
bool isThere() {
    static const bool result =
        fs::is_regular_file(folder() / "bin/rs274") && judge("M2\n").isAccepted;
    return result;
}

Judgement judge(std::string_view program) {
    const Workplace work;
    write(work.path() / "program.ngc", program);
    write(work.path() / "tools.tbl", toolTable());
    // It keeps its tools in a file in the home folder: runs at the same time would share it.
    const std::string command =
        "cd '" + work.path().string() + "' && HOME=\"$PWD\" LD_LIBRARY_PATH='" +
        (folder() / "lib").string() + "' timeout 60 '" + (folder() / "bin/rs274").string() +
        "' -g -n 2 -t tools.tbl program.ngc >out 2>err";
    Judgement result;
    result.isAccepted = std::system(command.c_str()) == 0;
    result.steps = readCanon(bytesOf(work.path() / "out"));
    readErrors(bytesOf(work.path() / "err"), result);
    return result;
}

std::vector<Judgement> judgeAll(const std::vector<std::string>& programs) {
    std::vector<Judgement> results(programs.size());
    std::atomic<std::size_t> next{0};
    const auto work = [&] {
        for (std::size_t i = next++; i < programs.size(); i = next++) {
            results[i] = judge(programs[i]);
        }
    };
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
        threads.emplace_back(work);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return results;
}

MachineOptions optionsWithTools() {
    MachineOptions options;
    options.anyTool = false;
    for (const TableTool& row : kTools) {
        gcode_check::Tool tool;
        tool.number = row.number;
        tool.offset = {row.x * kMmPerInch, row.y * kMmPerInch, row.z * kMmPerInch};
        tool.diameterMm = row.diameter * kMmPerInch;
        tool.orientation = row.orientation;
        options.tools.push_back(tool);
    }
    return options;
}

namespace {

using gcode_check::FeedMode;
using gcode_check::Motion;
using gcode_check::MotionKind;
using gcode_check::Plane;
using gcode_check::Point;
using gcode_check::Reading;
using gcode_check::RotaryAxes;

class OwnSteps {
public:
    explicit OwnSteps(const Reading& reading) : m_reading(reading) {}

    std::vector<Step> take() {
        for (const Motion& motion : m_reading.motions) {
            add(motion);
        }
        return std::move(m_steps);
    }

private:
    void add(const Motion& motion) {
        switch (motion.kind) {
            case MotionKind::Rapid:
                m_steps.push_back({"rapid", position(motion)});
                return;
            case MotionKind::Feed:
                m_steps.push_back({"feed", position(motion)});
                feed(motion, lengthOf(motion));
                return;
            case MotionKind::Arc:
                m_steps.push_back({"arc", arc(motion)});
                feed(motion, arcLength(motion));
                return;
            case MotionKind::Dwell:
                m_steps.push_back({"dwell", {motion.seconds}});
                return;
            case MotionKind::Spindle:
                m_steps.push_back({"spindle", {turning(motion), motion.spindleSpeed}});
                return;
            case MotionKind::ToolChange:
                m_steps.push_back({"tool", {static_cast<double>(motion.tool)}});
                return;
            case MotionKind::Coolant:
                m_steps.push_back({"coolant", {static_cast<double>(motion.coolant)}});
                return;
            case MotionKind::Stop:
                m_steps.push_back({"stop", {}});
                return;
            case MotionKind::ProgramEnd:
                end();
                return;
        }
    }

    void end() {
        while (!m_steps.empty() &&
               (m_steps.back().name == "spindle" || m_steps.back().name == "coolant")) {
            m_steps.pop_back();
        }
        m_steps.push_back({"end", {}});
    }

    static double turning(const Motion& motion) {
        return motion.spindle == gcode_check::Spindle::Off         ? 0
               : motion.spindle == gcode_check::Spindle::Clockwise ? 1
                                                                   : -1;
    }

    double unitOf(const Motion& motion) const {
        return m_reading.frames[motion.frame].inches ? kMmPerInch : 1;
    }

    std::array<double, 3> inProgram(const Motion& motion, const Point& machine) const {
        const Point point = toProgram(m_reading.frames[motion.frame], machine);
        const double unit = unitOf(motion);
        return {point.x / unit, point.y / unit, point.z / unit};
    }

    RotaryAxes rotary(const Motion& motion) const {
        return motion.rotary < 0 ? RotaryAxes{}
                                 : m_reading.rotaryAxes[static_cast<std::size_t>(motion.rotary)];
    }

    std::vector<double> position(const Motion& motion) const {
        const auto to = inProgram(motion, motion.to);
        const RotaryAxes axes = rotary(motion);
        return {to[0], to[1], to[2], axes.a, axes.b, axes.c};
    }

    static std::array<std::size_t, 3> axesOf(Plane plane) {
        static constexpr std::array<std::array<std::size_t, 3>, 3> kAxes = {
            {{0, 1, 2}, {2, 0, 1}, {1, 2, 0}}};
        return kAxes[static_cast<std::size_t>(plane)];
    }

    std::vector<double> arc(const Motion& motion) const {
        const auto to = inProgram(motion, motion.to);
        const auto centre = inProgram(motion, motion.centre);
        const auto axes = axesOf(motion.plane);
        const RotaryAxes turned = rotary(motion);
        return {to[axes[0]],
                to[axes[1]],
                centre[axes[0]],
                centre[axes[1]],
                static_cast<double>(motion.turns),
                to[axes[2]],
                turned.a,
                turned.b,
                turned.c};
    }

    double arcLength(const Motion& motion) const {
        const auto from = inProgram(motion, motion.from);
        const auto to = inProgram(motion, motion.to);
        const auto centre = inProgram(motion, motion.centre);
        const auto axes = axesOf(motion.plane);
        const double radius =
            std::hypot(from[axes[0]] - centre[axes[0]], from[axes[1]] - centre[axes[1]]);
        const auto angle = [&](const std::array<double, 3>& point) {
            return std::atan2(point[axes[1]] - centre[axes[1]], point[axes[0]] - centre[axes[0]]);
        };
        constexpr double kTurn = 6.283185307179586;
        double sweep = std::fmod(angle(to) - angle(from), kTurn) * (motion.turns < 0 ? -1 : 1);
        sweep += sweep <= 1e-9 ? kTurn : 0;
        sweep += kTurn * (std::abs(motion.turns) - 1);
        return std::hypot(radius * sweep, to[axes[2]] - from[axes[2]]) * unitOf(motion);
    }

    // In inverse time the judge says the feed that the length gives. What only turns has none here.
    void feed(const Motion& motion, double length) {
        const bool isInverse = motion.feedMode == FeedMode::InverseTime;
        const double feed = !isInverse ? motion.feed : length > 0 ? motion.feed * length : NAN;
        m_steps.push_back({"at feed", {feed}});
    }

    const Reading& m_reading;
    std::vector<Step> m_steps;
};

}  // namespace

std::vector<Step> stepsOf(const Reading& reading) {
    return OwnSteps(reading).take();
}

std::string lineOf(const std::string& text, std::uint32_t number) {
    std::istringstream in(text);
    std::string line;
    for (std::uint32_t i = 0; i < number; ++i) {
        std::getline(in, line);
    }
    const std::size_t end = line.find_last_not_of(" \t\r");
    return end == std::string::npos ? std::string() : line.substr(0, end + 1);
}

std::string difference(const std::vector<Step>& ours, const std::vector<Step>& theirs) {
    const std::size_t both = std::min(ours.size(), theirs.size());
    for (std::size_t i = 0; i < both; ++i) {
        if (!areSame(ours[i], theirs[i])) {
            return "step " + std::to_string(i + 1) + ": ours \"" + textOf(ours[i]) +
                   "\", the judge's \"" + textOf(theirs[i]) + "\"";
        }
    }
    if (ours.size() != theirs.size()) {
        return std::to_string(ours.size()) + " steps, the judge has " +
               std::to_string(theirs.size()) + ", after \"" +
               (both == 0 ? "" : textOf(ours[both - 1])) + "\"";
    }
    return {};
}

}  // namespace judge
