#include "tools/kelutv/shell/OwnProcess.h"

#include "tools/process/Spawn.h"

#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

namespace kelutv::tool {

namespace {

/** While this lives the keyboard does not interrupt this process. */
class InterruptIgnored {
public:
    InterruptIgnored() : mBefore(std::signal(SIGINT, SIG_IGN)) {}
    ~InterruptIgnored() { std::signal(SIGINT, mBefore); }
    InterruptIgnored(const InterruptIgnored&) = delete;
    InterruptIgnored& operator=(const InterruptIgnored&) = delete;

private:
    void (*mBefore)(int);
};

pid_t start(std::vector<std::string> words) {
    try {
        return process::spawn({std::move(words), "/proc/self/exe", {}, {}, {SIGINT}});
    } catch (const std::system_error& error) {
        throw ToolError(Exit::Failure, "cannot start this program again: " + error.code().message());
    }
}

} // namespace

Exit runInOwnProcess(std::vector<std::string> words) {
    const InterruptIgnored whileItRuns;
    words.insert(words.begin(), "kelutv");
    const pid_t process = start(std::move(words));
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? static_cast<Exit>(WEXITSTATUS(status)) : Exit::Failure;
}

} // namespace kelutv::tool
