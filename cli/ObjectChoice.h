// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <vector>

#include <kx/host/kxHostDocument.h>

/// Which objects of a drawing are taken.
struct ObjectChoice {
    /// In any case of ASCII letters; none: all layers.
    std::vector<std::string> layers;
    /// "line", "arc", "circle", "point"; none: all types.
    std::vector<std::string> types;
    bool explode = true;
    /// The chord tolerance in drawing units.
    double explodeTolerance = 0.01;
};

/// Explodes what is to be exploded and gives the chosen objects that a user could select, in
/// drawing order. Nothing, with the cause in `unknown`, when there is no layer of such a name.
std::vector<kxObject_ptr> chooseObjects(kxHostDocument_c& document, const ObjectChoice& choice,
                                        std::string* unknown);
