#include "tools/kelutv/recordings/RecordingFile.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Shown.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

namespace kelutv::tool {

namespace {

/** More than the line of an end has. */
constexpr std::uint64_t kRoomForEnd = 128;
constexpr mode_t kMode = 0666;
constexpr std::size_t kBlock = 65536;

[[noreturn]] void failTo(const std::string& what, const std::string& path) {
    throw ToolError(Exit::Failure,
                    "cannot " + what + ' ' + wire::shown(path, wire::kMostOfPath) + ": " + std::strerror(errno));
}

bool isHeader(const std::string& line) {
    try {
        return std::holds_alternative<recording::Header>(recording::lineOf(line).content);
    } catch (const recording::LineError&) {
        return false;
    }
}

/** Whether the text may be that of a header that was cut off. */
bool isBeginning(const std::string& text) {
    constexpr std::string_view kBeginning = R"({"kind":"header",)";
    return text.substr(0, kBeginning.size()) == kBeginning.substr(0, text.size());
}

} // namespace

RecordingFile::RecordingFile(std::string path, std::uint64_t most)
    : mPath(std::move(path)), mFd(::open(mPath.c_str(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, kMode)), mMost(most) {
    if (mFd < 0) {
        failTo("write to", mPath);
    }
    struct stat status {};
    mIsRegular = ::fstat(mFd, &status) == 0 && S_ISREG(status.st_mode);
}

RecordingFile::~RecordingFile() { ::close(mFd); }

bool RecordingFile::lock() { return !mIsRegular || ::flock(mFd, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK; }

void RecordingFile::replace() { mIsReplaced = mIsRegular; }

void RecordingFile::goOn() {
    requireRecording();
    if (!cutBehind(sizeOfWholeLines())) {
        failTo("write to", mPath);
    }
}

void RecordingFile::requireRecording() const {
    const std::string text = read(0, kBlock);
    const std::size_t end = text.find('\n');
    if (end == std::string::npos ? !isBeginning(text) : !isHeader(text.substr(0, end))) {
        throw ToolError(Exit::Failure, "cannot add to " + wire::shown(mPath, wire::kMostOfPath) +
                                           ": it does not begin as a recording does");
    }
}

std::uint64_t RecordingFile::sizeOfWholeLines() const {
    const off_t end = ::lseek(mFd, 0, SEEK_END);
    for (auto to = static_cast<std::uint64_t>(std::max<off_t>(end, 0)); to > 0;) {
        const std::uint64_t from = to - std::min<std::uint64_t>(to, kBlock);
        const std::size_t last = read(from, static_cast<std::size_t>(to - from)).rfind('\n');
        if (last != std::string::npos) {
            return from + last + 1;
        }
        to = from;
    }
    return 0;
}

std::string RecordingFile::read(std::uint64_t from, std::size_t length) const {
    std::string text(length, '\0');
    const ssize_t got = ::pread(mFd, text.data(), length, static_cast<off_t>(from));
    if (got < 0) {
        failTo("read", mPath);
    }
    text.resize(static_cast<std::size_t>(got));
    return text;
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
            const int reason = errno;
            // What a pipe has taken stays with its reader.
            [[maybe_unused]] const int ignored = ::ftruncate(mFd, static_cast<off_t>(mSize));
            errno = reason;
            return Written::Failed;
        }
        written += length > 0 ? static_cast<std::size_t>(length) : 0;
    }
    mSize += text.size();
    return Written::Whole;
}

} // namespace kelutv::tool
