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

DxfModelBuilder::DxfModelBuilder() : m_parser(std::make_unique<DL_Dxf>()) {}

DxfModelBuilder::~DxfModelBuilder() = default;

DxfModel DxfModelBuilder::finish() {
    finishPolyline();
    return std::move(m_model);
}

void DxfModelBuilder::take(const DxfRecord& record) {
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
    if (record.type == "BLOCK" || record.type == "ENDBLK") {
        if (m_inBlocks) {
            feed(record);
        }
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
    const bool stray = record.type == "VERTEX";
    const std::string reason = stray ? "vertex without a polyline" : reasonToLeaveOut(record);
    m_entity = {record.type, layerOf(record), LeftOut{reason}, ""};
    m_mirrored = orientationOf(record) == Orientation::Mirrored;
    if (!reason.empty()) {
        if (record.type == "POLYLINE") {
            m_polyline.emplace();
            m_polyline->problem = reason;
        }
        return;
    }
    m_entity.content = LeftOut{"not understood"};
    if (!takePlain(record)) {
        feed(record);
    }
}

void DxfModelBuilder::finishEntity() {
    if (!m_entity.type.empty()) {
        store(std::exchange(m_entity, {}));
    }
}

void DxfModelBuilder::takeVertex(const DxfRecord& record) {
    const auto flags = static_cast<unsigned>(record.integer(70, 0));
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
        if (!isCount(record.type, group.code)) {
            write(group.code, group.value);
        }
    }
    // dxflib hands a record over when the next one begins.
    write(0, "EOF");
    m_stream.clear();
    m_stream.str(m_input);
    for (long i = 0; i < m_inputGroups; ++i) {
        m_parser->readDxfGroups(m_stream, this);
    }
    m_record = nullptr;
}

void DxfModelBuilder::write(int code, std::string_view value) {
    // dxflib stops at longer lines; long texts are taken from the record.
    constexpr std::size_t kGreatestLength = DL_DXF_MAXLINE - 2;
    m_input += std::to_string(code);
    m_input += '\n';
    m_input += value.substr(0, kGreatestLength);
    m_input += '\n';
    ++m_inputGroups;
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
