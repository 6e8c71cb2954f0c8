#include "RuntimeDirectory.h"

#include <android/log.h>

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace kq {

namespace {

constexpr const char* kTag = "kqdroid";
constexpr mode_t kOwnerOnly = 0700;

std::string nonEmptyVariable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
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

void drain(int inotify) {
    alignas(inotify_event) char events[4096];
    while (::read(inotify, events, sizeof(events)) > 0) {
    }
}

} // namespace

std::optional<RuntimeDirectory> RuntimeDirectory::open(const char* room) {
    const std::string base = configuredDirectory();
    const std::string path = base + '/' + room;
    if (!prepare(base) || !prepare(path)) {
        return std::nullopt;
    }
    return RuntimeDirectory(path);
}

std::vector<std::string> RuntimeDirectory::entries() const {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(mPath.c_str()), ::closedir);
    if (directory == nullptr) {
        return names;
    }
    while (const dirent* entry = ::readdir(directory.get())) {
        struct stat status {};
        if (::fstatat(::dirfd(directory.get()), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISSOCK(status.st_mode)) {
            names.emplace_back(entry->d_name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

UniqueFd RuntimeDirectory::watch() const {
    UniqueFd inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!inotify || ::inotify_add_watch(inotify.get(), mPath.c_str(), IN_CREATE | IN_MOVED_TO | IN_DELETE) < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "watching %s: %s", mPath.c_str(), std::strerror(errno));
        return UniqueFd();
    }
    return inotify;
}

bool RuntimeDirectory::waitUntil(std::chrono::milliseconds time, const std::function<bool()>& check) const {
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + time;
    const UniqueFd inotify = time.count() > 0 ? watch() : UniqueFd();
    for (;;) {
        if (check()) {
            return true;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0 || !inotify) {
            return false;
        }
        pollfd changed{inotify.get(), POLLIN, 0};
        ::poll(&changed, 1, static_cast<int>(left.count()));
        drain(inotify.get());
    }
}

UniqueFd RuntimeDirectory::lock() const {
    UniqueFd file(::open(pathOf(".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    while (file && ::flock(file.get(), LOCK_EX) != 0 && errno == EINTR) {
    }
    return file;
}

} // namespace kq
