// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <kx/kxExport.h>

class kxApplication_c;
class kxString;

// The two functions that an add-in exports, by these unmangled names.

/// Called once after the library is loaded. `application` outlives the add-in; `appID` is the
/// add-in's identifier, a GUID of 36 characters, to be given back with all that it makes.
/// False: the add-in could not start, and the host unloads it.
extern "C" KX_EXPORT bool connectToKestrix(kxApplication_c* application, const kxString& appID);

/// Called once before the library is unloaded. The add-in removes all that it made.
extern "C" KX_EXPORT bool disconnectFromKestrix();
