// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "EntityCount.h"

#include "GroupText.h"

namespace {

class EntityCounter {
public:
    /// False at the end of the file.
    bool take(const GroupText& group) {
        const int code = group.number();
        const std::string value(withoutBlanks(group.value));
        if (m_nameFollows && code != 999) {
            m_section = value;
            m_nameFollows = false;
        } else if (code == 0) {
            return takeHead(value);
        }
        return true;
    }

    long count() const { return m_count; }

private:
    bool takeHead(const std::string& value) {
        if (value == "SECTION") {
            m_nameFollows = true;
        } else if (value == "EOF") {
            return false;
        } else if (value == "ENDSEC") {
            m_section.clear();
        } else {
            takeRecord(value);
        }
        return true;
    }

    void takeRecord(const std::string& type) {
        const bool sameSection = m_section == m_sectionOfPolyline;
        const bool ownedVertex = type == "VERTEX" && sameSection;
        m_sectionOfPolyline = ownedVertex || type == "POLYLINE" ? m_section : "";
        if (m_section == "ENTITIES" && type != "SEQEND" && !ownedVertex) {
            ++m_count;
        }
    }

    std::string m_section;
    /// Where the polyline stands that a vertex now would belong to; empty without one.
    std::string m_sectionOfPolyline;
    bool m_nameFollows = false;
    long m_count = 0;
};

}  // namespace

long countEntities(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        text.remove_prefix(kByteOrderMark.size());
    }
    EntityCounter counter;
    for (const GroupText& group : groupsOf(text)) {
        if (!counter.take(group)) {
            break;
        }
    }
    return counter.count();
}
