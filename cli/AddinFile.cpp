// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "AddinFile.h"

#include <filesystem>
#include <system_error>

#include "InstallFolders.h"

namespace {

constexpr char kLibraryName[] = "libGCodeAddin.so.1";

std::filesystem::path programFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace

std::string findAddinFile(const std::string& asked, std::string* error) {
    if (!asked.empty()) {
        return asked;
    }
    const std::filesystem::path folder = programFolder();
    const std::filesystem::path places[] = {folder, folder.parent_path() / "lib",
                                            folder.parent_path() / kLibraryFolder};
    *error = std::string(kLibraryName) + " is in none of";
    for (const auto& place : places) {
        std::error_code ignored;
        if (std::filesystem::exists(place / kLibraryName, ignored)) {
            return (place / kLibraryName).string();
        }
        *error += " " + place.string();
    }
    return {};
}
