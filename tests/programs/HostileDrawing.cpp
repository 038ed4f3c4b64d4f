// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "HostileDrawing.h"

#include <QFile>
#include <QStringList>
#include <initializer_list>

#include "PlantedFiles.h"

namespace {

/// One group of a DXF file: the code and the value.
struct Group {
    const char* code;
    QByteArray value;
};

QByteArray groups(std::initializer_list<Group> all) {
    QByteArray text;
    for (const Group& group : all) {
        text += QByteArray(group.code) + "\n" + group.value + "\n";
    }
    return text;
}

QByteArray section(const char* name, const QByteArray& content) {
    return groups({{"0", "SECTION"}, {"2", name}}) + content + groups({{"0", "ENDSEC"}});
}

QByteArray table(const char* name, const QByteArray& entries) {
    return groups({{"0", "TABLE"}, {"2", name}, {"70", "9"}}) + entries + groups({{"0", "ENDTAB"}});
}

/// The parts of the drawing that one way to name each planted file gives.
class Names {
public:
    Names(PlantedFiles& planted, int way) : m_planted(planted), m_way(way) {}

    QByteArray header();
    QByteArray tables();
    QByteArray blocks();
    QByteArray entities();
    QByteArray objects();

private:
    /// The name of a planted file.
    QByteArray name(const char* ending) {
        return QFile::encodeName(m_planted.plant(QString("planted.") + ending).at(m_way));
    }
    QByteArray own(const char* base) const { return base + QByteArray::number(m_way); }
    QByteArray texts();
    QByteArray references();
    QByteArray data();

    PlantedFiles& m_planted;
    int m_way;
};

QByteArray Names::header() {
    QByteArray text;
    for (const char* variable :
         {"$MENU", "$STYLESHEET", "$HYPERLINKBASE", "$PROJECTNAME", "$TEXTSTYLE", "$CELTYPE"}) {
        text += groups({{"9", variable}, {"1", name("var")}});
    }
    return text;
}

QByteArray Names::tables() {
    return table("LTYPE", groups({{"0", "LTYPE"},
                                  {"2", own("ltype")},
                                  {"3", name("lin")},
                                  {"74", "4"},
                                  {"9", name("shx")}})) +
           table("LAYER", groups({{"0", "LAYER"},
                                  {"2", name("layer")},
                                  {"6", own("ltype")},
                                  {"390", name("stb")}})) +
           table(
               "STYLE",
               groups(
                   {{"0", "STYLE"}, {"2", own("style")}, {"3", name("ttf")}, {"4", name("shx")}}) +
                   groups({{"0", "STYLE"}, {"2", ""}, {"70", "1"}, {"3", name("shx")}}));
}

QByteArray Names::blocks() {
    // 4: the block is an external reference, 32: it is found; 8: it is laid over.
    QByteArray text;
    for (const char* flags : {"4", "36", "12", "0"}) {
        const QByteArray block = own("xref") + flags;
        text += groups({{"0", "BLOCK"},
                        {"8", "0"},
                        {"2", block},
                        {"70", flags},
                        {"10", "0"},
                        {"20", "0"},
                        {"3", block},
                        {"1", name("dxf")},
                        {"4", name("dwg")}}) +
                groups({{"0", "ENDBLK"}});
    }
    return text;
}

QByteArray Names::texts() {
    return groups({{"0", "TEXT"},
                   {"8", "0"},
                   {"10", "0"},
                   {"20", "0"},
                   {"40", "2"},
                   {"1", name("txt")},
                   {"7", own("style")}}) +
           groups({{"0", "MTEXT"},
                   {"8", "0"},
                   {"10", "5"},
                   {"20", "5"},
                   {"40", "2"},
                   {"1", "{\\f" + name("ttf") + "|b0;\\F" + name("shx") + ";text}"},
                   {"7", name("style")}}) +
           groups({{"0", "SHAPE"},
                   {"8", "0"},
                   {"10", "0"},
                   {"20", "0"},
                   {"40", "1"},
                   {"2", name("shp")}}) +
           groups({{"0", "TOLERANCE"}, {"8", "0"}, {"3", name("dim")}, {"1", name("txt")}});
}

QByteArray Names::references() {
    QByteArray text;
    for (const char* flags : {"4", "36", "12", "0"}) {
        text += groups(
            {{"0", "INSERT"}, {"8", "0"}, {"2", own("xref") + flags}, {"10", "0"}, {"20", "0"}});
    }
    // An insert of what is no block, named like the file that it would be.
    text += groups({{"0", "INSERT"}, {"8", "0"}, {"2", name("dxf")}, {"10", "0"}, {"20", "0"}});
    for (const char* type : {"IMAGE", "WIPEOUT", "PDFUNDERLAY", "DWFUNDERLAY", "DGNUNDERLAY",
                             "OLEFRAME", "OLE2FRAME", "ACAD_PROXY_ENTITY", "POINTCLOUD"}) {
        text += groups({{"0", type},
                        {"8", "0"},
                        {"1", name("png")},
                        {"2", name("pdf")},
                        {"3", name("ole")},
                        {"340", "1A"},
                        {"10", "0"},
                        {"20", "0"}});
    }
    return text;
}

QByteArray Names::data() {
    return groups({{"0", "LINE"},
                   {"8", "0"},
                   {"10", "0"},
                   {"20", "0"},
                   {"11", "10"},
                   {"21", QByteArray::number(m_way)},
                   {"1001", "PE_URL"},
                   {"1000", name("html")},
                   {"1002", "{"},
                   {"1000", "http://127.0.0.1:9/" + own("link")},
                   {"1003", name("layer")},
                   {"1002", "}"}}) +
           groups({{"0", "POINT"},
                   {"8", name("layer")},
                   {"6", name("lin")},
                   {"10", "1"},
                   {"20", "2"}});
}

QByteArray Names::entities() {
    return data() + texts() + references();
}

QByteArray Names::objects() {
    QByteArray text;
    for (const char* type :
         {"IMAGEDEF", "PDFDEFINITION", "DWFDEFINITION", "DGNDEFINITION", "PLOTSETTINGS", "LAYOUT",
          "MATERIAL", "DATALINK", "SUN", "XRECORD", "DICTIONARY", "GEODATA", "POINTCLOUDDEF",
          "LIGHTLIST", "RASTERVARIABLES"}) {
        text += groups({{"0", type},
                        {"5", "1A"},
                        {"1", name("png")},
                        {"2", name("pdf")},
                        {"3", name("jpg")},
                        {"4", name("ctb")},
                        {"7", name("stb")}});
    }
    return text;
}

}  // namespace

QByteArray hostileDrawing(PlantedFiles& planted) {
    QByteArray header;
    QByteArray tables;
    QByteArray blocks;
    QByteArray entities;
    QByteArray objects;
    const int ways = planted.plant("first").size();
    for (int way = 0; way < ways; ++way) {
        Names names(planted, way);
        header += names.header();
        tables += names.tables();
        blocks += names.blocks();
        entities += names.entities();
        objects += names.objects();
    }
    return section("HEADER", header) + section("TABLES", tables) + section("BLOCKS", blocks) +
           section("ENTITIES", entities) + section("OBJECTS", objects) + groups({{"0", "EOF"}});
}
