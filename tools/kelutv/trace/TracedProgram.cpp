#include "tools/kelutv/trace/TracedProgram.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/process/Spawn.h"
#include "wire/text/Shown.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <system_error>

namespace kelutv::tool {

namespace {

constexpr int kNotFound = 127;
constexpr int kCannotRun = 126;
constexpr int kSignalled = 128;

std::string programDirectory() {
    char path[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof(path));
    const std::string program(path, length > 0 ? static_cast<std::size_t>(length) : 0);
    return program.substr(0, program.rfind('/'));
}

std::string traceLibrary() {
    const std::string directory = programDirectory();
    const std::string installed = directory + "/" KELUTV_TRACE_LIBRARY_INSTALLED;
    for (const std::string& path : {installed, directory + "/" KELUTV_TRACE_LIBRARY_BUILT}) {
        if (::access(path.c_str(), R_OK) == 0) {
            return path;
        }
    }
    throw ToolError(Exit::Failure, "the trace library is missing: " + installed);
}

/** The environment's setting, with the trace library behind what is preloaded anyway. */
std::string preload() {
    const char* const before = std::getenv("LD_PRELOAD");
    return "LD_PRELOAD=" + (before != nullptr ? before + std::string(":") : "") + traceLibrary();
}

[[noreturn]] void failToRun(const std::string& word, const std::error_code& error) {
    throw ToolError(static_cast<Exit>(error.value() == ENOENT ? kNotFound : kCannotRun),
                    "cannot run " + wire::shown(word, wire::kMostOfPath) + ": " + error.message());
}

} // namespace

TracedProgram::TracedProgram(const std::vector<std::string>& words, const std::string& setting,
                             const std::vector<std::pair<int, int>>& descriptors, const sigset_t& mask) {
    const process::Program program{words, {}, {setting, preload()}, descriptors, {SIGPIPE, SIGXFSZ}, mask};
    try {
        mPid = process::spawn(program);
    } catch (const std::system_error& error) {
        failToRun(words.front(), error.code());
    }
}

void TracedProgram::requireRunnable(const std::vector<std::string>& words) {
    traceLibrary();
    if (const std::error_code error = process::whyNotRunnable(words.front())) {
        failToRun(words.front(), error);
    }
}

std::optional<int> TracedProgram::exitCode() {
    int status = 0;
    if (::waitpid(mPid, &status, WNOHANG) != mPid) {
        return std::nullopt;
    }
    return WIFSIGNALED(status) ? kSignalled + WTERMSIG(status) : WEXITSTATUS(status);
}

void TracedProgram::kill(int signal) const { ::kill(mPid, signal); }

} // namespace kelutv::tool
