#include "tools/kelutv/recordings/BackgroundRecording.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/process/SignalWatch.h"
#include "tools/trace/Frame.h"
#include "tools/trace/MeetingPlace.h"
#include "wire/text/Shown.h"

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <utility>

namespace kelutv::tool {

namespace {

using std::chrono::milliseconds;

constexpr std::chrono::seconds kPatience{5};
/** How soon the end of the last program is noticed. */
constexpr milliseconds kInterval{200};

[[noreturn]] void fail(const std::string& what) { throw ToolError(Exit::Failure, what + ": " + std::strerror(errno)); }

/** Waits for the lock that who records into the file holds. @return false when programs are served by somebody else */
bool lock(RecordingFile& file, const std::string& pipe) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (!file.lock()) {
        if (trace::isServed(pipe)) {
            return false;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            throw ToolError(Exit::Failure, "another program records into the file");
        }
        ::poll(nullptr, 0, 5);
    }
    return true;
}

void makePlace(const std::string& place) {
    if (::mkdir(place.c_str(), S_IRWXU) != 0 && (errno != EEXIST || !trace::isOwnFolder(place))) {
        fail("cannot make the folder " + wire::shown(place, wire::kMostOfPath));
    }
}

/** What the program that needs the recording had open would stay open with this process. */
void closeInherited() {
    DIR* const folder = ::opendir("/proc/self/fd");
    if (folder == nullptr) {
        return;
    }
    while (const dirent* const entry = ::readdir(folder)) {
        const int fd = std::atoi(entry->d_name);
        const int flags = fd > STDERR_FILENO ? ::fcntl(fd, F_GETFD) : -1;
        if (flags >= 0 && (flags & FD_CLOEXEC) == 0) {
            ::close(fd);
        }
    }
    ::closedir(folder);
}

void leaveProgram() {
    ::setsid();
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::dup2(nowhere, fd);
    }
    ::close(nowhere);
    closeInherited();
}

/** What /proc/PID/stat says behind the name; nothing for a process that is gone. */
struct ProcessStatus {
    char state = 'X';
    int threads = 0;
    /** Since the machine has started, in ticks: another process of the same number has another. */
    std::uint64_t start = 0;
};

ProcessStatus statusOf(pid_t process) {
    constexpr int kFieldsToThreads = 16;
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    std::istringstream fields(text.substr(text.find_last_of(')') + 1));
    ProcessStatus status;
    std::string other;
    fields >> status.state;
    for (int field = 0; field < kFieldsToThreads; ++field) {
        fields >> other;
    }
    fields >> status.threads >> other >> status.start;
    return status;
}

/** The programs that are recorded, as long as they run. */
class Programs {
public:
    /** Those that have sent something since the last call. */
    void note(std::set<pid_t>& senders) {
        for (const pid_t sender : senders) {
            mStarts[sender] = statusOf(sender).start;
        }
        senders.clear();
    }

    bool isAnyAtWork() {
        for (auto program = mStarts.begin(); program != mStarts.end();) {
            program = isAtWork(program->first, program->second) ? std::next(program) : mStarts.erase(program);
        }
        return !mStarts.empty();
    }

private:
    /** One that has ended and was not waited for does nothing any more; its first thread alone may have. */
    static bool isAtWork(pid_t process, std::uint64_t start) {
        const ProcessStatus status = statusOf(process);
        return status.start == start && status.state != 'X' && (status.state != 'Z' || status.threads > 1);
    }

    std::map<pid_t, std::uint64_t> mStarts;
};

/**
 * Takes the pipe out of the way of programs that begin, for whom another recorder is started then; puts it back when
 * one has begun just before.
 */
bool isDone(RecordingSession& session, Programs& programs, const std::string& pipe) {
    programs.note(session.processes());
    if (programs.isAnyAtWork()) {
        return false;
    }
    const std::string hidden = pipe + trace::kEndingSuffix;
    std::rename(pipe.c_str(), hidden.c_str());
    session.wait(-1, milliseconds::zero());
    programs.note(session.processes());
    if (programs.isAnyAtWork()) {
        std::rename(hidden.c_str(), pipe.c_str());
        return false;
    }
    ::unlink(hidden.c_str());
    return true;
}

/** Until the last program has ended, or none has begun in time, or a signal comes. @return what was the reason */
std::string serveAll(RecordingSession& session, process::SignalWatch& signals, const std::string& pipe) {
    const auto firstBy = std::chrono::steady_clock::now() + kPatience;
    bool hasBegun = false;
    Programs programs;
    while (true) {
        session.wait(signals.fd(), kInterval);
        hasBegun = hasBegun || !session.processes().empty() || std::chrono::steady_clock::now() > firstBy;
        if (signals.take()) {
            return "signal";
        }
        if (hasBegun && isDone(session, programs, pipe)) {
            return "program";
        }
    }
}

/** In a process of its own. */
Exit serve(TracePipe& pipe, RecordingFile& file, std::chrono::nanoseconds begin, const RecordOptions& options) {
    std::optional<process::SignalWatch> signals(std::in_place,
                                                std::initializer_list<int>{SIGINT, SIGTERM, SIGHUP, SIGQUIT});
    std::signal(SIGXFSZ, SIG_IGN); // What cannot be written is told of by the write.
    try {
        RecordingSession session(pipe, file, begin, options);
        session.finish(serveAll(session, *signals, pipe.path()));
        signals.reset(); // However long the disk takes, a signal ends this process.
        session.join();
        return Exit::Success;
    } catch (const ToolError& error) {
        return error.exit();
    }
}

} // namespace

void recordInBackground(const RecordOptions& options) {
    RecordingFile file(options.file, options.most);
    struct stat status {};
    if (!file.isRegular() || ::fstat(file.fd(), &status) != 0) {
        throw ToolError(Exit::Failure, "cannot record to " + wire::shown(options.file, wire::kMostOfPath) +
                                           " in the background: it is no regular file");
    }
    const std::string place = trace::meetingPlaceOf(status);
    if (!lock(file, trace::pipeIn(place))) {
        return;
    }
    file.goOn();
    makePlace(place);
    auto pipe = std::make_unique<TracePipe>(place, wishesOf(options));
    const std::chrono::nanoseconds begin = beginSection(file);
    const pid_t recorder = ::fork();
    if (recorder < 0) {
        fail("cannot make another process");
    }
    if (recorder == 0) {
        leaveProgram();
        const Exit exit = serve(*pipe, file, begin, options);
        // When all is written, and before the lock is given up with the file.
        pipe.reset();
        std::_Exit(static_cast<int>(exit));
    }
    // What stands in the folder is the other process's now.
    std::_Exit(0);
}

} // namespace kelutv::tool
