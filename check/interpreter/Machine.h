// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>

#include "interpreter/Axes.h"
#include "interpreter/Block.h"
#include "interpreter/Compensation.h"
#include "interpreter/Reading.h"

namespace gcode_check {

// Executes blocks one after another, as a controller does, and writes what moves into a reading.
class Machine {
public:
    Machine(const MachineOptions& options, Reading& reading);

    // False: the block is rejected or can't be followed any further; `fault` says why. What it did
    // before that stands.
    bool execute(const Block& block, Fault& fault);
    // The closing percent line.
    void end(std::uint32_t line);
    bool hasEnded() const { return m_hasEnded; }
    // Where the program stops: a step of radius compensation whose end counts on the next move
    // is not made.
    void dropPending();
    // The motion code in force, in tenths.
    int motionMode() const { return m_mode; }
    // Writes the modes into the reading.
    void finish();

private:
    struct Sticky {
        double r = 0;
        double bottom = 0;
        double dwell = 0;
        double peck = 0;
    };
    // What M70 and M73 save and M72 brings back.
    struct SavedModes {
        Modes modes;
        double feedWord = 0;
        bool isCompensated = false;
        bool hasToolOffset = false;
    };
    struct Cycle;

    bool putInForce(const Block& block, Fault& fault);

    // Modes, in the order in which they come into force.
    void setFeedMode(const Block& block);
    void setFeedAndSpeed(const Block& block);
    bool selectTool(const Block& block, Fault& fault);
    bool changeTool(const Block& block, Fault& fault);
    bool setTool(const Block& block, Fault& fault);
    void synchronise();
    bool isTool(const Block& block, char letter, Fault& fault) const;
    const Tool* findTool(std::int32_t number) const;
    void setSpindle(const Block& block);
    void setCoolant(const Block& block);
    void dwell(const Block& block);
    void setPlane(const Block& block);
    void setUnit(const Block& block);
    void changeUnit(bool toInches);
    void setDistances(const Block& block);
    bool stop(const Block& block, Fault& fault);
    bool saveOrRestoreModes(const Block& block, Fault& fault);
    void saveModes();
    bool restoreModes(Fault& fault);
    void restoreFeed();
    void restoreSpindle();
    void restoreCoolant();
    bool restoreToolLength(Fault& fault);
    void resetModes();

    // Offsets.
    void scale(double factor);
    std::size_t systemInForce() const { return m_modes.system - std::size_t{1}; }
    void useSystem(std::size_t system);
    void enterFrame();
    bool setToolLength(const Block& block, Fault& fault);
    bool addToolOffset(const Block& block, bool isBesides, Fault& fault);
    void setSystem(const Block& block);
    void changeSystem(std::size_t system);
    bool checkOrigin(const Block& block, Fault& fault) const;
    bool setOrigin(const Block& block, Fault& fault);
    void setOriginFromPosition(const Block& block, std::size_t system, const Axes& machine);
    void offset92(const Block& block);
    void switch92(int code);
    Axes toProgramAxes(const Axes& machine) const;
    Axes toMachineAxes(const Axes& program) const;
    Point machinePoint(const Axes& program) const;

    // Motion.
    bool oneShot(const Block& block, Fault& fault);
    Axes placeOf(const Axes& machine) const;
    bool goHome(const Block& block, const Axes& home, Fault& fault);
    Axes target(const Block& block) const { return targetFrom(m_position, block); }
    Axes targetFrom(const Axes& from, const Block& block) const;
    void setPolar(const Block& block, Axes& to) const;
    bool checkPolarPlane(const Block& block, Fault& fault) const;
    bool checkPolar(const Block& block, Fault& fault) const;
    bool machineTarget(const Block& block, Axes& result, Fault& fault) const;
    bool move(const Block& block, Fault& fault);
    void noteInverseFeed();
    bool straight(const Block& block, int motion, Fault& fault);
    bool checkFeed(const Block& block, int motion, Fault& fault) const;
    bool arc(const Block& block, int motion, Fault& fault);
    bool cycle(const Block& block, int motion, Fault& fault);
    bool cycleWords(const Block& block, int motion, Fault& fault);
    bool cycleWord(const Block& block, char letter, bool isSame, double& value, Fault& fault);
    bool cycleHoles(const Block& block, Cycle& cycle, Fault& fault);
    bool hole(const Cycle& cycle, Fault& fault);
    bool holeEnd(const Cycle& cycle, Fault& fault);
    bool pecks(const Cycle& cycle, Fault& fault);
    bool strokeTo(const Cycle& cycle, double depth, Stroke stroke, Fault& fault);

    // Radius compensation.
    bool setCompensation(const Block& block, Fault& fault);
    bool turnOn(const Block& block, Fault& fault);
    bool programmedRadius(const Block& block, double& radius, int& orientation, Fault& fault) const;
    bool radiusOfTool(const Block& block, double& radius, int& orientation, Fault& fault) const;
    bool checkBeforeCompensation(const Block& block, Fault& fault) const;
    bool checkBehindCompensation(const Block& block, Fault& fault) const;
    bool leavesByArc(std::uint32_t column, Fault& fault) const;
    bool compensated(const Block& block, Motion& motion, const Axes& to, ProgrammedPath path,
                     Fault& fault);
    bool enter(std::uint32_t column, Motion& motion, const Axes& to, ProgrammedPath& path,
               Fault& fault);
    bool follow(Motion& motion, const Axes& to, const ProgrammedPath& path, Fault& fault);
    bool turnCorner(std::uint32_t column, const Motion& after, const ProgrammedPath& path,
                    Fault& fault);
    bool turnInside(std::uint32_t column, const ProgrammedPath& path, Fault& fault);
    bool goRoundCorner(const Motion& after, const ProgrammedPath& path, Fault& fault);
    bool settleForStop(std::uint32_t column, Fault& fault);
    std::size_t firstMoveFrom(std::size_t index) const;
    bool canMoveEnd() const;
    bool settle(std::uint32_t column, Fault& fault);
    void movePendingEnd(const AxisPair& end);
    bool pushBeside(Motion& motion, const Axes& to, const AxisPair& tool, Fault& fault);
    Axes besideAxes(const Axes& program, const AxisPair& tool) const;
    AxisPair inPlane(const Axes& axes) const;
    void setFeedOf(Motion& motion, double programmedLength) const;

    // Steps.
    Motion step(MotionKind kind) const;
    bool push(const Motion& motion, Fault& fault);
    std::int32_t rotaryIndex(const Axes& to);
    bool pushMove(Motion& motion, const Axes& to, Fault& fault);
    void pushSpindle(Spindle spindle);
    void pushDwell(double seconds);

    const MachineOptions& m_options;
    Reading& m_reading;
    std::uint32_t m_line = 0;
    bool m_hasEnded = false;

    Axes m_position{};  // program coordinates
    Point m_machine;    // the same in machine coordinates, millimetres
    double m_mmPerUnit = 1;
    Modes m_modes;
    int m_mode = kStartMode;
    double m_feed = 0;
    double m_feedWord = 0;  // as it was written last; 0 when the mode took it away; in inverse
                            // time the one before, and below 0 when a move made another one
    std::int32_t m_tool = 0;
    std::int32_t m_nextTool = 0;

    std::uint32_t m_zeroLine = 0;
    std::array<Axes, 9> m_origins{};
    std::array<double, 9> m_rotationsDeg{};
    Axes m_offset92{};
    Axes m_kept92{};
    Axes m_toolOffset{};
    Axes m_home28{};
    Axes m_home30{};
    double m_cosine = 1;
    double m_sine = 0;
    bool m_isPlain = true;  // no offset and no rotation is in force
    std::int32_t m_rotary = -1;

    Sticky m_sticky;
    double m_initialLevel = 0;
    bool m_isInCycles = false;
    std::optional<SavedModes> m_saved;
    Compensation m_compensation;

    static constexpr int kStartMode = 800;
};

}  // namespace gcode_check
