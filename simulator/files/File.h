#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace kelutv::simulator {

/** @throws std::runtime_error always: what cannot be done with which file, and the reason in `errno` */
[[noreturn]] void failToUse(const std::string& what, const std::string& path);

/** A file, closed with the object. */
class File {
public:
    /** Opens or creates it, as the flags say; `isOpen` is false when that fails, with the reason in `errno`. */
    File(const std::string& path, int flags);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    const std::string& path() const { return mPath; }
    bool isOpen() const { return mFd >= 0; }

    /** Locks it until it is closed; false when another process has done so. */
    bool lock() const;

    /** Whether it is still the file at its path. */
    bool hasItsName() const;

    bool isRegular() const;
    std::size_t size() const;

    /** @throws std::runtime_error unless exactly that many bytes are there to be read */
    std::string read(std::size_t length) const;

    /** @throws std::runtime_error when not everything could be written */
    void write(const std::string& content) const;

    /** Flushes what was written to the disk. @throws std::runtime_error when that fails */
    void sync() const;

private:
    const std::string mPath;
    const int mFd;
};

/**
 * The content of a file of moderate size, which has not been read yet.
 * @throws std::runtime_error when it cannot be read, is not a regular file or is too long
 */
std::string contentOf(const File& file);

/**
 * The content of a file of moderate size.
 * @throws std::runtime_error when it cannot be read, is not a regular file or is too long
 */
std::string readRegularFile(const std::string& path);

/** The file behind symbolic links; the path as it is when there is none. */
std::string resolvedPath(const std::string& path);

/** What the new content survives: the end of the process, however it comes, or a power failure, too. */
enum class Outlives { Process, Machine };

/**
 * Removes what a process that was killed while it replaced the file has left behind.
 * @throws std::runtime_error when another process is replacing it, or when something else has the name
 */
void removeNextTo(const std::string& path);

/**
 * Gives the file this content: it is written under another name, flushed to the disk if need be, and renamed.
 * @return the new file, locked
 * @throws std::runtime_error when that fails; the file keeps its content
 */
std::unique_ptr<File> replaceFile(const std::string& path, const std::string& content,
                                  Outlives outlives = Outlives::Machine);

} // namespace kelutv::simulator
