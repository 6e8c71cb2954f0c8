#include "RuntimeDirectory.h"

#include "Descriptors.h"

#include <android/log.h>

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace kq {

namespace {

constexpr const char* kTag = "kqdroid";
constexpr mode_t kOwnerOnly = 0700;
// Whoever has the lock does nothing that waits.
constexpr std::chrono::seconds kLockPatience{1};
constexpr int kLockPauseMs = 2;
// What is waited for may come without a change in the room: a service may take connections again.
constexpr std::chrono::milliseconds kLongestPause{100};

std::string nonEmptyVariable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/** Without what makes the system follow a link at the end of a path: "link/" and "link/." are what it leads to. */
std::string withoutTail(std::string path) {
    for (;;) {
        const std::string::size_type length = path.size();
        if (length > 1 && path[length - 1] == '/') {
            path.resize(length - 1);
        } else if (length > 2 && path.compare(length - 2, 2, "/.") == 0) {
            path.resize(length - 2);
        } else {
            return path;
        }
    }
}

std::string configuredDirectory() {
    if (std::string named = nonEmptyVariable("KQDROID_RUNTIME_DIR"); !named.empty()) {
        return named;
    }
    if (const std::string user = nonEmptyVariable("XDG_RUNTIME_DIR"); !user.empty()) {
        return user + "/kqdroid";
    }
    return "/tmp/kqdroid-" + std::to_string(::geteuid());
}

std::string baseDirectory() { return withoutTail(configuredDirectory()); }

/** Processes that meet in a directory may have been started in different ones. */
bool isWhole(const std::string& path) {
    if (path.front() == '/') {
        return true;
    }
    __android_log_print(ANDROID_LOG_ERROR, kTag, "runtime directory %s must be a path that begins with /",
                        path.c_str());
    return false;
}

bool ownedAndPrivate(const std::string& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "runtime directory %s: %s", path.c_str(), std::strerror(errno));
        return false;
    }
    if (!S_ISDIR(status.st_mode) || status.st_uid != ::geteuid() || (status.st_mode & 0077) != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag,
                            "runtime directory %s must be a directory of uid %u that only its owner may enter",
                            path.c_str(), static_cast<unsigned>(::geteuid()));
        return false;
    }
    return true;
}

bool prepare(const std::string& path) {
    if (::mkdir(path.c_str(), kOwnerOnly) != 0 && errno != EEXIST) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "runtime directory %s: %s", path.c_str(), std::strerror(errno));
        return false;
    }
    return ownedAndPrivate(path);
}

/** Waits for a change in the room; for the whole time where the room cannot be watched. */
void waitForChange(int inotify, std::chrono::milliseconds time) {
    pollfd changed{inotify, POLLIN, 0};
    if (::poll(&changed, inotify < 0 ? 0 : 1, static_cast<int>(time.count())) < 0 && errno != EINTR) {
        ::poll(nullptr, 0, static_cast<int>(time.count()));
    }
    alignas(inotify_event) char events[4096];
    while (inotify >= 0 && ::read(inotify, events, sizeof(events)) > 0) {
    }
}

} // namespace

std::string RuntimeDirectory::pathOfRoom(const char* room) { return baseDirectory() + '/' + room; }

std::optional<RuntimeDirectory> RuntimeDirectory::open(const char* room) {
    const std::string base = baseDirectory();
    const std::string path = pathOfRoom(room);
    if (!isWhole(base) || !prepare(base) || !prepare(path)) {
        return std::nullopt;
    }
    return RuntimeDirectory(path);
}

std::optional<std::vector<std::string>> RuntimeDirectory::entries() const {
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(mPath.c_str()), ::closedir);
    if (directory == nullptr) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = ::readdir(directory.get())) {
        struct stat status {};
        if (::fstatat(::dirfd(directory.get()), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISSOCK(status.st_mode)) {
            names.emplace_back(entry->d_name);
        }
        errno = 0;
    }
    if (errno != 0) {
        return std::nullopt;
    }
    std::sort(names.begin(), names.end());
    return names;
}

UniqueFd RuntimeDirectory::watch() const {
    UniqueFd inotify = openDescriptor([] { return ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC); });
    if (!inotify || ::inotify_add_watch(inotify.get(), mPath.c_str(), IN_CREATE | IN_MOVED_TO | IN_DELETE) < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "watching %s: %s", mPath.c_str(), std::strerror(errno));
        return UniqueFd();
    }
    return inotify;
}

bool RuntimeDirectory::waitUntil(std::chrono::milliseconds time, const std::function<bool()>& check) const {
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + time;
    if (check()) {
        return true;
    }
    if (time.count() <= 0) {
        return false;
    }
    // Only now: it takes the system some 20 ms to close a watch.
    const UniqueFd inotify = watch();
    for (;;) {
        if (check()) {
            return true;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) {
            return false;
        }
        waitForChange(inotify.get(), std::min(left, kLongestPause));
    }
}

UniqueFd RuntimeDirectory::lock() const {
    using Clock = std::chrono::steady_clock;
    const std::string path = pathOf(".lock");
    UniqueFd file = openDescriptor(
        [&path] { return ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600); });
    int error = file ? EWOULDBLOCK : errno;
    for (const auto deadline = Clock::now() + kLockPatience; file && error == EWOULDBLOCK;) {
        error = ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
        if (error == EWOULDBLOCK && Clock::now() >= deadline) {
            break;
        }
        if (error == EINTR || error == EWOULDBLOCK) {
            ::poll(nullptr, 0, kLockPauseMs);
            error = EWOULDBLOCK;
        }
    }
    if (error == 0) {
        return file;
    }
    __android_log_print(ANDROID_LOG_ERROR, kTag, "locking %s: %s", path.c_str(), std::strerror(error));
    file = UniqueFd();
    errno = error;
    return file;
}

} // namespace kq
