// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/Interpreter.h"

#include <algorithm>
#include <cstring>

#include "interpreter/Block.h"
#include "interpreter/Characters.h"
#include "interpreter/LineReader.h"
#include "interpreter/Machine.h"

namespace gcode_check {
namespace {

Verdict verdictOf(Rule rule) {
    switch (rule) {
        case Rule::ControlWord:
        case Rule::Parameter:
        case Rule::Expression:
        case Rule::NotInterpretedCode:
        case Rule::TooManyMotions:
        case Rule::TooManyLines:
            return Verdict::NotInterpreted;
        default:
            return Verdict::Rejected;
    }
}

// Where the text of a line begins; npos: it has none.
std::size_t textOf(std::string_view line) {
    std::size_t at = 0;
    while (at < line.size() && isBlank(line[at])) {
        ++at;
    }
    return at < line.size() ? at : std::string_view::npos;
}

bool isPercent(std::string_view line, std::size_t text) {
    return line[text] == '%' && textOf(line.substr(text + 1)) == std::string_view::npos;
}

class Interpreter {
public:
    explicit Interpreter(const MachineOptions& options)
        : m_options(options), m_machine(options, m_reading) {}

    Reading read(std::string_view program, Progress& progress) {
        // An estimate only: a line of a step is seldom shorter.
        constexpr std::size_t kMostReserved = std::size_t{1} << 22U;
        m_reading.motions.reserve(std::min(program.size() / 16, kMostReserved));
        const char* at = program.data();
        const char* const end = at + program.size();
        while (at != end &&
               progress.goesOn(static_cast<std::size_t>(at - program.data()), program.size())) {
            const void* found = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
            const char* lineEnd = found == nullptr ? end : static_cast<const char*>(found);
            if (!line(std::string_view(at, static_cast<std::size_t>(lineEnd - at)))) {
                break;
            }
            at = lineEnd == end ? end : lineEnd + 1;
        }
        m_machine.finish();
        return std::move(m_reading);
    }

private:
    bool line(std::string_view text) {
        if (m_reading.lines == UINT32_MAX) {
            complain({Rule::TooManyLines, 1, "a further line", "fewer lines"});
            return false;
        }
        ++m_reading.lines;
        const std::size_t begin = textOf(text);
        if (begin == std::string_view::npos) {
            return true;
        }
        if (isPercent(text, begin)) {
            percent(begin);
        } else {
            words(text, begin);
        }
        m_hasText = true;
        return true;
    }

    void percent(std::size_t begin) {
        fact(FactKind::Percent, 0);
        if (!isRunning()) {
            return;
        }
        if (!m_hasText) {
            m_isBetweenPercents = true;
        } else if (m_isBetweenPercents) {
            m_machine.end(m_reading.lines);
        } else {
            complain({Rule::ProgramNotOpened, static_cast<std::uint32_t>(begin + 1), "%",
                      "a percent line before the program, too"});
        }
    }

    void words(std::string_view text, std::size_t begin) {
        m_block.clear();
        m_block.line = m_reading.lines;
        Fault fault;
        const bool isReadable = readLine(text, m_block, fault);
        if (m_machine.hasEnded()) {
            fact(FactKind::TextAfterEnd, static_cast<double>(begin + 1));
        }
        facts();
        if (m_machine.hasEnded()) {
            return;
        }
        // Whatever stands in it, nobody reads a line that is left out.
        if (m_block.isDeleted && m_options.blockDelete) {
            return;
        }
        if (!isReadable) {
            complain(std::move(fault));
            return;
        }
        if (m_reading.stopLine == 0 && m_block.hasText && !m_machine.execute(m_block, fault)) {
            complain(std::move(fault));
        }
    }

    bool isRunning() const { return m_reading.stopLine == 0 && !m_machine.hasEnded(); }

    void complain(Fault fault) {
        if (m_reading.stopLine == 0) {
            m_reading.stopLine = m_reading.lines;
            m_machine.dropPending();
        }
        if (m_reading.diagnostics.size() >= m_options.diagnosticsAtMost) {
            ++m_reading.diagnosticsLeftOut;
            return;
        }
        m_reading.diagnostics.push_back({fault.rule, verdictOf(fault.rule), m_reading.lines,
                                         fault.column, std::move(fault.found),
                                         std::move(fault.expected)});
    }

    void fact(FactKind kind, double value) {
        m_reading.facts.push_back({m_reading.lines, kind, value});
    }

    void facts() {
        if (m_block.isDeleted) {
            fact(FactKind::BlockDelete, m_options.blockDelete ? 1 : 0);
        }
        if (m_block.commentColumn != 0) {
            fact(FactKind::Comment, m_block.commentColumn);
        }
        wordFact('N', FactKind::LineNumber);
        if (m_block.hasAnyCode() || m_block.hasAny(kFactWords)) {
            codeFacts();
        }
    }

    void codeFacts() {
        wordFact('F', FactKind::Feed);
        wordFact('S', FactKind::Speed);
        wordFact('T', FactKind::Tool);
        codeFact(GGroup::Unit, FactKind::Unit);
        codeFact(GGroup::Distance, FactKind::Distance);
        const int system = m_block.g(GGroup::System);
        if (system != Block::kNone) {
            const int number = system <= 590 ? (system - 540) / 10 + 1 : system - 590 + 6;
            fact(FactKind::System, number);
        }
        const int spindle = m_block.m(MGroup::Spindle);
        if (spindle == 3 || spindle == 4 || spindle == 5) {
            fact(FactKind::Spindle, spindle);
        }
        const int stop = m_block.m(MGroup::Stop);
        if (stop == 2 || stop == 30) {
            fact(FactKind::End, stop);
        }
        toolLengthFact();
    }

    void toolLengthFact() {
        const int code = m_block.g(GGroup::ToolLength);
        if (m_block.isDeleted && m_options.blockDelete) {
            return;
        }
        if (m_block.m(MGroup::Spindle) == 72) {
            fact(FactKind::ToolLength, kOwnToolLength);
        } else if (code == 430) {
            fact(FactKind::ToolLength, m_block.valueOr('H', 0));
        } else if (code != Block::kNone) {
            fact(FactKind::ToolLength, code == 490 ? kNoToolLength : kOwnToolLength);
        }
    }

    void wordFact(char letter, FactKind kind) {
        if (m_block.has(letter)) {
            fact(kind, m_block.value(letter));
        }
    }

    void codeFact(GGroup group, FactKind kind) {
        if (m_block.hasG(group)) {
            const int code = m_block.g(group) / 10;
            fact(kind, code);
        }
    }

    static constexpr std::uint32_t kFactWords = Block::bit('F') | Block::bit('S') | Block::bit('T');

    const MachineOptions m_options;
    Reading m_reading;
    Machine m_machine;
    Block m_block;
    bool m_hasText = false;
    bool m_isBetweenPercents = false;
};

}  // namespace

Reading read(std::string_view program, const MachineOptions& options, Progress* progress) {
    Progress nobody(nullptr);
    return Interpreter(options).read(program, progress != nullptr ? *progress : nobody);
}

}  // namespace gcode_check
