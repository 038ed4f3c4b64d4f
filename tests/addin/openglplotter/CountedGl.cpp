// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The toolkit keeps a table of functions for each context; those in OpenGL 1.1 are called directly,
// so that the program's own stand before those of the library.
#include "CountedGl.h"

#include <dlfcn.h>

#include <QOpenGLContext>
#include <optional>

#include "CountedMemory.h"

namespace {

using Table = QOpenGLFunctionsPrivate::Functions;

bool isCounting = false;
GlCounts seen;
std::optional<Table> driver;

struct TableAccess : QOpenGLFunctions {
    static QOpenGLFunctionsPrivate* of(QOpenGLFunctions* functions) {
        return functions->*(&TableAccess::d_ptr);
    }
};

void QOPENGLF_APIENTRY bindBuffer(GLenum target, GLuint buffer) {
    const UncountedMemory driverMemory;
    ++seen.bufferBindings;
    driver->BindBuffer(target, buffer);
}

void QOPENGLF_APIENTRY bufferData(GLenum /*target*/, qopengl_GLsizeiptr size, const void* data,
                                  GLenum /*usage*/) {
    ++seen.uploads;
    seen.bytesUploaded += data != nullptr ? size : 0;
}

void QOPENGLF_APIENTRY bufferSubData(GLenum /*target*/, qopengl_GLintptr /*offset*/,
                                     qopengl_GLsizeiptr size, const void* /*data*/) {
    ++seen.uploads;
    seen.bytesUploaded += size;
}

void QOPENGLF_APIENTRY enableVertexAttribArray(GLuint index) {
    const UncountedMemory driverMemory;
    ++seen.attributes;
    driver->EnableVertexAttribArray(index);
}

void QOPENGLF_APIENTRY vertexAttribPointer(GLuint index, GLint size, GLenum type,
                                           GLboolean normalized, GLsizei stride, const void* at) {
    const UncountedMemory driverMemory;
    ++seen.attributes;
    driver->VertexAttribPointer(index, size, type, normalized, stride, at);
}

void QOPENGLF_APIENTRY uniformMatrix(GLint location, GLsizei count, GLboolean transpose,
                                     const GLfloat* values) {
    const UncountedMemory driverMemory;
    seen.matrices += count;
    driver->UniformMatrix4fv(location, count, transpose, values);
}

void QOPENGLF_APIENTRY useProgram(GLuint program) {
    const UncountedMemory driverMemory;
    driver->UseProgram(program);
}

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#pragma GCC visibility push(default)
extern "C" {

void glDrawArrays(GLenum mode, GLint first, GLsizei count) {
    static const auto draw = next<void (*)(GLenum, GLint, GLsizei)>("glDrawArrays");
    if (!isCounting) {
        return draw(mode, first, count);
    }
    ++seen.draws;
    seen.verticesDrawn += count;
}

void glClear(GLbitfield mask) {
    static const auto clear = next<void (*)(GLbitfield)>("glClear");
    const UncountedMemory driverMemory;
    clear(mask);
}

}  // extern "C"
#pragma GCC visibility pop

CountedGl::CountedGl(Uploads uploads)
    : m_functions(TableAccess::of(QOpenGLContext::currentContext()->functions())) {
    seen = {};
    driver = m_functions->f;
    Table& table = m_functions->f;
    table.BindBuffer = bindBuffer;
    if (uploads == Uploads::areDropped) {
        table.BufferData = bufferData;
        table.BufferSubData = bufferSubData;
    }
    table.EnableVertexAttribArray = enableVertexAttribArray;
    table.VertexAttribPointer = vertexAttribPointer;
    table.UniformMatrix4fv = uniformMatrix;
    table.UseProgram = useProgram;
    isCounting = true;
}

CountedGl::~CountedGl() {
    isCounting = false;
    m_functions->f = *driver;
}

const GlCounts& CountedGl::counts() const {
    return seen;
}
