#include "EepStore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace simulator {

namespace {

constexpr std::size_t kMemorySize = EepStore::kSize;
constexpr std::size_t kFileSize = 2 * kMemorySize;

std::size_t startOf(Memory memory) { return memory == Memory::Eep ? 0 : kMemorySize; }

[[noreturn]] void fail(const std::string& what, const std::string& path) {
    throw std::runtime_error("cannot " + what + " " + path + ": " + std::strerror(errno));
}

/** An open file, closed with the object. */
class File {
public:
    File(const std::string& path, int flags) : mPath(path), mFd(::open(path.c_str(), flags | O_CLOEXEC, 0644)) {}
    ~File() {
        if (mFd >= 0) {
            ::close(mFd);
        }
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool isOpen() const { return mFd >= 0; }

    void checkKind() const {
        struct stat status {};
        if (::fstat(mFd, &status) != 0) {
            fail("read", mPath);
        }
        if (!S_ISREG(status.st_mode) || status.st_size != static_cast<off_t>(kFileSize)) {
            throw std::runtime_error(mPath + " is no EEP file: it must be a regular file of " +
                                     std::to_string(kFileSize) + " bytes");
        }
    }

    std::string readAll() const {
        std::string content(kFileSize, '\0');
        for (std::size_t done = 0; done < content.size();) {
            const ssize_t count = ::read(mFd, &content[done], content.size() - done);
            if (count == 0) {
                throw std::runtime_error(mPath + " became shorter while it was read");
            }
            if (count < 0 && errno != EINTR) {
                fail("read", mPath);
            }
            done += count > 0 ? static_cast<std::size_t>(count) : 0;
        }
        return content;
    }

    void writeAll(const std::string& content) const {
        for (std::size_t done = 0; done < content.size();) {
            const ssize_t count = ::write(mFd, &content[done], content.size() - done);
            if (count < 0 && errno != EINTR) {
                fail("write", mPath);
            }
            done += count > 0 ? static_cast<std::size_t>(count) : 0;
        }
    }

    void sync() const {
        if (::fsync(mFd) != 0) {
            fail("write", mPath);
        }
    }

private:
    const std::string mPath;
    const int mFd;
};

/** The file behind symbolic links, since it is replaced and not written to. */
std::string resolved(const std::string& path) {
    char real[PATH_MAX];
    return ::realpath(path.c_str(), real) != nullptr ? real : path;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

} // namespace

EepStore::EepStore() : mContent(kFileSize, '\0'), mCommitted(mContent) {}

EepStore::EepStore(const std::string& path) : EepStore() {
    mPath = resolved(path);
    // Without waiting for the other end of a pipe.
    const File file(mPath, O_RDONLY | O_NONBLOCK);
    if (file.isOpen()) {
        file.checkKind();
        mContent = mCommitted = file.readAll();
    } else if (errno == ENOENT) {
        save(mCommitted);
    } else {
        fail("read", mPath);
    }
}

bool EepStore::covers(std::int32_t address, std::int64_t length) {
    return address >= 0 && address < kSize && length <= kSize - address;
}

std::string EepStore::read(Memory memory, std::int32_t address, std::size_t length) const {
    return mContent.substr(startOf(memory) + static_cast<std::size_t>(address), length);
}

void EepStore::write(Memory memory, std::int32_t address, const std::string& bytes) {
    mContent.replace(startOf(memory) + static_cast<std::size_t>(address), bytes.size(), bytes);
}

void EepStore::commit(Memory memory) {
    std::string next = mCommitted;
    next.replace(startOf(memory), kMemorySize, mContent, startOf(memory), kMemorySize);
    if (next != mCommitted) {
        save(next);
        mCommitted = std::move(next);
    }
}

void EepStore::revert(Memory memory) {
    mContent.replace(startOf(memory), kMemorySize, mCommitted, startOf(memory), kMemorySize);
}

void EepStore::save(const std::string& content) const {
    if (mPath.empty()) {
        return;
    }
    const std::string next = mPath + ".new";
    const File file(next, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    if (!file.isOpen()) {
        fail("write", next);
    }
    file.writeAll(content);
    file.sync();
    if (::rename(next.c_str(), mPath.c_str()) != 0) {
        fail("replace", mPath);
    }
    const File folder(folderOf(mPath), O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen()) {
        fail("open", folderOf(mPath));
    }
    folder.sync();
}

} // namespace simulator
