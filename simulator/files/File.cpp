#include "simulator/files/File.h"

#include "wire/text/Shown.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kLongestFile = 16 * 1024 * 1024;

struct stat statusOf(int fd, const std::string& path) {
    struct stat status {};
    if (::fstat(fd, &status) != 0) {
        failToUse("read", path);
    }
    return status;
}

std::string nextTo(const std::string& path) { return path + ".new"; }

/** The locked file that is to take the place of this one; what nobody is writing any more is no obstacle. */
std::unique_ptr<File> created(const std::string& path) {
    constexpr int kMostAttempts = 3;
    const std::string next = nextTo(path);
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        auto file = std::make_unique<File>(next, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
        if (file->isOpen() && file->lock() && file->hasItsName()) {
            return file;
        }
        if (!file->isOpen() && errno != EEXIST) {
            failToUse("write", next);
        }
        removeNextTo(path);
    }
    throw std::runtime_error("cannot write " + next + ": another process takes it away");
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

void syncFolder(const std::string& path) {
    const File folder(path, O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen()) {
        failToUse("open", path);
    }
    folder.sync();
}

} // namespace

void failToUse(const std::string& what, const std::string& path) {
    const int reason = errno;
    throw std::runtime_error("cannot " + what + " " + wire::shown(path, wire::kMostOfPath) + ": " +
                             std::strerror(reason));
}

File::File(const std::string& path, int flags) : mPath(path), mFd(::open(path.c_str(), flags | O_CLOEXEC, 0644)) {}

File::~File() {
    if (mFd >= 0) {
        ::close(mFd);
    }
}

bool File::isRegular() const { return S_ISREG(statusOf(mFd, mPath).st_mode); }

bool File::lock() const { return ::flock(mFd, LOCK_EX | LOCK_NB) == 0; }

bool File::hasItsName() const {
    struct stat named {};
    const struct stat own = statusOf(mFd, mPath);
    return ::stat(mPath.c_str(), &named) == 0 && named.st_dev == own.st_dev && named.st_ino == own.st_ino;
}

std::size_t File::size() const { return static_cast<std::size_t>(statusOf(mFd, mPath).st_size); }

std::string File::read(std::size_t length) const {
    std::string content(length, '\0');
    for (std::size_t done = 0; done < content.size();) {
        const ssize_t count = ::read(mFd, &content[done], content.size() - done);
        if (count == 0) {
            throw std::runtime_error(mPath + " became shorter while it was read");
        }
        if (count < 0 && errno != EINTR) {
            failToUse("read", mPath);
        }
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return content;
}

void File::write(const std::string& content) const {
    for (std::size_t done = 0; done < content.size();) {
        const ssize_t count = ::write(mFd, &content[done], content.size() - done);
        if (count < 0 && errno != EINTR) {
            failToUse("write", mPath);
        }
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

void File::sync() const {
    if (::fsync(mFd) != 0) {
        failToUse("write", mPath);
    }
}

std::string contentOf(const File& file) {
    if (!file.isRegular() || file.size() > kLongestFile) {
        throw std::runtime_error("cannot read " + file.path() + ": it must be a regular file of at most " +
                                 std::to_string(kLongestFile) + " bytes");
    }
    return file.read(file.size());
}

std::string readRegularFile(const std::string& path) {
    // Without waiting for the other end of a pipe.
    const File file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!file.isOpen()) {
        failToUse("read", path);
    }
    return contentOf(file);
}

std::string resolvedPath(const std::string& path) {
    char real[PATH_MAX];
    return ::realpath(path.c_str(), real) != nullptr ? real : path;
}

void removeNextTo(const std::string& path) {
    const std::string next = nextTo(path);
    const File left(next, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    if (!left.isOpen() && errno == ENOENT) {
        return;
    }
    if (!left.isOpen() || !left.isRegular()) {
        throw std::runtime_error(next + " is in the way: it is not a regular file");
    }
    if (!left.lock()) {
        throw std::runtime_error(next + " is being written by another process");
    }
    if (::unlink(next.c_str()) != 0 && errno != ENOENT) {
        failToUse("remove", next);
    }
}

std::unique_ptr<File> replaceFile(const std::string& path, const std::string& content, Outlives outlives) {
    if (content.size() > kLongestFile) {
        throw std::runtime_error("cannot write " + path + ": it would have more than " + std::to_string(kLongestFile) +
                                 " bytes");
    }
    const std::string next = nextTo(path);
    std::unique_ptr<File> file = created(path);
    try {
        file->write(content);
        if (outlives == Outlives::Machine) {
            file->sync();
        }
        if (::rename(next.c_str(), path.c_str()) != 0) {
            failToUse("replace", path);
        }
    } catch (const std::runtime_error&) {
        ::unlink(next.c_str());
        throw;
    }
    if (outlives == Outlives::Machine) {
        syncFolder(folderOf(path));
    }
    return file;
}

} // namespace kelutv::simulator
