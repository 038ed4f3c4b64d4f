// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QOpenGLFunctions>

struct GlCounts {
    int draws = 0;
    int verticesDrawn = 0;
    int bufferBindings = 0;
    int attributes = 0;  // layouts set and arrays enabled
    int matrices = 0;
    int uploads = 0;
    long long bytesUploaded = 0;
};

/// The calls to OpenGL that matter for the cost of a frame or a load, in the current context while
/// the object lives. Draws don't reach the driver, nor do uploads unless they are let through; what
/// the driver needs for the others is not counted as memory. One at a time.
class CountedGl {
public:
    enum class Uploads { areDropped, reachTheDriver };

    explicit CountedGl(Uploads uploads = Uploads::areDropped);
    ~CountedGl();
    CountedGl(const CountedGl&) = delete;
    CountedGl& operator=(const CountedGl&) = delete;

    const GlCounts& counts() const;

private:
    QOpenGLFunctionsPrivate* m_functions;
};
