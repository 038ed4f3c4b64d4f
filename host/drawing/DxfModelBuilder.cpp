// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfModelBuilder.h"

#include <algorithm>
#include <utility>

#include <dl_dxf.h>

#include "drawing/DxfText.h"
#include "drawing/LeftOutReasons.h"
#include "drawing/Numbers.h"

namespace kxdrawing {

namespace {

long countOf(const DxfRecord& record, int code) {
    return std::count_if(record.groups.begin(), record.groups.end(),
                         [code](const DxfGroup& group) { return group.code == code; });
}

/// Whether dxflib gets a group: the name of a block or layer, and the numbers that are taken from
/// it. A group 9 in an entity would end that for dxflib, a comment could make it throw.
bool isPassedOn(int code) {
    return code == 2 || (code >= 10 && code <= 79);
}

/// Whether a group states how many of others follow.
bool isCount(std::string_view type, int code) {
    return (type == "LWPOLYLINE" && code == 90) ||
           (type == "SPLINE" && (code == 72 || code == 73 || code == 74));
}

}  // namespace

std::string nameKey(std::string_view name) {
    std::string key(name);
    for (char& c : key) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return key;
}

DxfModelBuilder::DxfModelBuilder() : m_parser(std::make_unique<DL_Dxf>()) {
    initParser();
}

void DxfModelBuilder::initParser() {
    // Its constructor leaves a part of its state to chance: what kind of record is open, which the
    // start of a file sets, and the version that wrote the file, which a comment does.
    std::istringstream file("999\ndxflib 3.0.0.0\n");
    m_parser->in(file, this);
}

DxfModelBuilder::~DxfModelBuilder() = default;

DxfModel DxfModelBuilder::finish() {
    finishPolyline();
    return std::move(m_model);
}

void DxfModelBuilder::take(const DxfRecord& record) {
    if (record.section != m_section) {
        // Its vertices can't be in another section, and where it belongs must still be known.
        finishPolyline();
        m_section = record.section;
    }
    if (record.section == "HEADER") {
        if (record.type == "$INSUNITS") {
            m_model.insertUnits = record.integer(70, 0);
        } else if (record.type == "$MEASUREMENT") {
            m_model.measurement = record.integer(70, 0);
        }
    } else if (record.section == "TABLES") {
        if (record.type == "LAYER") {
            feed(record);
        }
    } else if (record.section == "BLOCKS" || record.section == "ENTITIES") {
        takeEntity(record);
    }
}

void DxfModelBuilder::takeEntity(const DxfRecord& record) {
    m_inBlocks = record.section == "BLOCKS";
    if (record.type == "VERTEX" && m_polyline) {
        takeVertex(record);
        return;
    }
    finishPolyline();
    if (m_inBlocks && (record.type == "BLOCK" || record.type == "ENDBLK")) {
        feed(record);
    } else if (record.type != "SEQEND") {
        beginEntity(record);
        // The vertices of a polyline follow as records of their own.
        if (record.type != "POLYLINE") {
            finishPolyline();
            finishSpline();
            finishEntity();
        }
    }
}

void DxfModelBuilder::beginEntity(const DxfRecord& record) {
    const std::string reason = reasonToLeaveOut(record);
    m_entity = Entity{record.type, layerOf(record), LeftOut{reason}, ""};
    m_mirrored = orientationOf(record) == Orientation::Mirrored;
    if (!reason.empty()) {
        if (record.type == "POLYLINE") {
            m_polyline.emplace();
            m_polyline->problem = reason;
        }
        return;
    }
    m_entity->content = LeftOut{"not understood"};
    if (!takePlain(record)) {
        feed(record);
    }
}

void DxfModelBuilder::finishEntity() {
    if (m_entity) {
        store(std::move(*m_entity));
        m_entity.reset();
    }
}

void DxfModelBuilder::takeVertex(const DxfRecord& record) {
    const auto flags = static_cast<unsigned>(record.integer(70, 0));
    constexpr unsigned kFace = 128;
    constexpr unsigned kMeshVertex = 64;
    if ((flags & kFace) != 0 && (flags & kMeshVertex) == 0) {
        // It has no place, so dxflib passes it over.
        m_polyline->problem = "mesh";
        return;
    }
    if ((flags & 16U) != 0) {
        // It steers the curve that the other vertices follow.
        m_polyline->controlPoints = true;
        return;
    }
    if (record.find(10) == nullptr || record.find(20) == nullptr) {
        m_polyline->problem = "incomplete: a vertex without coordinates";
    }
    feed(record);
}

void DxfModelBuilder::feed(const DxfRecord& record) {
    m_record = &record;
    m_input.clear();
    m_inputGroups = 0;
    write(0, record.type);
    writeCounts(record);
    for (const DxfGroup& group : record.groups) {
        if (isPassedOn(group.code) && !isCount(record.type, group.code)) {
            write(group);
        }
    }
    // dxflib hands a record over when the next one begins.
    write(0, "EOF");
    parse();
    m_record = nullptr;
}

void DxfModelBuilder::parse() {
    constexpr long kGroupsPerQuestion = 1000;
    m_stream.clear();
    m_stream.str(m_input);
    for (long i = 1; i <= m_inputGroups; ++i) {
        m_parser->readDxfGroups(m_stream, this);
        if (m_progress != nullptr && i % kGroupsPerQuestion == 0) {
            m_progress->repeat();
            if (m_progress->isStopped()) {
                break;
            }
        }
    }
}

void DxfModelBuilder::write(int code, std::string_view value) {
    m_input += std::to_string(code);
    m_input += '\n';
    m_input += value;
    m_input += '\n';
    ++m_inputGroups;
}

void DxfModelBuilder::write(const DxfGroup& group) {
    // dxflib stops at lines of more bytes than this.
    constexpr std::size_t kGreatestLength = 1000;
    static_assert(kGreatestLength < DL_DXF_MAXLINE);
    switch (groupKind(group.code)) {
        case GroupKind::Integer:
            // dxflib reads "1e1" as 1.
            write(group.code, std::to_string(parseInt(group.value).value_or(0)));
            break;
        case GroupKind::Real:
            write(group.code, group.value.size() <= kGreatestLength
                                  ? group.value
                                  : realText(parseReal(group.value).value_or(0)));
            break;
        case GroupKind::Text:
            // Names are taken from the record: dxflib only asks whether there is one.
            write(group.code, std::string_view(group.value).substr(0, kGreatestLength));
            break;
    }
}

void DxfModelBuilder::writeCounts(const DxfRecord& record) {
    // dxflib allocates by the counts a file states and keeps those of the entity before when there
    // are none; so it gets the true ones first, and those of the file are not passed on.
    const auto count = [&](int countCode, int code) {
        write(countCode, std::to_string(countOf(record, code)));
    };
    if (record.type == "LWPOLYLINE") {
        count(90, 10);
    } else if (record.type == "SPLINE") {
        count(72, 40);
        count(73, 10);
        count(74, 11);
    }
}

void DxfModelBuilder::store(Entity entity) {
    if (m_block != nullptr) {
        m_block->entities.push_back(std::move(entity));
    } else if (!m_inBlocks) {
        m_model.entities.push_back(std::move(entity));
    }
}

std::size_t DxfModelBuilder::layerIndex(const std::string& name) {
    const auto [known, isNew] = m_layers.try_emplace(nameKey(name), m_layerNames.size());
    if (isNew) {
        m_layerNames.push_back(name);
        m_model.layers.push_back({kxString(name), true});
    }
    return known->second;
}

std::string DxfModelBuilder::layerOf(const DxfRecord& record) {
    const std::string_view given = trimmed(record.text(8));
    return m_layerNames[layerIndex(given.empty() ? "0" : decodeText(given))];
}

}  // namespace kxdrawing
