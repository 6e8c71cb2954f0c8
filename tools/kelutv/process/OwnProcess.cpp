#include "tools/kelutv/process/OwnProcess.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace kelutv::tool {

namespace {

/** While this lives the keyboard does not interrupt this process. */
class NoInterrupt {
public:
    NoInterrupt() : mBefore(std::signal(SIGINT, SIG_IGN)) {}
    ~NoInterrupt() { std::signal(SIGINT, mBefore); }
    NoInterrupt(const NoInterrupt&) = delete;
    NoInterrupt& operator=(const NoInterrupt&) = delete;

private:
    void (*mBefore)(int);
};

pid_t spawn(std::vector<std::string>& words) {
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    sigset_t interrupt;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    ::posix_spawnattr_setsigdefault(&attributes, &interrupt);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    pid_t process = -1;
    const int error = ::posix_spawn(&process, "/proc/self/exe", nullptr, &attributes, arguments.data(), ::environ);
    ::posix_spawnattr_destroy(&attributes);
    if (error != 0) {
        throw ToolError(Exit::Failure, std::string("cannot start this program again: ") + std::strerror(error));
    }
    return process;
}

} // namespace

Exit runInOwnProcess(std::vector<std::string> words) {
    const NoInterrupt whileItRuns;
    words.insert(words.begin(), "kelutv");
    const pid_t process = spawn(words);
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? static_cast<Exit>(WEXITSTATUS(status)) : Exit::Failure;
}

} // namespace kelutv::tool
