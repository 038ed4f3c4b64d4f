// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "DrawingFile.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "SheetDrawing.h"

namespace {

class Folder {
public:
    Folder() : m_path(std::filesystem::temp_directory_path() / "kx-benchmark-XXXXXX") {
        if (mkdtemp(m_path.data()) == nullptr) {
            std::abort();
        }
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

}  // namespace

const std::string& benchmarkFolder() {
    static const Folder folder;
    return folder.path();
}

std::string drawingFile(std::size_t entities, DrawingOrder order) {
    const bool random = order == DrawingOrder::random;
    const std::string path =
        benchmarkFolder() + (random ? "/random-" : "/drawn-") + std::to_string(entities) + ".dxf";
    if (!std::filesystem::exists(path)) {
        const std::vector<Drawn> drawing = sheetDrawing(entities);
        std::ofstream(path, std::ios::binary) << dxfText(random ? inRandomOrder(drawing) : drawing);
    }
    return path;
}
