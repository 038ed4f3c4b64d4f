// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "ChildProcess.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace {

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

[[noreturn]] void become(const std::vector<char*>& arguments, const std::string& folder,
                         std::vector<std::string> variables) {
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {0, 1, 2}) {
        dup2(nowhere, stream);
    }
    for (std::string& variable : variables) {
        putenv(variable.data());
    }
    if (chdir(folder.c_str()) == 0) {
        execv(arguments.front(), arguments.data());
    }
    _exit(127);
}

}  // namespace

std::optional<ChildCost> runChild(const std::vector<std::string>& arguments,
                                  const std::string& folder,
                                  const std::vector<std::string>& variables) {
    std::vector<std::string> copies = arguments;
    std::vector<char*> pointers;
    for (std::string& argument : copies) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    const pid_t process = fork();
    if (process == 0) {
        become(pointers, folder, variables);
    }
    int status = 0;
    rusage usage{};
    if (process < 0 || wait4(process, &status, 0, &usage) != process || !WIFEXITED(status) ||
        WEXITSTATUS(status) == 127) {
        return std::nullopt;
    }
    return ChildCost{secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
                     static_cast<double>(usage.ru_maxrss) / 1024, WEXITSTATUS(status)};
}
