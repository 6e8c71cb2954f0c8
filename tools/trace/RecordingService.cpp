#include "tools/trace/RecordingService.h"

#include "tools/trace/MeetingPlace.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace kelutv::trace {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{10};
constexpr int kTries = 3;
constexpr timespec kNap{0, 1000000};

void complain(const char* file, const std::string& why) {
    std::fprintf(stderr, "kelutv: cannot record to %.4096s: %s\n", file, why.c_str());
}

/** Where programs that record into the file meet; empty when it cannot be one. */
std::string placeFor(const char* file) {
    const int fd = ::open(file, O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_CLOEXEC, 0666);
    struct stat status {};
    if (fd < 0 || ::fstat(fd, &status) != 0) {
        complain(file, std::strerror(errno));
        return "";
    }
    ::close(fd);
    if (!S_ISREG(status.st_mode)) {
        complain(file, "it is no regular file");
        return "";
    }
    return meetingPlaceOf(status);
}

bool isServedAt(const std::string& place) { return isOwnFolder(place) && isServed(pipeIn(place)); }

/** The tool stands where it was installed or built together with this library. */
std::string tool() {
    Dl_info library{};
    ::dladdr(reinterpret_cast<const void*>(openRecordingService), &library);
    const std::string path = library.dli_fname != nullptr ? library.dli_fname : "";
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    const std::string installed = folder + KELUTV_TOOL_INSTALLED;
    return ::access(installed.c_str(), X_OK) == 0 ? installed : folder + KELUTV_TOOL_BUILT;
}

/** What the tool needs of the environment: it is not recorded itself. */
std::vector<char*> environmentOfTool() {
    std::vector<char*> environment;
    for (char** setting = environ; *setting != nullptr; ++setting) {
        if (std::strncmp(*setting, "LD_PRELOAD=", 11) != 0 && std::strncmp(*setting, "KELUTV_", 7) != 0) {
            environment.push_back(*setting);
        }
    }
    environment.push_back(nullptr);
    return environment;
}

class Attributes {
public:
    Attributes() {
        sigset_t signals;
        ::posix_spawnattr_init(&mAttributes);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&mAttributes, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&mAttributes, &signals);
        ::posix_spawnattr_setflags(&mAttributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~Attributes() { ::posix_spawnattr_destroy(&mAttributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    const posix_spawnattr_t* get() const { return &mAttributes; }

private:
    posix_spawnattr_t mAttributes{};
};

/** Waits until the recorder has gone to the background. */
bool waitFor(pid_t recorder, Clock::time_point deadline) {
    int status = 0;
    pid_t ended = 0;
    while ((ended = ::waitpid(recorder, &status, WNOHANG)) == 0 && Clock::now() < deadline) {
        ::nanosleep(&kNap, nullptr);
    }
    if (ended == 0) {
        ::kill(recorder, SIGKILL);
        ::waitpid(recorder, &status, 0);
    }
    // A program that does not care for its children has no status of them.
    return ended == recorder ? WIFEXITED(status) && WEXITSTATUS(status) == 0 : ended < 0;
}

bool startRecorder(const char* file, Clock::time_point deadline) {
    const std::string path = tool();
    std::string words[] = {"kelutv", "--quiet", "record", "--background", "--events", "--output", file};
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    pid_t recorder = -1;
    const int error = ::posix_spawn(&recorder, path.c_str(), nullptr, Attributes().get(), arguments.data(),
                                    environmentOfTool().data());
    if (error != 0) {
        complain(file, "cannot start " + path + ": " + std::strerror(error));
        return false;
    }
    return waitFor(recorder, deadline);
}

} // namespace

bool openRecordingService(Channel& channel, const char* file) {
    const int before = errno;
    const std::string place = placeFor(file);
    const auto deadline = Clock::now() + kPatience;
    bool isOpen = false;
    bool isStarted = !place.empty();
    // Who records may be about to end, and then is not there any more when this program comes.
    for (int tries = 0; tries < kTries && !isOpen && isStarted; ++tries) {
        // A recorder that cannot start has said why, and would say it again.
        isStarted = isServedAt(place) || startRecorder(file, deadline);
        isOpen = isStarted && channel.open(pipeIn(place).c_str());
        if (isOpen) {
            channel.send(recordOfNow(RecordKind::Process, 0), {});
            isOpen = isServedAt(place);
        }
    }
    errno = before;
    return isOpen;
}

} // namespace kelutv::trace
