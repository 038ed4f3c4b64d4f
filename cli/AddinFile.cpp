// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "AddinFile.h"

#include <filesystem>
#include <sstream>
#include <system_error>

#include "InstallFolders.h"

namespace fs = std::filesystem;

namespace {

constexpr char kLibraryName[] = "libGCodeAddin.so.1";

fs::path programFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

/// The library at a place, which is a folder or the file itself; empty without.
std::string libraryAt(const fs::path& place) {
    std::error_code ignored;
    const fs::path library = fs::is_directory(place, ignored) ? place / kLibraryName : place;
    return fs::is_regular_file(library, ignored) ? library.string() : std::string();
}

/// The first library of some places, separated by colons as in KX_ADDIN_PATH; empty without.
std::string firstLibraryOf(const std::string& places) {
    std::istringstream all(places);
    std::string place;
    std::string library;
    while (library.empty() && std::getline(all, place, ':')) {
        library = place.empty() ? std::string() : libraryAt(place);
    }
    return library;
}

}  // namespace

std::string findAddinFile(const std::string& asked, std::string* error) {
    if (!asked.empty()) {
        // A file may have a colon in its name. What is not there is told when it is loaded.
        const std::string whole = libraryAt(asked);
        const std::string library = whole.empty() ? firstLibraryOf(asked) : whole;
        return library.empty() ? asked : library;
    }
    const fs::path folder = programFolder();
    const fs::path places[] = {folder, folder.parent_path() / "lib",
                               folder.parent_path() / kLibraryFolder};
    *error = std::string(kLibraryName) + " is in none of";
    for (const auto& place : places) {
        std::error_code ignored;
        if (fs::exists(place / kLibraryName, ignored)) {
            return (place / kLibraryName).string();
        }
        *error += " " + place.string();
    }
    return {};
}
