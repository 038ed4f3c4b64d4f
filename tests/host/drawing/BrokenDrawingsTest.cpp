// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// What broken and hostile drawings once did, or could do, to the reader.
#include <dl_dxf.h>

#include <algorithm>
#include <chrono>

#include <kx/host/kxHostApplication.h>

#include "TestDxf.h"
#include "drawing/DxfModelBuilder.h"
#include "drawing/Explode.h"

namespace kxdrawing {
namespace {

std::string entitiesFile(const std::string& entities) {
    TestDxf dxf;
    dxf.entities = entities;
    return dxf.text();
}

void expectRefused(const std::string& text, long lineNumber, const std::string& message,
                   const ReadOptions& options = {}) {
    const ReadResult result = readText(text, options);
    ASSERT_FALSE(result.drawing);
    EXPECT_EQ(result.error.line, lineNumber);
    EXPECT_EQ(result.error.toText(),
              result.error.file + ":" + std::to_string(lineNumber) + ": " + message);
}

std::string polyline(int vertices) {
    std::string text = groups({{0, "LWPOLYLINE"}, {70, "0"}});
    for (int i = 0; i < vertices; ++i) {
        text += groups({{10, std::to_string(i)}, {20, std::to_string(i % 2)}});
    }
    return text;
}

std::string array(const std::string& name, int columns) {
    return insert(name, "0", "0", {{70, std::to_string(columns)}, {44, "1"}});
}

Drawing readWithBlock(const std::string& content, const std::string& entities,
                      const ReadOptions& options) {
    TestDxf dxf;
    dxf.blocks = block("B", content);
    dxf.entities = entities;
    return readGood(dxf.text(), options);
}

// What a freshly made parser takes for the record that is open was whatever the memory held.
TEST(BrokenDrawings, TheParserBeginsInAKnownState) {
    DxfRecord record{"TEXT", "ENTITIES", 1, {{10, "1", 1}, {20, "2", 1}, {40, "3", 1}}};
    for (int left = 0; left < 200; ++left) {
        void* const memory = ::operator new(sizeof(DL_Dxf));
        auto* const numbers = static_cast<int*>(memory);
        std::fill(numbers, numbers + sizeof(DL_Dxf) / sizeof(int), left);
        ::operator delete(memory);
        DxfModelBuilder builder;
        builder.take(record);
        const DxfModel model = builder.finish();
        ASSERT_EQ(model.entities.size(), 1U) << left;
        const auto* const shape = std::get_if<Shape>(&model.entities.front().content);
        ASSERT_TRUE(shape != nullptr && std::holds_alternative<kxSimpleNoteData>(*shape)) << left;
    }
}

TEST(BrokenDrawings, AGroup9InsideOfAnEntityDoesNotEndIt) {
    const auto object = onlyEntity<kxPolyLine_c>(groups({{0, "LWPOLYLINE"},
                                                         {10, "0"},
                                                         {20, "0"},
                                                         {9, "$EXTMAX"},
                                                         {10, "4"},
                                                         {20, "5"},
                                                         {9, ""},
                                                         {10, "6"},
                                                         {20, "7"}}));
    ASSERT_TRUE(object);
    long count = 0;
    object->GetVerticesCount(&count);
    EXPECT_EQ(count, 3);
}

TEST(BrokenDrawings, IntegersWithAnExponentAreReadAsTheyWereChecked) {
    const Drawing drawing = readWithBlock(line("0", "0", "1", "0"),
                                          insert("B", "0", "0", {{70, "1e1"}, {44, "1"}}), {});
    EXPECT_EQ(drawing.objects.size(), 10U);
}

TEST(BrokenDrawings, EndlessNumbersOfAPolylineAreReadWhole) {
    const auto object = onlyEntity<kxPolyLine_c>(groups({{0, "LWPOLYLINE"},
                                                         {10, std::string(1500, '0') + "1.5"},
                                                         {20, "0.1" + std::string(1500, '0')},
                                                         {10, "4"},
                                                         {20, "5"}}));
    ASSERT_TRUE(object);
    kxVector3 p;
    object->GetVertex(0, &p.x, &p.y, &p.z);
    expectSame(p, {1.5, 0.1, 0});
}

TEST(BrokenDrawings, APolylineWithoutSEQENDAtTheEndOfItsSectionIsKept) {
    const std::string open = groups({{0, "POLYLINE"}, {70, "0"}}) +
                             groups({{0, "VERTEX"}, {10, "1"}, {20, "2"}}) +
                             groups({{0, "VERTEX"}, {10, "3"}, {20, "4"}});
    const std::string blocks = groups({{0, "SECTION"}, {2, "BLOCKS"}}) +
                               block("A", line("0", "0", "1", "1")) + groups({{0, "ENDSEC"}});
    std::string text = entitiesFile(open);
    text.insert(text.size() - groups({{0, "EOF"}}).size(), blocks);
    EXPECT_TRUE(onlyObject<kxPolyLine_c>(readGood(text)));
}

TEST(BrokenDrawings, APolylineOutsideOfABlockDoesNotGetIntoTheDrawing) {
    TestDxf dxf;
    dxf.blocks = groups({{0, "POLYLINE"}, {0, "VERTEX"}, {10, "1"}, {20, "2"}}) +
                 groups({{0, "VERTEX"}, {10, "3"}, {20, "4"}});
    dxf.entities = groups({{0, "VERTEX"}, {10, "5"}, {20, "6"}});
    EXPECT_EQ(onlyReason(readGood(dxf.text())), "vertex without a polyline");
}

TEST(BrokenDrawings, ABlockAmongTheEntitiesIsReported) {
    const Drawing drawing =
        readEntities(block("A", "") + groups({{0, "ENDBLK"}}) + line("0", "0", "1", "1"));
    const ImportTotals totals = drawing.report.totals();
    EXPECT_EQ(totals.leftOut, 3);
    EXPECT_EQ(totals.read, 1);
    EXPECT_EQ(drawing.report.rows().front().detail, "not in the section of blocks");
}

TEST(BrokenDrawings, AnEntityWithoutATypeIsReported) {
    EXPECT_EQ(onlyReason(readEntities(groups({{0, ""}, {8, "A"}, {10, "1"}}))),
              "type not supported");
}

TEST(BrokenDrawings, AFaceAmongTheVerticesOfAPolylineMakesItAMesh) {
    EXPECT_EQ(onlyReason(readEntities(groups({{0, "POLYLINE"}, {70, "0"}}) +
                                      groups({{0, "VERTEX"}, {10, "1"}, {20, "2"}}) +
                                      groups({{0, "VERTEX"}, {70, "128"}, {10, "3"}, {20, "4"}}) +
                                      groups({{0, "VERTEX"}, {10, "5"}, {20, "6"}}))),
              "mesh");
}

TEST(BrokenDrawings, AGroupBeforeTheFirstRecordOfASectionIsNoRecord) {
    expectRefused(groups({{0, "SECTION"}, {2, "ENTITIES"}, {8, "LINE"}, {10, "1"}, {0, "ENDSEC"}}),
                  6, "\"LINE\" (group 8); expected group 0");
    expectRefused(groups({{0, "SECTION"}, {2, "HEADER"}, {70, "4"}, {0, "ENDSEC"}}), 6,
                  "\"4\" (group 70); expected group 9");
    const std::string picture =
        groups({{0, "SECTION"}, {2, "THUMBNAILIMAGE"}, {90, "4"}, {310, "00"}, {0, "ENDSEC"}});
    EXPECT_EQ(readGood(picture + entitiesFile(line("0", "0", "1", "1"))).objects.size(), 1U);
}

TEST(BrokenDrawings, EntitiesAmongHeaderVariablesAreRefused) {
    // Some writers put variables behind the end of the header.
    const std::string more = groups({{9, "$EXTMAX"}, {10, "1"}});
    expectRefused(groups({{0, "SECTION"}, {2, "HEADER"}, {0, "ENDSEC"}}) + more +
                      line("0", "0", "1", "1") + groups({{0, "ENDSEC"}, {0, "EOF"}}),
                  12, "\"LINE\" (group 0); expected group 9");
}

TEST(BrokenDrawings, NamesHave255CharactersAtMost) {
    std::string escaped;
    for (int i = 0; i < 255; ++i) {
        escaped += "\\U+00E4";
    }
    EXPECT_EQ(readEntities(line("0", "0", "1", "1", escaped)).objects.size(), 1U);
    const std::string tooLong(256, 'x');
    const std::string message = "a name of 256 characters; expected a name of at most 255";
    expectRefused(entitiesFile(line("0", "0", "1", "1", tooLong)), 8, message);
    expectRefused(entitiesFile(insert(tooLong, "0", "0")), 10, message);
    expectRefused(entitiesFile(groups({{0, tooLong}})), 6, message);
    expectRefused(groups({{0, "SECTION"}, {2, tooLong}}), 4, message);
}

TEST(BrokenDrawings, WhatOneFileMayHoldIsLimited) {
    ReadOptions options;
    options.scan.records = 3;
    const std::string four =
        line("0", "0", "1", "1") + line("0", "0", "1", "1") + groups({{0, "X"}, {0, "Y"}});
    expectRefused(entitiesFile(four), 32, "more than 3 entities", options);
    ReadOptions few;
    few.scan.groups = 1000;
    EXPECT_TRUE(readText(entitiesFile(polyline(499)), few).drawing);
    expectRefused(entitiesFile(polyline(5000)), 2006,
                  "a LWPOLYLINE of more than 1000 groups, begun in line 6", few);
}

TEST(BrokenDrawings, CopiesOfALargePolylineCountByTheirVertices) {
    ReadOptions options;
    options.limits.points = 10000;
    EXPECT_EQ(readWithBlock(polyline(99), array("B", 100), options).objects.size(), 100U);
    EXPECT_EQ(onlyReason(readWithBlock(polyline(99), array("B", 101), options)),
              "gives more than 10000 points");
}

TEST(BrokenDrawings, CopiesOfALongTextCountByTheirCharacters) {
    ReadOptions options;
    options.limits.points = 10000;
    const std::string note =
        groups({{0, "TEXT"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, std::string(8000, 'x')}});
    EXPECT_EQ(onlyReason(readWithBlock(note, array("B", 10), options)),
              "gives more than 10000 points");
}

TEST(BrokenDrawings, CopiesOfWhatGivesNothingTakeALimitedTime) {
    const std::string far = groups({{0, "LWPOLYLINE"}, {10, "1e300"}, {20, "0"}}) + polyline(9999);
    const std::string inserts =
        insert("B", "0", "0", {{70, "32767"}, {71, "32767"}, {44, "1"}, {45, "1"}});
    const auto start = std::chrono::steady_clock::now();
    ReadOptions options;
    options.limits.objects = 20000;
    const Drawing drawing =
        readWithBlock(far.substr(far.find("10\n")).insert(0, "0\nLWPOLYLINE\n"), inserts, options);
    EXPECT_EQ(onlyReason(drawing), "the inserts take too many steps");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(BrokenDrawings, AnInsertThatGivesTooMuchLeavesRoomForTheOthers) {
    ReadOptions options;
    options.limits.points = 10000;
    const Drawing drawing = readWithBlock(polyline(99), array("B", 200) + array("B", 50), options);
    EXPECT_EQ(drawing.objects.size(), 50U);
}

std::string spline(int degree, const std::string& lastKnot, const std::string& weight) {
    std::string text = groups({{0, "SPLINE"}, {71, std::to_string(degree)}});
    for (int i = 0; i <= degree; ++i) {
        text += groups({{40, "0"}});
    }
    for (int i = 0; i <= degree; ++i) {
        text += groups({{40, lastKnot}, {10, std::to_string(i)}, {20, "0"}, {41, weight}});
    }
    return text;
}

TEST(BrokenDrawings, SplinesThatNoNumberIsGreatEnoughForAreLeftOut) {
    EXPECT_EQ(readEntities(spline(25, "1", "1")).objects.size(), 1U);
    EXPECT_EQ(onlyReason(readEntities(spline(26, "1", "1"))), "a degree above 25");
    EXPECT_EQ(onlyReason(readEntities(spline(1000, "1", "1"))), "a degree above 25");
    EXPECT_EQ(onlyReason(readEntities(spline(3, "1e300", "1"))), "coordinates out of range");
    EXPECT_EQ(onlyReason(readEntities(spline(3, "1", "1e300"))), "weights out of range");
    EXPECT_EQ(onlyReason(readEntities(spline(3, "1", "1e-300"))), "weights out of range");
}

std::string bentLine(const std::string& length, const std::string& bulge) {
    return groups({{0, "LWPOLYLINE"}, {10, "0"}, {20, "0"}, {42, bulge}, {10, length}, {20, "0"}});
}

TEST(BrokenDrawings, ArcsThatNoNumberIsExactEnoughForAreLeftOut) {
    EXPECT_EQ(onlyReason(readEntities(bentLine("1e9", "1e-8"))), "coordinates out of range");
    EXPECT_EQ(onlyReason(readEntities(bentLine("1e9", "1e12"))), "coordinates out of range");
    EXPECT_EQ(readEntities(bentLine("1e9", "1")).objects.size(), 1U);
    EXPECT_EQ(readEntities(bentLine("1000", "1e-11")).objects.size(), 1U);
    const Drawing stretched =
        readWithBlock(bentLine("1e9", "1e-8"), insert("B", "0", "0", {{41, "1e-6"}}), {});
    EXPECT_EQ(onlyReason(stretched), "nothing usable in the block");
    EXPECT_EQ(stretched.report.rowsInBlocks().front().detail, "coordinates out of range");
}

// Its arcs had their centres 1e17 away, where a double is off by more than the arc is high.
TEST(BrokenDrawings, PiecesOfAVastSplineHaveNoCentreOutOfRange) {
    const Drawing drawing = readEntities(groups({{0, "SPLINE"},
                                                 {70, "1"},
                                                 {71, "3"},
                                                 {11, "0"},
                                                 {21, "1e9"},
                                                 {11, "3"},
                                                 {21, "4"},
                                                 {11, "6"},
                                                 {21, "0"}}));
    ASSERT_EQ(drawing.objects.size(), 1U);
    const auto pieces = explodeObject(*drawing.objects.front());
    ASSERT_TRUE(pieces);
    for (const kxObject_ptr& piece : *pieces) {
        if (const auto arc = kxCast<kxCircleArc_c>(piece.get())) {
            double radius = 0;
            arc->get_Radius(&radius);
            EXPECT_LE(radius, 1e12);
        }
    }
}

TEST(BrokenDrawings, ControlCharactersDoNotReachTheReportOrTheNotes) {
    const Drawing drawing =
        readEntities(groups({{0, "X\x1b[31m"}, {8, "L\x07"}}) +
                     groups({{0, "TEXT"}, {10, "0"}, {20, "0"}, {1, "a\x1b[2J\\U+0007"}}));
    for (const char c : drawing.report.toText()) {
        EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= 0x20);
    }
    EXPECT_NE(drawing.report.toText().find("X\\x1b[31m"), std::string::npos);
    const auto note = onlyObject<kxSimpleNote_c>(drawing);
    ASSERT_TRUE(note);
    EXPECT_EQ(note->GetText().toUtf8(), "a [2J ");
    expectRefused("0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n\x1b[2J\xff\n", 8,
                  "\"\\x1b[2J\\xff\" (group 10); expected a number");
}

TEST(BrokenDrawings, ADWGFileIsNamed) {
    expectRefused(std::string("AC1032\0\0\0\0\x05", 11), 1,
                  "DWG is not supported; save as ASCII DXF");
}

TEST(BrokenDrawings, AStopWithinOneLargeRecordDoesNotWaitForItsEnd) {
    const TestFile file(entitiesFile(polyline(200000)));
    int reports = 0;
    ReadOptions options;
    options.progress = [&](double) {
        ++reports;
        return reports < 10;
    };
    EXPECT_TRUE(readDxf(file.path(), options).cancelled);
    EXPECT_EQ(reports, 10) << "groups were read on";
}

TEST(BrokenDrawings, AStopWhileALargeRecordIsParsedDoesNotWaitForItsEnd) {
    const TestFile file(entitiesFile(polyline(200000)));
    int repeated = 0;
    double last = -1;
    ReadOptions options;
    options.progress = [&](double fraction) {
        // The parser does not read on in the file.
        repeated = fraction == last ? repeated + 1 : 0;
        last = fraction;
        return repeated < 50;
    };
    EXPECT_TRUE(readDxf(file.path(), options).cancelled);
    EXPECT_EQ(repeated, 50);
}

TEST(BrokenDrawings, ExplodingKeepsWhatWouldGiveTooManyPieces) {
    const kxHostApplication_ptr application = kxCreateHostApplication({});
    const kxHostDocument_ptr document = application->AddDocument("drawing", true);
    loadInto(*document, readEntities(polyline(5) + polyline(5) + polyline(5)));
    const ExplodeResult result = explode(*document, document->GetObjects(), 0.01, 6);
    EXPECT_EQ(result.pieces.size(), 8U);
    EXPECT_EQ(result.kept, 1);
    ASSERT_EQ(document->GetObjects().size(), 9U);
    EXPECT_EQ(document->GetObjects().back()->GetType(), kxPolyLineType);
}

}  // namespace
}  // namespace kxdrawing
