#include "simulator/files/File.h"

#include <fcntl.h>
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
    throw std::runtime_error("cannot " + what + " " + path + ": " + std::strerror(errno));
}

File::File(const std::string& path, int flags) : mPath(path), mFd(::open(path.c_str(), flags | O_CLOEXEC, 0644)) {}

File::~File() {
    if (mFd >= 0) {
        ::close(mFd);
    }
}

bool File::isRegular() const { return S_ISREG(statusOf(mFd, mPath).st_mode); }

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

std::string readRegularFile(const std::string& path) {
    // Without waiting for the other end of a pipe.
    const File file(path, O_RDONLY | O_NONBLOCK);
    if (!file.isOpen()) {
        failToUse("read", path);
    }
    if (!file.isRegular() || file.size() > kLongestFile) {
        throw std::runtime_error("cannot read " + path + ": it must be a regular file of at most " +
                                 std::to_string(kLongestFile) + " bytes");
    }
    return file.read(file.size());
}

std::string resolvedPath(const std::string& path) {
    char real[PATH_MAX];
    return ::realpath(path.c_str(), real) != nullptr ? real : path;
}

void replaceFile(const std::string& path, const std::string& content, Outlives outlives) {
    const std::string next = path + ".new";
    const File file(next, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    if (!file.isOpen()) {
        failToUse("write", next);
    }
    file.write(content);
    if (outlives == Outlives::Machine) {
        file.sync();
    }
    if (::rename(next.c_str(), path.c_str()) != 0) {
        failToUse("replace", path);
    }
    if (outlives == Outlives::Machine) {
        syncFolder(folderOf(path));
    }
}

} // namespace kelutv::simulator
