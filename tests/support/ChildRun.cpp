// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "ChildRun.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>

namespace {

constexpr int kCannotStart = 127;

std::string contentOf(int file) {
    std::string content;
    std::array<char, 4096> chunk{};
    lseek(file, 0, SEEK_SET);
    for (ssize_t count = 0; (count = read(file, chunk.data(), chunk.size())) > 0;) {
        content.append(chunk.data(), static_cast<std::size_t>(count));
    }
    close(file);
    return content;
}

void setEnvironment(const std::vector<std::string>& changes) {
    for (const std::string& change : changes) {
        const std::size_t equals = change.find('=');
        const std::string name = change.substr(0, equals);
        if (equals == std::string::npos) {
            unsetenv(name.c_str());
        } else {
            setenv(name.c_str(), change.c_str() + equals + 1, 1);
        }
    }
}

[[noreturn]] void become(std::vector<char*> words, const ChildOptions& options, int output,
                         int messages) {
    const std::string& place = options.outputTo;
    const int out = place.empty() ? output : open(place.c_str(), O_WRONLY | O_CLOEXEC);
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(messages, STDERR_FILENO);
    setEnvironment(options.environment);
    const bool isThere = options.workFolder.empty() || chdir(options.workFolder.c_str()) == 0;
    if (options.prepare) {
        options.prepare();
    }
    // The alarm outlives the start of the program and ends it.
    alarm(options.limitSeconds);
    if (isThere) {
        execv(words[0], words.data());
    }
    _exit(kCannotStart);
}

}  // namespace

ChildRun runChild(const std::vector<std::string>& arguments, const ChildOptions& options) {
    std::vector<std::string> copies = arguments;
    std::vector<char*> words;
    for (std::string& word : copies) {
        words.push_back(word.data());
    }
    words.push_back(nullptr);
    const int output = memfd_create("output", MFD_CLOEXEC);
    const int messages = memfd_create("messages", MFD_CLOEXEC);
    const pid_t child = fork();
    if (child == 0) {
        become(words, options, output, messages);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    ChildRun run;
    run.code = WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
    run.output = contentOf(output);
    run.messages = contentOf(messages);
    return run;
}
