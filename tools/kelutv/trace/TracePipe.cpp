#include "tools/kelutv/trace/TracePipe.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/trace/MeetingPlace.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace kelutv::tool {

namespace {

using trace::FrameHeader;
using trace::RecordHeader;

constexpr int kPipeSize = 1024 * 1024;

[[noreturn]] void fail(const std::string& what) { throw ToolError(Exit::Failure, what + ": " + std::strerror(errno)); }

std::string makeDirectory() {
    std::string path = trace::temporaryFolder() + "/kelutv-trace-XXXXXX";
    if (::mkdtemp(path.data()) == nullptr) {
        fail("cannot make the directory " + path);
    }
    return path;
}

bool isWhole(const FrameHeader& frame, const Bytes& record) {
    RecordHeader header{};
    if (record.size() != frame.total || record.size() < sizeof(header)) {
        return false;
    }
    std::memcpy(&header, record.data(), sizeof(header));
    return std::uint64_t{header.requestSize} + header.replySize + sizeof(header) == record.size();
}

TracedTransaction transactionOf(const FrameHeader& frame, const Bytes& record) {
    RecordHeader header{};
    std::memcpy(&header, record.data(), sizeof(header));
    const auto request = record.begin() + sizeof(header);
    const auto reply = request + header.requestSize;
    return {header.kind,
            frame.process,
            frame.thread,
            std::chrono::nanoseconds(header.startNanoseconds),
            std::chrono::nanoseconds(header.beginNanoseconds),
            std::chrono::nanoseconds(header.durationNanoseconds),
            header.value,
            {request, reply},
            {reply, reply + header.replySize}};
}

} // namespace

TracePipe::TracePipe(const TraceWishes& wishes) : TracePipe(makeDirectory(), wishes) {}

TracePipe::TracePipe(std::string folder, const TraceWishes& wishes)
    : mDirectory(std::move(folder)), mPath(trace::pipeIn(mDirectory)) {
    ::unlink(mPath.c_str());
    ::unlink((mPath + trace::kNotesSuffix).c_str());
    if (!makeNotes(wishes) || !makePipe()) {
        const int error = errno;
        remove();
        errno = error;
        fail("cannot make the pipe " + mPath);
    }
}

TracePipe::~TracePipe() {
    close();
    ::munmap(mNotes, sizeof(trace::Notes));
    remove();
}

bool TracePipe::makePipe() {
    // Open for writing, too: then it does not end when a program does.
    if (::mkfifo(mPath.c_str(), S_IRUSR | S_IWUSR) != 0 ||
        (mFd = ::open(mPath.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC)) < 0) {
        return false;
    }
    ::fcntl(mFd, F_SETPIPE_SZ, kPipeSize); // Else it has the usual size, which will do, too.
    return true;
}

bool TracePipe::makeNotes(const TraceWishes& wishes) {
    const int fd =
        ::open((mPath + trace::kNotesSuffix).c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (fd < 0) {
        return false;
    }
    void* const memory = ::ftruncate(fd, sizeof(trace::Notes)) == 0
                             ? ::mmap(nullptr, sizeof(trace::Notes), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0)
                             : MAP_FAILED;
    ::close(fd);
    if (memory == MAP_FAILED) {
        return false;
    }
    mNotes = static_cast<trace::Notes*>(memory);
    mNotes->patience = static_cast<std::int32_t>(wishes.patience.count());
    for (const trace::RecordKind kind : wishes.kinds) {
        mNotes->wanted |= static_cast<std::uint32_t>(kind);
    }
    return true;
}

void TracePipe::remove() {
    ::unlink((mPath + trace::kNotesSuffix).c_str());
    ::unlink(mPath.c_str());
    ::rmdir(mDirectory.c_str());
    if (mFd >= 0) {
        ::close(mFd);
    }
}

void TracePipe::close() { mNotes->wanted = 0; }

std::uint32_t TracePipe::takeLeftOut() { return mNotes->leftOut.exchange(0); }

std::vector<TracedTransaction> TracePipe::take() {
    std::vector<TracedTransaction> transactions;
    std::uint8_t buffer[65536];
    for (ssize_t length = 0; (length = ::read(mFd, buffer, sizeof(buffer))) > 0;) {
        mUnread.insert(mUnread.end(), buffer, buffer + length);
        takeFrames(transactions);
    }
    return transactions;
}

void TracePipe::takeFrames(std::vector<TracedTransaction>& transactions) {
    std::size_t position = 0;
    FrameHeader frame{};
    while (mUnread.size() - position >= sizeof(frame)) {
        std::memcpy(&frame, mUnread.data() + position, sizeof(frame));
        if (mUnread.size() - position - sizeof(frame) < frame.length) {
            break;
        }
        append(frame, mUnread.data() + position + sizeof(frame), transactions);
        position += sizeof(frame) + frame.length;
    }
    mUnread.erase(mUnread.begin(), mUnread.begin() + static_cast<std::ptrdiff_t>(position));
}

void TracePipe::append(const trace::FrameHeader& frame, const std::uint8_t* piece,
                       std::vector<TracedTransaction>& transactions) {
    const std::pair<std::int32_t, std::int32_t> writer(frame.process, frame.thread);
    Bytes& record = mRecords[writer];
    if (frame.offset == 0) {
        record.clear(); // What was begun and not ended is forgotten.
    }
    if (record.size() == frame.offset) {
        record.insert(record.end(), piece, piece + frame.length);
    }
    if (isWhole(frame, record)) {
        transactions.push_back(transactionOf(frame, record));
        mRecords.erase(writer);
    }
}

} // namespace kelutv::tool
