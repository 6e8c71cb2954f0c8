#include "simulator/files/OwnFile.h"

#include <fcntl.h>

#include <cerrno>
#include <stdexcept>
#include <utility>

namespace kelutv::simulator {

namespace {

[[noreturn]] void failToShare(const std::string& path) {
    throw std::runtime_error(path + " is in use by another process; give each simulator a file of its own");
}

/** The locked file that has the name now; null when there is none. */
std::unique_ptr<File> lockedFile(const std::string& path) {
    for (;;) {
        // Without waiting for the other end of a pipe.
        auto file = std::make_unique<File>(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
        if (!file->isOpen()) {
            if (errno == ENOENT) {
                return nullptr;
            }
            failToUse("read", path);
        }
        if (!file->lock()) {
            failToShare(path);
        }
        if (file->hasItsName()) {
            return file;
        }
    }
}

} // namespace

OwnFile::OwnFile(const std::string& path) : mPath(resolvedPath(path)), mFile(lockedFile(mPath)) {
    if (mFile != nullptr && mFile->isRegular()) {
        removeNextTo(mPath);
    }
}

void OwnFile::replace(const std::string& content, Outlives outlives) { mFile = replaceFile(mPath, content, outlives); }

} // namespace kelutv::simulator
