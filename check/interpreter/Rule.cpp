// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/Diagnostic.h"

namespace gcode_check {

// A plain table. NOLINTNEXTLINE(readability-function-size)
const char* identifierOf(Rule rule) {
    switch (rule) {
        case Rule::CommentNotClosed:
            return "comment-not-closed";
        case Rule::NestedComment:
            return "nested-comment";
        case Rule::UnknownCharacter:
            return "unknown-character";
        case Rule::NumberMissing:
            return "number-missing";
        case Rule::NumberUnreadable:
            return "number-unreadable";
        case Rule::NumberOutOfRange:
            return "number-out-of-range";
        case Rule::WordTwice:
            return "word-twice";
        case Rule::WordsTooMany:
            return "words-too-many";
        case Rule::UnknownGCode:
            return "unknown-g-code";
        case Rule::UnknownMCode:
            return "unknown-m-code";
        case Rule::SameModalGroup:
            return "same-modal-group";
        case Rule::CodesClash:
            return "codes-clash";
        case Rule::WordWithoutUse:
            return "word-without-use";
        case Rule::WordMissing:
            return "word-missing";
        case Rule::AxesMissing:
            return "axes-missing";
        case Rule::AxesWithoutUse:
            return "axes-without-use";
        case Rule::FeedMissing:
            return "feed-missing";
        case Rule::SpindleMissing:
            return "spindle-missing";
        case Rule::ArcWithoutCentre:
            return "arc-without-centre";
        case Rule::ArcFormsMixed:
            return "arc-forms-mixed";
        case Rule::ArcRadiiDiffer:
            return "arc-radii-differ";
        case Rule::ArcRadiusTooSmall:
            return "arc-radius-too-small";
        case Rule::ArcRadiusZero:
            return "arc-radius-zero";
        case Rule::CycleClash:
            return "cycle-clash";
        case Rule::CycleRetractBelow:
            return "cycle-retract-below";
        case Rule::CycleRepeats:
            return "cycle-repeats";
        case Rule::CycleInverseTime:
            return "cycle-inverse-time";
        case Rule::PeckNotPositive:
            return "peck-not-positive";
        case Rule::ModeForbids:
            return "mode-forbids";
        case Rule::OffsetOutOfRange:
            return "offset-out-of-range";
        case Rule::ModesNotSaved:
            return "modes-not-saved";
        case Rule::CompensationOn:
            return "compensation-on";
        case Rule::CompensationPlane:
            return "compensation-plane";
        case Rule::CompensationForbids:
            return "compensation-forbids";
        case Rule::CompensationEntryShort:
            return "compensation-entry-short";
        case Rule::CompensationArcTooSmall:
            return "compensation-arc-too-small";
        case Rule::CompensationNoRoom:
            return "compensation-no-room";
        case Rule::CompensationGouge:
            return "compensation-gouge";
        case Rule::CompensationExitArc:
            return "compensation-exit-arc";
        case Rule::ToolUnknown:
            return "tool-unknown";
        case Rule::ProgramNotOpened:
            return "program-not-opened";
        case Rule::ControlWord:
            return "control-word";
        case Rule::Parameter:
            return "parameter";
        case Rule::Expression:
            return "expression";
        case Rule::NotInterpretedCode:
            return "not-interpreted-code";
        case Rule::TooManyMotions:
            return "too-many-motions";
        case Rule::TooManyLines:
            return "too-many-lines";
    }
    return "";
}

}  // namespace gcode_check
