// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Preloaded into a program: writes each file that it opens, each library that it loads by name,
// each program that it starts and each address that it connects to into the file KX_RECORD_OPENS
// names, as lines "open /whole/path", "load NAME", "run NAME", "connect KIND". Nothing else is
// changed.
#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

template <class Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

long openRaw(const char* path, int flags) {
    return syscall(SYS_openat, AT_FDCWD, path, flags, 0600);
}

/// Without the library's own calls: those are recorded.
void record(const char* what, const char* name) {
    const char* const file = std::getenv("KX_RECORD_OPENS");
    const int before = errno;
    const long handle =
        file == nullptr ? -1 : openRaw(file, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC);
    if (handle >= 0) {
        char line[2 * PATH_MAX];
        const int size = std::snprintf(line, sizeof line, "%s %s\n", what, name);
        syscall(SYS_write, handle, line, static_cast<std::size_t>(size));
        syscall(SYS_close, handle);
    }
    errno = before;
}

/// Records a path as a whole one, seen from an open folder.
void recordPath(int folder, const char* path) {
    if (path[0] == '/') {
        record("open", path);
        return;
    }
    char link[64];
    char base[PATH_MAX] = "";
    std::snprintf(link, sizeof link, folder == AT_FDCWD ? "/proc/self/cwd" : "/proc/self/fd/%d",
                  folder);
    const int before = errno;
    const long size = syscall(SYS_readlink, link, base, sizeof base - 1);
    errno = before;
    char whole[2 * PATH_MAX];
    std::snprintf(whole, sizeof whole, "%.*s/%s", static_cast<int>(size < 0 ? 0 : size), base,
                  path);
    record("open", whole);
}

bool hasMode(int flags) {
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

/// The third argument, which is there only when a file may be made.
mode_t modeOf(int flags, va_list arguments) {
    return hasMode(flags) ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

#define KX_RECORDED_OPEN(name)                                             \
    int name(const char* path, int flags, ...) {                           \
        va_list arguments;                                                 \
        va_start(arguments, flags);                                        \
        const mode_t mode = modeOf(flags, arguments);                      \
        va_end(arguments);                                                 \
        recordPath(AT_FDCWD, path);                                        \
        return next<int(const char*, int, ...)>(#name)(path, flags, mode); \
    }
#define KX_RECORDED_OPENAT(name)                                                        \
    int name(int folder, const char* path, int flags, ...) {                            \
        va_list arguments;                                                              \
        va_start(arguments, flags);                                                     \
        const mode_t mode = modeOf(flags, arguments);                                   \
        va_end(arguments);                                                              \
        recordPath(folder, path);                                                       \
        return next<int(int, const char*, int, ...)>(#name)(folder, path, flags, mode); \
    }
#define KX_RECORDED_FOPEN(name)                                          \
    FILE* name(const char* path, const char* mode) {                     \
        recordPath(AT_FDCWD, path);                                      \
        return next<FILE*(const char*, const char*)>(#name)(path, mode); \
    }

extern "C" {
#pragma GCC visibility push(default)

KX_RECORDED_OPEN(open)
KX_RECORDED_OPEN(open64)
KX_RECORDED_OPENAT(openat)
KX_RECORDED_OPENAT(openat64)
KX_RECORDED_FOPEN(fopen)
KX_RECORDED_FOPEN(fopen64)

// What the two become in programs that are compiled with checked calls.
int __open_2(const char* path, int flags) {
    recordPath(AT_FDCWD, path);
    return next<int(const char*, int)>("__open_2")(path, flags);
}
int __open64_2(const char* path, int flags) {
    recordPath(AT_FDCWD, path);
    return next<int(const char*, int)>("__open64_2")(path, flags);
}
int __openat_2(int folder, const char* path, int flags) {
    recordPath(folder, path);
    return next<int(int, const char*, int)>("__openat_2")(folder, path, flags);
}
int __openat64_2(int folder, const char* path, int flags) {
    recordPath(folder, path);
    return next<int(int, const char*, int)>("__openat64_2")(folder, path, flags);
}

FILE* freopen(const char* path, const char* mode, FILE* stream) {
    recordPath(AT_FDCWD, path == nullptr ? "(the same)" : path);
    return next<FILE*(const char*, const char*, FILE*)>("freopen")(path, mode, stream);
}

void* dlopen(const char* name, int mode) {
    record("load", name == nullptr ? "(the program)" : name);
    return next<void*(const char*, int)>("dlopen")(name, mode);
}

int execve(const char* path, char* const arguments[], char* const environment[]) {
    record("run", path);
    return next<int(const char*, char* const[], char* const[])>("execve")(path, arguments,
                                                                          environment);
}
int execvp(const char* path, char* const arguments[]) {
    record("run", path);
    return next<int(const char*, char* const[])>("execvp")(path, arguments);
}
int execv(const char* path, char* const arguments[]) {
    record("run", path);
    return next<int(const char*, char* const[])>("execv")(path, arguments);
}
int system(const char* command) {
    record("run", command == nullptr ? "(a shell)" : command);
    return next<int(const char*)>("system")(command);
}
FILE* popen(const char* command, const char* mode) {
    record("run", command);
    return next<FILE*(const char*, const char*)>("popen")(command, mode);
}

int connect(int handle, const sockaddr* address, socklen_t size) {
    record("connect", address->sa_family == AF_UNIX ? "local" : "network");
    return next<int(int, const sockaddr*, socklen_t)>("connect")(handle, address, size);
}

#pragma GCC visibility pop
}
