#include "tools/kelutv/recordings/RecordingFile.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Shown.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kelutv::tool {

namespace {

/** More than the line of an end has. */
constexpr std::uint64_t kRoomForEnd = 128;
constexpr mode_t kMode = 0666;

[[noreturn]] void failToWrite(const std::string& path) {
    throw ToolError(Exit::Failure,
                    "cannot write to " + wire::shown(path, wire::kMostOfPath) + ": " + std::strerror(errno));
}

} // namespace

RecordingFile::RecordingFile(std::string path, std::uint64_t most)
    : mPath(std::move(path)), mFd(::open(mPath.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, kMode)), mMost(most) {
    if (mFd < 0) {
        failToWrite(mPath);
    }
    struct stat status {};
    mIsRegular = ::fstat(mFd, &status) == 0 && S_ISREG(status.st_mode);
}

RecordingFile::~RecordingFile() { ::close(mFd); }

bool RecordingFile::lock() { return !mIsRegular || ::flock(mFd, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK; }

void RecordingFile::replace() { mIsReplaced = mIsRegular; }

void RecordingFile::goOn() {
    const off_t end = ::lseek(mFd, 0, SEEK_END);
    auto size = static_cast<std::uint64_t>(end > 0 ? end : 0);
    char last = '\n';
    while (size > 0 && ::pread(mFd, &last, 1, static_cast<off_t>(size - 1)) == 1 && last != '\n') {
        --size;
    }
    if (!cutBehind(size)) {
        failToWrite(mPath);
    }
}

bool RecordingFile::cutBehind(std::uint64_t size) {
    mSize = size;
    return !mIsRegular || ::ftruncate(mFd, static_cast<off_t>(size)) == 0;
}

RecordingFile::Written RecordingFile::write(const recording::Line& line) {
    const std::string text = recording::textOf(line) + '\n';
    return mMost != 0 && mSize + text.size() + kRoomForEnd > mMost ? Written::NoRoom : append(text);
}

RecordingFile::Written RecordingFile::writeEnd(const recording::End& end) {
    return append(recording::textOf({end}) + '\n');
}

RecordingFile::Written RecordingFile::append(const std::string& text) {
    if (mIsReplaced && !cutBehind(0)) {
        return Written::Failed;
    }
    mIsReplaced = false;
    for (std::size_t written = 0; written < text.size();) {
        const ssize_t length = ::write(mFd, text.data() + written, text.size() - written);
        if (length < 0 && errno != EINTR) {
            // What a pipe has taken stays with its reader.
            [[maybe_unused]] const int ignored = ::ftruncate(mFd, static_cast<off_t>(mSize));
            return Written::Failed;
        }
        written += length > 0 ? static_cast<std::size_t>(length) : 0;
    }
    mSize += text.size();
    return Written::Whole;
}

} // namespace kelutv::tool
