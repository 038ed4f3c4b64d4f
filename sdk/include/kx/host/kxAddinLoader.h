// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <kx/kxExport.h>

class kxApplication_c;

/// An add-in's library, loaded and connected as long as the object lives.
class KX_EXPORT kxLoadedAddin {
public:
    kxLoadedAddin() = default;
    kxLoadedAddin(const kxLoadedAddin&) = delete;
    kxLoadedAddin& operator=(const kxLoadedAddin&) = delete;
    /// Disconnects and unloads.
    ~kxLoadedAddin();

    /// Loads the library at `path`, gives it a fresh identifier and connects it. A name without a
    /// folder is a file of the current one: the system's library folders are not searched. False,
    /// with the cause in `error`, when the file cannot be loaded, lacks an entry point or refuses.
    bool Load(const std::string& path, kxApplication_c* application, std::string* error);
    bool IsLoaded() const noexcept { return m_library != nullptr; }
    /// Disconnects and unloads; the application must still live. A second call does nothing.
    void Unload();

private:
    void* m_library = nullptr;
};
