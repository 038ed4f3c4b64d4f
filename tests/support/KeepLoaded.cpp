// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Preloaded into tests under sanitizers and valgrind: no library is unloaded before the process
// ends. Otherwise what a driver or plug-in still holds when it goes looks like a leak, in a library
// without a name.
#include <dlfcn.h>

extern "C" __attribute__((visibility("default"))) int dlclose(void* /*library*/) {
    return 0;
}
