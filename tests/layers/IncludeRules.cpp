// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "IncludeRules.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>
#include <set>

namespace fs = std::filesystem;

namespace layers {
namespace {

using Names = std::set<std::string>;

/// For each layer, the layers and the foreign libraries it may include.
const std::map<std::string, Names>& allowedOfLayer() {
    static const std::map<std::string, Names> table = {
        {"kxLibrary headers", {"std", "kxLibrary"}},
        {"kxLibrary", {"std", "kxLibrary"}},
        {"kxInterface headers", {"std", "kxLibrary", "kxObjectType", "kxInterface"}},
        {"kxHost headers", {"std", "kxLibrary", "kxObjectType", "kxInterface", "kxHost"}},
        {"kxInterface",
         {"std", "system", "kxLibrary", "kxObjectType", "kxInterface", "kxHost", "kxPrivate"}},
        {"gcode_core", {"std", "kxObjectType", "gcode_core"}},
        {"gcode_preview", {"std", "qtvalue", "gcode_preview"}},
        {"gcode_check", {"std", "gcode_check"}},
        {"addin",
         {"std", "system", "qt", "qtvalue", "opengl", "kxLibrary", "kxObjectType", "kxInterface",
          "gcode_core", "gcode_preview", "addin"}},
        {"kxfiles", {"std", "system", "kxfiles"}},
        {"kxdrawing",
         {"std", "system", "dxflib", "kxLibrary", "kxObjectType", "kxInterface", "kxHost",
          "kxfiles", "gcode_check", "kxdrawing"}},
        {"kxhost",
         {"std", "system", "qt", "qtvalue", "boost", "kxLibrary", "kxObjectType", "kxInterface",
          "kxHost", "kxfiles", "kxdrawing", "gcode_check", "kxhost"}},
        {"kxgcode",
         {"std", "system", "qt", "qtvalue", "cli11", "kxLibrary", "kxObjectType", "kxInterface",
          "kxHost", "kxfiles", "kxdrawing", "gcode_check", "kxgcode"}},
        {"examples", {"std", "kxLibrary", "kxObjectType", "kxInterface", "examples"}},
    };
    return table;
}

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// The file names that the list of a static library's sources names; none without a list.
Names namesIn(const fs::path& list) {
    static const std::regex sourceName("[A-Za-z0-9_]+\\.(h|cpp)");
    const std::string text = readFile(list);
    return {std::sregex_token_iterator(text.begin(), text.end(), sourceName),
            std::sregex_token_iterator()};
}

/// The files of the add-in's two libraries that know neither window nor host.
struct PlainLibraries {
    explicit PlainLibraries(const fs::path& root)
        : core(namesIn(root / "addin/core/gcode_core.cmake")),
          preview(namesIn(root / "addin/openglplotter/gcode_preview.cmake")) {}

    std::string layerOfAddinFile(const fs::path& path) const {
        const std::string folder = path.parent_path().generic_string();
        const std::string name = path.filename().string();
        if (folder == "addin/core" && core.count(name) != 0) {
            return "gcode_core";
        }
        return folder == "addin/openglplotter" && preview.count(name) != 0 ? "gcode_preview"
                                                                           : "addin";
    }

    Names core;
    Names preview;
};

bool isKxLibraryName(const std::string& stem) {
    static const Names names = {"kxString",     "kxStringArray",  "kxByteArray",
                                "kxRefCounted", "kxInterfacePtr", "kxExport"};
    return names.count(stem) != 0;
}

/// The layer of a header of the SDK, by its path below `sdk/include`.
std::string layerOfSdkHeader(const fs::path& path) {
    if (path.stem() == "kxObjectType") {
        return "kxObjectType";
    }
    if (startsWith(path.generic_string(), "kx/host/")) {
        return "kxHost";
    }
    return isKxLibraryName(path.stem().string()) ? "kxLibrary" : "kxInterface";
}

/// The layer that a file of this tree is for those who include it; `path` is relative to the root.
std::string layerOfFile(const fs::path& path, const PlainLibraries& libraries) {
    const std::string text = path.generic_string();
    if (startsWith(text, "sdk/include/")) {
        return layerOfSdkHeader(path.lexically_relative("sdk/include"));
    }
    if (startsWith(text, "sdk/")) {
        return "kxPrivate";
    }
    if (startsWith(text, "addin/")) {
        return libraries.layerOfAddinFile(path);
    }
    if (startsWith(text, "host/files/")) {
        return "kxfiles";
    }
    if (startsWith(text, "host/")) {
        return startsWith(text, "host/drawing/") ? "kxdrawing" : "kxhost";
    }
    if (startsWith(text, "check/")) {
        return "gcode_check";
    }
    return startsWith(text, "cli/") ? "kxgcode" : "examples";
}

/// The row of the table that holds for the includes in a file.
std::string ruleOfFile(const fs::path& path, const PlainLibraries& libraries) {
    const std::string layer = layerOfFile(path, libraries);
    if (layer == "kxPrivate") {
        return isKxLibraryName(path.stem().string()) ? "kxLibrary" : "kxInterface";
    }
    if (layer == "kxObjectType") {
        return "kxInterface headers";
    }
    return startsWith(layer, "kx") && startsWith(path.generic_string(), "sdk/") ? layer + " headers"
                                                                                : layer;
}

std::string layerOfForeign(const std::string& name) {
    static const std::vector<std::pair<std::regex, std::string>> table = {
        {std::regex(
             "QtGlobal|QtMath|Q(ByteArray|Matrix4x4|PointF?|RegExp|String(View)?|Vector[34]?D?)"),
         "qtvalue"},
        {std::regex("Q[A-Z].*|Qt[A-Z][A-Za-z]*/.*|q[a-z]+\\.h|.*\\.moc|moc_.*|ui_.*\\.h"), "qt"},
        {std::regex("(GL|EGL|KHR)/.*"), "opengl"},
        {std::regex("dxflib/.*|dl_.*\\.h"), "dxflib"},
        {std::regex("CLI/.*"), "cli11"},
        {std::regex("boost/.*"), "boost"},
        // What the compiler brings for single instructions belongs to the language.
        {std::regex("[a-z_0-9]+|[a-z]+mmintrin\\.h"), "std"},
        {std::regex("[a-z_0-9]+\\.h|sys/.*"), "system"},
    };
    for (const auto& [pattern, layer] : table) {
        if (std::regex_match(name, pattern)) {
            return layer;
        }
    }
    return "unknown";
}

struct Include {
    int line = 0;
    std::string name;
};

std::vector<Include> includesOf(const fs::path& path) {
    static const std::regex include("\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"].*");
    std::vector<Include> result;
    std::ifstream in(path);
    std::string text;
    std::smatch match;
    for (int line = 1; std::getline(in, text); ++line) {
        if (std::regex_match(text, match, include)) {
            result.push_back({line, match[1]});
        }
    }
    return result;
}

class Checker {
public:
    explicit Checker(const fs::path& root) : m_root(root), m_libraries(root) {}

    void checkFile(const fs::path& path) {
        const fs::path file = path.lexically_relative(m_root);
        const std::string rule = ruleOfFile(file, m_libraries);
        ++m_report.filesOfLayer[rule];
        for (const Include& include : includesOf(path)) {
            const std::string layer = layerOfInclude(path, include.name);
            if (allowedOfLayer().at(rule).count(layer) == 0) {
                m_report.complaints.push_back(
                    file.generic_string() + ":" + std::to_string(include.line) + ": " + rule +
                    " must not include " + include.name + " (" + layer + ")");
            }
        }
    }

    Report takeReport() { return std::move(m_report); }

private:
    /// Looks where the compiler would: beside the file, then in the folders of all targets. A
    /// header that CMake makes counts as being where its template is.
    std::optional<fs::path> find(const fs::path& includer, const std::string& name) const {
        for (const fs::path& folder :
             {includer.parent_path(), m_root / "sdk/include", m_root / "sdk/src", m_root / "addin",
              m_root / "host", m_root / "check", m_root / "cli", m_root}) {
            const fs::path candidate = (folder / name).lexically_normal();
            if (fs::is_regular_file(candidate) || fs::is_regular_file(candidate.string() + ".in")) {
                return candidate.lexically_relative(m_root);
            }
        }
        return std::nullopt;
    }

    std::string layerOfInclude(const fs::path& includer, const std::string& name) const {
        if (const auto found = find(includer, name)) {
            return layerOfFile(*found, m_libraries);
        }
        if (startsWith(name, "kx/")) {
            return layerOfSdkHeader(name);
        }
        return layerOfForeign(name);
    }

    fs::path m_root;
    PlainLibraries m_libraries;
    Report m_report;
};

}  // namespace

Report checkIncludes(const fs::path& root) {
    Checker checker(root.lexically_normal());
    for (const char* folder : {"sdk", "addin", "check", "host", "cli", "examples"}) {
        if (!fs::is_directory(root / folder)) {
            continue;
        }
        for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
            const std::string extension = entry.path().extension().string();
            if (extension == ".h" || extension == ".cpp") {
                checker.checkFile(entry.path().lexically_normal());
            }
        }
    }
    Report report = checker.takeReport();
    std::sort(report.complaints.begin(), report.complaints.end());
    return report;
}

}  // namespace layers
