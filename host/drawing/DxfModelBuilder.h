// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <dl_creationadapter.h>

#include "drawing/DxfRecord.h"
#include "drawing/EntityModel.h"
#include "drawing/ReadProgress.h"

class DL_Dxf;

namespace kxdrawing {

/// A polyline whose vertices are still to come.
struct PendingPolyline {
    kxPolyLineData data;
    bool light = false;
    bool space = false;
    double elevation = 0;
    std::string problem;
    bool controlPoints = false;
};

/// A spline whose numbers are still to come.
struct PendingSpline {
    kxSplineData data;
    std::vector<kxVector3> fitPoints;
    bool closed = false;
};

/// Makes the model of a drawing from its records, which must have been checked. dxflib parses
/// each record that it can read; the rest is left out with a reason.
class DxfModelBuilder : public DL_CreationAdapter {
public:
    DxfModelBuilder();
    ~DxfModelBuilder() override;

    void take(const DxfRecord& record);
    /// Asks `progress` now and then within a record whether to go on; when not, the model is not
    /// whole.
    void setProgress(ReadProgress* progress) { m_progress = progress; }
    /// Ends the last entity and hands the model out; call once.
    DxfModel finish();

    // Called by dxflib with the record that it was just given.
    void addLayer(const DL_LayerData& data) override;
    void addBlock(const DL_BlockData& data) override;
    void endBlock() override;
    void addPoint(const DL_PointData& data) override;
    void addLine(const DL_LineData& data) override;
    void addArc(const DL_ArcData& data) override;
    void addCircle(const DL_CircleData& data) override;
    void addEllipse(const DL_EllipseData& data) override;
    void addPolyline(const DL_PolylineData& data) override;
    void addVertex(const DL_VertexData& data) override;
    void addSpline(const DL_SplineData& data) override;
    void addControlPoint(const DL_ControlPointData& data) override;
    void addFitPoint(const DL_FitPointData& data) override;
    void addKnot(const DL_KnotData& data) override;
    void addInsert(const DL_InsertData& data) override;
    void addText(const DL_TextData& data) override;
    void addMText(const DL_MTextData& data) override;
    void addAttribute(const DL_AttributeData& data) override;

private:
    void initParser();
    void takeEntity(const DxfRecord& record);
    void beginEntity(const DxfRecord& record);
    void finishEntity();
    void takeVertex(const DxfRecord& record);
    bool takePlain(const DxfRecord& record);
    void feed(const DxfRecord& record);
    void parse();
    void write(int code, std::string_view value);
    void write(const DxfGroup& group);
    void writeCounts(const DxfRecord& record);
    void finishPolyline();
    void finishSpline();
    void store(Entity entity);
    void setShape(Shape shape);
    void setPlaneShape(Shape shape);
    void addNote(const DL_TextData& data);
    /// The place of a layer in the table; one that is not in it is added.
    std::size_t layerIndex(const std::string& name);
    /// The name as the layer table spells it.
    std::string layerOf(const DxfRecord& record);

    std::unique_ptr<DL_Dxf> m_parser;
    DxfModel m_model;
    /// Indices of layers by key: their names have no case, the first spelling counts.
    std::map<std::string, std::size_t> m_layers;
    std::vector<std::string> m_layerNames;
    const DxfRecord* m_record = nullptr;
    /// The record as dxflib reads it.
    std::string m_input;
    long m_inputGroups = 0;
    std::istringstream m_stream;
    std::optional<Entity> m_entity;
    std::optional<PendingPolyline> m_polyline;
    std::optional<PendingSpline> m_spline;
    Block* m_block = nullptr;
    ReadProgress* m_progress = nullptr;
    /// The section of the record before.
    std::string m_section;
    bool m_mirrored = false;
    bool m_inBlocks = false;
};

}  // namespace kxdrawing
