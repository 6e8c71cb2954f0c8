#include "tools/kelutv/trace/TracedProgram.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/trace/Frame.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

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

bool isSetting(const std::string& entry, const std::string& name) {
    return entry.compare(0, name.size() + 1, name + '=') == 0;
}

/** The environment of this process, with the trace library behind what is preloaded anyway. */
std::vector<std::string> environmentFor(const std::string& pipe) {
    std::vector<std::string> entries{std::string(trace::kPipeVariable) + '=' + pipe};
    std::string preload;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        if (isSetting(*entry, "LD_PRELOAD")) {
            preload = *entry + std::strlen("LD_PRELOAD=") + std::string(":");
        } else if (!isSetting(*entry, trace::kPipeVariable)) {
            entries.emplace_back(*entry);
        }
    }
    entries.push_back("LD_PRELOAD=" + preload + traceLibrary());
    return entries;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/** Gives the program the signals as the tool found them. */
class SpawnAttributes {
public:
    explicit SpawnAttributes(const sigset_t& mask) {
        ::posix_spawnattr_init(&mAttributes);
        sigset_t defaults;
        ::sigemptyset(&defaults);
        ::sigaddset(&defaults, SIGPIPE);
        ::posix_spawnattr_setsigdefault(&mAttributes, &defaults);
        ::posix_spawnattr_setsigmask(&mAttributes, &mask);
        ::posix_spawnattr_setflags(&mAttributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~SpawnAttributes() { ::posix_spawnattr_destroy(&mAttributes); }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;

    const posix_spawnattr_t* get() const { return &mAttributes; }

private:
    posix_spawnattr_t mAttributes{};
};

} // namespace

TracedProgram::TracedProgram(const std::vector<std::string>& words, const std::string& pipe, const sigset_t& mask) {
    std::vector<std::string> arguments(words);
    std::vector<std::string> environment = environmentFor(pipe);
    const int error = ::posix_spawnp(&mPid, arguments.front().c_str(), nullptr, SpawnAttributes(mask).get(),
                                     pointersTo(arguments).data(), pointersTo(environment).data());
    if (error != 0) {
        throw ToolError(static_cast<Exit>(error == ENOENT ? kNotFound : kCannotRun),
                        "cannot run " + words.front() + ": " + std::strerror(error));
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
