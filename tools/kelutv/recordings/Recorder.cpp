#include "tools/kelutv/recordings/Recorder.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/recordings/LiveLine.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace kelutv::tool {

namespace {

/** What may wait for a slow disk. */
constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

std::chrono::nanoseconds clockNow() { return std::chrono::steady_clock::now().time_since_epoch(); }

} // namespace

std::chrono::nanoseconds beginSection(RecordingFile& file) {
    const recording::Header header = headerOfNow();
    const std::chrono::nanoseconds begin = clockNow();
    switch (file.write({header})) {
    case RecordingFile::Written::NoRoom:
        throw UsageError("--max-size: the header of the recording alone needs more");
    case RecordingFile::Written::Failed:
        throw ToolError(Exit::Failure, std::string("cannot write the recording: ") + std::strerror(errno));
    case RecordingFile::Written::Whole:
        break;
    }
    return begin;
}

Recorder::Recorder(RecordingFile& file, std::chrono::nanoseconds begin)
    : mFile(file), mBegin(begin), mThread(&Recorder::work, this) {}

Recorder::~Recorder() {
    if (mThread.joinable()) {
        finish("signal");
        join();
    }
}

bool Recorder::isBehind() const {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mBytes > kMostBytes;
}

void Recorder::add(TracedTransaction traced) { put(std::move(traced)); }

void Recorder::addGap(std::uint32_t count) { put(Missing{count}); }

void Recorder::finish(const std::string& reason) { put(Finish{reason}); }

void Recorder::join() { mThread.join(); }

void Recorder::put(Task task) {
    const std::size_t size = sizeOf(task);
    const std::lock_guard<std::mutex> lock(mMutex);
    mTasks.push_back(std::move(task));
    mBytes += size;
    mChange.notify_one();
}

std::deque<Recorder::Task> Recorder::takeTasks() {
    std::unique_lock<std::mutex> lock(mMutex);
    mChange.wait(lock, [this] { return !mTasks.empty(); });
    return std::exchange(mTasks, {});
}

void Recorder::work() {
    while (carryOut(takeTasks())) {
    }
}

bool Recorder::carryOut(std::deque<Task> tasks) {
    bool goesOn = true;
    for (; !tasks.empty(); tasks.pop_front()) {
        goesOn = std::visit([this](const auto& what) { return write(what); }, tasks.front()) && goesOn;
        forget(sizeOf(tasks.front()));
    }
    return goesOn;
}

std::size_t Recorder::sizeOf(const Task& task) {
    const auto* const traced = std::get_if<TracedTransaction>(&task);
    return sizeof(Task) + (traced != nullptr ? traced->request.size() + traced->reply.size() : 0);
}

void Recorder::forget(std::size_t bytes) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mBytes -= bytes;
}

bool Recorder::write(const TracedTransaction& traced) {
    if (!mIsOver && writeLine(lineOf(traced, mSequence + 1, mBegin))) {
        mTransactions += traced.kind == trace::RecordKind::Transaction ? 1 : 0;
        mEvents += traced.kind == trace::RecordKind::Event ? 1 : 0;
    }
    return true;
}

bool Recorder::write(const Missing& missing) {
    if (!mIsOver && writeLine({recording::Gap{mSequence + 1, now(), missing.count}})) {
        mLeftOut += missing.count;
    }
    return true;
}

bool Recorder::write(const Finish& finish) {
    if (!mIsOver) {
        end(finish.reason);
    }
    return false;
}

bool Recorder::writeLine(const recording::Line& line) {
    const RecordingFile::Written written = mFile.write(line);
    if (written == RecordingFile::Written::Whole) {
        ++mSequence;
        return true;
    }
    end(written == RecordingFile::Written::NoRoom ? "size" : "disk");
    return false;
}

void Recorder::end(const std::string& reason) {
    mReason = mFile.writeEnd({mSequence + 1, now(), reason}) == RecordingFile::Written::Whole ? reason : "disk";
    mIsOver = true;
}

std::int64_t Recorder::now() const { return (clockNow() - mBegin).count(); }

} // namespace kelutv::tool
