// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "IncludeRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <fstream>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace layers {
namespace {

TEST(SourceTree, noIncludePointsTheWrongWay) {
    EXPECT_THAT(checkIncludes(KX_SOURCE_DIR).complaints, IsEmpty());
}

TEST(SourceTree, everyLayerWasRead) {
    const auto files = checkIncludes(KX_SOURCE_DIR).filesOfLayer;
    for (const char* layer :
         {"kxLibrary headers", "kxLibrary", "kxInterface headers", "kxHost headers", "kxInterface",
          "gcode_core", "gcode_preview", "addin", "kxfiles", "kxdrawing", "gcode_check", "kxgcode",
          "examples"}) {
        EXPECT_TRUE(files.count(layer) != 0) << "no file of " << layer;
    }
}

/// A small tree that keeps the rules, in which a test plants one line.
class PlantedTree : public testing::Test {
protected:
    PlantedTree() {
        write("addin/core/gcode_core.cmake",
              "add_library(gcode_core ${here}/Arc.h\n ${here}/Arc.cpp)");
        write("addin/core/Arc.h", "#include <kx/kxObjectType.h>\n#include <vector>\n");
        write("addin/core/Arc.cpp", "#include \"core/Arc.h\"\n");
        write("addin/openglplotter/gcode_preview.cmake",
              "add_library(gcode_preview ${here}/Point3d.h)");
        write("addin/openglplotter/Point3d.h", "#include <QVector>\n#include <vector>\n");
        write("addin/openglplotter/OGLWindow.h",
              "#include <QGLWidget>\n#include \"openglplotter/Point3d.h\"\n");
        write("addin/core/GCodeWidget.h", "#include <QWidget>\n#include \"Arc.h\"\n");
        write("addin/Logger.h", "#include <GL/gl.h>\n#include <kx/kxLine.h>\n");
        write("sdk/include/kx/kxString.h", "#include <string>\n#include <kx/kxExport.h>\n");
        write("sdk/include/kx/kxExport.h", "#pragma once\n");
        write("sdk/include/kx/kxObjectType.h", "#pragma once\n");
        write("sdk/include/kx/kxLine.h", "#include <kx/kxString.h>\n");
        write("sdk/include/kx/host/kxHostDocument.h", "#include <kx/kxLine.h>\n");
        write("sdk/src/Document.h", "#include <kx/host/kxHostDocument.h>\n#include <dlfcn.h>\n");
        write("sdk/src/kxString.cpp", "#include <kx/kxString.h>\n");
        write("host/drawing/Reader.h", "#include <dxflib/dl_dxf.h>\n#include <kx/kxLine.h>\n");
        write("host/Window.h", "#include <QWidget>\n#include \"drawing/Reader.h\"\n");
        write("check/interpreter/Motion.h", "#include <cstdint>\n");
        write("cli/Options.h",
              "#include <CLI/CLI.hpp>\n#include <QWidget>\n#include \"drawing/Reader.h\"\n");
        write("cli/Version.h.in", "#pragma once\n");
        write("examples/minimal-addin/Addin.cpp", "#include <kx/kxLine.h>\n");
    }
    ~PlantedTree() override { fs::remove_all(m_root); }

    void write(const std::string& file, const std::string& text) const {
        fs::create_directories((m_root / file).parent_path());
        std::ofstream(m_root / file) << text;
    }
    /// The complaints when `include` is added to `file` as its last line.
    std::vector<std::string> plant(const std::string& file, const std::string& include) const {
        fs::create_directories((m_root / file).parent_path());
        std::ofstream(m_root / file, std::ios::app) << "#include " << include << "\n";
        return checkIncludes(m_root).complaints;
    }

    fs::path m_root = fs::path(testing::TempDir()) / ("planted-" + std::to_string(getpid()));
};

TEST_F(PlantedTree, isCleanAsItStands) {
    EXPECT_THAT(checkIncludes(m_root).complaints, IsEmpty());
}

TEST_F(PlantedTree, complaintNamesFileLineAndLayers) {
    EXPECT_THAT(plant("addin/core/Arc.h", "<QString>"),
                ElementsAre("addin/core/Arc.h:3: gcode_core must not include QString (qtvalue)"));
}

TEST_F(PlantedTree, includesInOtherSpellingsAreSeen) {
    write("addin/core/Arc.cpp", "  #  include\t<QtCore/QString>  // why\n");
    EXPECT_THAT(
        checkIncludes(m_root).complaints,
        ElementsAre("addin/core/Arc.cpp:1: gcode_core must not include QtCore/QString (qt)"));
}

TEST_F(PlantedTree, commentedOutIncludesAreNotSeen) {
    write("addin/core/Arc.cpp", "// #include <QString>\n");
    EXPECT_THAT(checkIncludes(m_root).complaints, IsEmpty());
}

struct Planted {
    const char* name;
    const char* file;
    const char* include;
};

void PrintTo(const Planted& planted, std::ostream* out) {
    *out << planted.file << " with " << planted.include;
}

class WrongInclude : public PlantedTree, public testing::WithParamInterface<Planted> {};

TEST_P(WrongInclude, isReportedOnce) {
    const auto complaints = plant(GetParam().file, GetParam().include);
    ASSERT_EQ(complaints.size(), 1U);
    EXPECT_THAT(complaints.front(), testing::StartsWith(std::string(GetParam().file) + ":"));
}

INSTANTIATE_TEST_SUITE_P(
    EachLayer, WrongInclude,
    testing::Values(
        Planted{"libraryHeaderTakesInterface", "sdk/include/kx/kxString.h", "<kx/kxLine.h>"},
        Planted{"libraryHeaderTakesQt", "sdk/include/kx/kxString.h", "<QString>"},
        Planted{"librarySourceTakesInterface", "sdk/src/kxString.cpp", "\"Document.h\""},
        Planted{"interfaceHeaderTakesQt", "sdk/include/kx/kxLine.h", "<QtGui/QPainter>"},
        Planted{"interfaceHeaderTakesQtsLowerCase", "sdk/include/kx/kxLine.h", "<qstring.h>"},
        Planted{"interfaceHeaderTakesHostHeader", "sdk/include/kx/kxLine.h",
                "<kx/host/kxHostDocument.h>"},
        Planted{"interfaceHeaderTakesSystemHeader", "sdk/include/kx/kxLine.h", "<dlfcn.h>"},
        Planted{"hostHeaderTakesQt", "sdk/include/kx/host/kxHostDocument.h", "<QWidget>"},
        Planted{"interfaceSourceTakesQt", "sdk/src/Document.h", "<QWidget>"},
        Planted{"interfaceSourceTakesAddin", "sdk/src/Document.h", "\"core/Arc.h\""},
        Planted{"coreTakesInterface", "addin/core/Arc.h", "<kx/kxLine.h>"},
        Planted{"coreTakesLibrary", "addin/core/Arc.h", "<kx/kxString.h>"},
        Planted{"coreTakesMissingKxHeader", "addin/core/Arc.h", "<kx/kxNotThere.h>"},
        Planted{"coreTakesPanel", "addin/core/Arc.h", "\"core/GCodeWidget.h\""},
        Planted{"coreTakesPanelBesideIt", "addin/core/Arc.cpp", "\"GCodeWidget.h\""},
        Planted{"coreTakesLogger", "addin/core/Arc.h", "\"../Logger.h\""},
        Planted{"previewTakesWindow", "addin/openglplotter/Point3d.h", "<QWidget>"},
        Planted{"previewTakesView", "addin/openglplotter/Point3d.h", "\"OGLWindow.h\""},
        Planted{"previewTakesInterface", "addin/openglplotter/Point3d.h", "<kx/kxLine.h>"},
        Planted{"previewTakesCore", "addin/openglplotter/Point3d.h", "\"core/Arc.h\""},
        Planted{"panelTakesHostHeader", "addin/core/GCodeWidget.h", "<kx/host/kxHostDocument.h>"},
        Planted{"panelTakesDrawing", "addin/core/GCodeWidget.h", "\"drawing/Reader.h\""},
        Planted{"panelTakesDrawingByPath", "addin/core/GCodeWidget.h",
                "\"../../host/drawing/Reader.h\""},
        Planted{"addinTakesCommandLine", "addin/Logger.h", "\"Options.h\""},
        Planted{"addinTakesDxflib", "addin/Logger.h", "<dl_dxf.h>"},
        Planted{"addinTakesSdkSources", "addin/Logger.h", "\"Document.h\""},
        Planted{"drawingTakesQt", "host/drawing/Reader.h", "<QString>"},
        Planted{"drawingTakesWindow", "host/drawing/Reader.h", "\"Window.h\""},
        Planted{"drawingTakesCore", "host/drawing/Reader.h", "\"core/Arc.h\""},
        Planted{"checkTakesQt", "check/interpreter/Motion.h", "<QString>"},
        Planted{"checkTakesHost", "check/interpreter/Motion.h", "<kx/kxLine.h>"},
        Planted{"checkTakesCore", "check/interpreter/Motion.h", "\"core/Arc.h\""},
        Planted{"panelTakesCheck", "addin/core/GCodeWidget.h", "\"interpreter/Motion.h\""},
        Planted{"previewTakesCheck", "addin/openglplotter/Point3d.h", "\"interpreter/Motion.h\""},
        Planted{"windowTakesPanel", "host/Window.h", "\"core/GCodeWidget.h\""},
        Planted{"commandLineTakesCore", "cli/Options.h", "\"core/Arc.h\""},
        Planted{"commandLineTakesWindow", "cli/Options.h", "\"Window.h\""},
        Planted{"panelTakesGeneratedHeaderOfCommandLine", "addin/Logger.h", "\"Version.h\""},
        Planted{"exampleTakesHostHeader", "examples/minimal-addin/Addin.cpp",
                "<kx/host/kxHostDocument.h>"},
        Planted{"unknownLibrary", "cli/Options.h", "<Eigen/Core>"}),
    [](const auto& row) { return std::string(row.param.name); });

class RightInclude : public PlantedTree, public testing::WithParamInterface<Planted> {};

TEST_P(RightInclude, isNotReported) {
    EXPECT_THAT(plant(GetParam().file, GetParam().include), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    EachLayer, RightInclude,
    testing::Values(
        Planted{"libraryTakesLibrary", "sdk/include/kx/kxString.h", "<kx/kxExport.h>"},
        Planted{"interfaceTakesObjectType", "sdk/include/kx/kxLine.h", "<kx/kxObjectType.h>"},
        Planted{"coreTakesStandard", "addin/core/Arc.cpp", "<string_view>"},
        Planted{"panelTakesCore", "addin/core/GCodeWidget.h", "\"core/Arc.h\""},
        Planted{"panelTakesMoc", "addin/core/GCodeWidget.cpp", "\"moc_GCodeWidget.cpp\""},
        Planted{"drawingTakesHostHeader", "host/drawing/Reader.h", "<kx/host/kxHostDocument.h>"},
        Planted{"commandLineTakesItsGeneratedHeader", "cli/Main.cpp", "\"Version.h\""},
        Planted{"commandLineTakesCheck", "cli/Main.cpp", "\"interpreter/Motion.h\""},
        Planted{"windowTakesCheck", "host/Window.h", "\"interpreter/Motion.h\""},
        Planted{"commandLineTakesDrawing", "cli/Main.cpp", "\"drawing/Reader.h\""}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace layers
