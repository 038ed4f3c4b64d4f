// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

#include <kx/host/kxAddinLoader.h>
#include <kx/kxAddin.h>
#include <kx/kxString.h>

namespace {

std::string lastLoaderError() {
    const char* text = dlerror();
    return text != nullptr ? text : "unknown cause";
}

/// A random GUID (RFC 4122, version 4) in its form of 36 characters.
std::string makeGuid() {
    std::random_device random;
    const auto bits = [&random] { return static_cast<std::uint32_t>(random()); };
    char text[37];
    std::snprintf(text, sizeof text, "%08x-%04x-4%03x-%04x-%04x%08x", bits(), bits() & 0xFFFFU,
                  bits() & 0xFFFU, (bits() & 0x3FFFU) | 0x8000U, bits() & 0xFFFFU, bits());
    return text;
}

/// Always a path: a bare name would be looked for in the system's folders, and an empty one be
/// taken for the program itself.
std::string asPath(const std::string& path) {
    return path.find('/') == std::string::npos ? "./" + path : path;
}

template <class Function>
Function* findFunction(void* library, const char* name) {
    return reinterpret_cast<Function*>(dlsym(library, name));
}

}  // namespace

kxLoadedAddin::~kxLoadedAddin() {
    Unload();
}

bool kxLoadedAddin::Load(const std::string& path, kxApplication_c* application,
                         std::string* error) {
    Unload();
    // A named pipe would be waited for.
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored) &&
        !std::filesystem::is_regular_file(path, ignored)) {
        *error = path + ": not a regular file";
        return false;
    }
    void* library = dlopen(asPath(path).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        *error = lastLoaderError();
        return false;
    }
    auto* connect = findFunction<decltype(connectToKestrix)>(library, "connectToKestrix");
    auto* disconnect =
        findFunction<decltype(disconnectFromKestrix)>(library, "disconnectFromKestrix");
    if (connect == nullptr || disconnect == nullptr) {
        *error = path + ": no add-in, it lacks connectToKestrix or disconnectFromKestrix";
        dlclose(library);
        return false;
    }
    if (!connect(application, kxString(makeGuid()))) {
        *error = path + ": the add-in refused to start";
        dlclose(library);
        return false;
    }
    m_library = library;
    return true;
}

void kxLoadedAddin::Unload() {
    if (m_library == nullptr) {
        return;
    }
    findFunction<decltype(disconnectFromKestrix)>(m_library, "disconnectFromKestrix")();
    dlclose(m_library);
    m_library = nullptr;
}
