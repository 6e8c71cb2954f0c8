#include "simulator/replay/Restart.h"

#include "simulator/faults/ProcessExit.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

namespace kelutv::simulator {

namespace {

constexpr char kHandedOver[] = "KELUTV_SIMULATOR_HANDED_OVER";

std::vector<std::string> argumentsOfProcess() {
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(file, argument, '\0');) {
        arguments.push_back(argument);
    }
    return arguments;
}

/** A file without a name that the next program finds open; -1 when it cannot be made. */
int keep(const std::string& progress) {
    const int file = ::memfd_create("kelutv-simulator", 0);
    std::size_t written = 0;
    while (file >= 0 && written < progress.size()) {
        const ssize_t more = ::write(file, progress.data() + written, progress.size() - written);
        if (more < 0 && errno != EINTR) {
            return -1;
        }
        written += more > 0 ? static_cast<std::size_t>(more) : 0;
    }
    return file;
}

void execute(const std::string& progress) {
    const int file = keep(progress);
    if (file < 0 || ::setenv(kHandedOver, std::to_string(file).c_str(), 1) != 0) {
        return;
    }
    std::vector<std::string> arguments = argumentsOfProcess();
    std::vector<char*> words;
    for (std::string& argument : arguments) {
        words.push_back(argument.data());
    }
    words.push_back(nullptr);
    ::execv("/proc/self/exe", words.data());
}

} // namespace

void restart(const std::string& progress) {
    execute(progress);
    std::fprintf(stderr, "kelutv-simulator: cannot start again: %s\n", std::strerror(errno));
    ::_exit(kFaultExitCode);
}

std::optional<std::string> takeHandedOver() {
    const char* const number = std::getenv(kHandedOver);
    if (number == nullptr) {
        return std::nullopt;
    }
    const int file = std::atoi(number);
    ::unsetenv(kHandedOver);
    std::ifstream content("/proc/self/fd/" + std::to_string(file), std::ios::binary);
    std::string progress(std::istreambuf_iterator<char>(content), {});
    ::close(file);
    return progress;
}

} // namespace kelutv::simulator
