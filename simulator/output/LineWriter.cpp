#include "simulator/output/LineWriter.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <new>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kMostWaiting = std::size_t{1024} * 1024;
constexpr std::chrono::seconds kPatience{1};

std::string leftOut(std::uint64_t count) {
    return "... " + std::to_string(count) + (count == 1 ? " line" : " lines") + " left out\n";
}

} // namespace

/** What the thread shares with the object, which it may outlive. */
struct LineWriter::Queue {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::string> lines;
    std::size_t size = 0;
    std::uint64_t leftOut = 0;
    std::uint64_t added = 0;
    std::uint64_t written = 0;
    /** The reader takes nothing. */
    bool isStuck = false;
    bool isEnding = false;

    void push(std::string line) {
        const std::size_t length = line.size();
        lines.push_back(std::move(line));
        size += length;
        ++added;
        changed.notify_all();
    }

    /** Puts the line about those that were left out behind those that were not. */
    void tellWhatIsLeftOut() {
        if (leftOut > 0) {
            push(simulator::leftOut(leftOut));
            leftOut = 0;
        }
    }

    /** The next line; empty at the end. */
    std::string next() {
        std::unique_lock<std::mutex> lock(mutex);
        if (lines.empty()) {
            try {
                tellWhatIsLeftOut();
            } catch (const std::bad_alloc&) {
                // Told with the next line.
            }
        }
        changed.wait(lock, [this] { return !lines.empty() || isEnding; });
        if (lines.empty()) {
            return "";
        }
        std::string line = std::move(lines.front());
        lines.pop_front();
        size -= line.size();
        return line;
    }

    void setStuck(bool stuck) {
        const std::lock_guard<std::mutex> lock(mutex);
        isStuck = stuck;
        changed.notify_all();
    }

    void countWritten() {
        const std::lock_guard<std::mutex> lock(mutex);
        ++written;
        isStuck = false;
        changed.notify_all();
    }

    /** Waits until this many are written; false when it takes too long. */
    bool waitFor(std::uint64_t count, std::unique_lock<std::mutex>& lock) {
        return changed.wait_for(lock, kPatience, [this, count] { return written >= count || isStuck; });
    }
};

namespace {

/** Waits for a reader, and says beforehand if there is something to wait for; false when nobody will read. */
template <typename Stuck> bool waitForReader(int descriptor, const Stuck& stuck) {
    pollfd ready{descriptor, POLLOUT, 0};
    if (::poll(&ready, 1, 0) == 0) {
        stuck();
        while (::poll(&ready, 1, -1) < 0 && errno == EINTR) {
        }
    }
    return (ready.revents & (POLLERR | POLLNVAL)) == 0;
}

} // namespace

LineWriter::LineWriter(int descriptor)
    : mQueue(std::make_shared<Queue>()), mThread([descriptor, queue = mQueue] { write(descriptor, *queue); }) {}

LineWriter::~LineWriter() {
    finish();
    bool isDone = false;
    {
        const std::lock_guard<std::mutex> lock(mQueue->mutex);
        mQueue->isEnding = true;
        mQueue->changed.notify_all();
        isDone = mQueue->written == mQueue->added;
    }
    isDone ? mThread.join() : mThread.detach();
}

void LineWriter::add(std::string line) {
    const std::lock_guard<std::mutex> lock(mQueue->mutex);
    if (mQueue->size > kMostWaiting) {
        ++mQueue->leftOut;
        return;
    }
    mQueue->tellWhatIsLeftOut();
    mQueue->push(std::move(line) + '\n');
}

void LineWriter::flush() {
    std::unique_lock<std::mutex> lock(mQueue->mutex);
    if (!mQueue->waitFor(mQueue->added, lock)) {
        mQueue->isStuck = true; // Others need not find out for themselves.
    }
}

void LineWriter::finish() {
    std::unique_lock<std::mutex> lock(mQueue->mutex);
    mQueue->tellWhatIsLeftOut();
    bool isTaken = true;
    while (isTaken && mQueue->written < mQueue->added) {
        const std::uint64_t before = mQueue->written;
        isTaken = mQueue->changed.wait_for(lock, kPatience, [&] { return mQueue->written > before; });
    }
}

void LineWriter::write(int descriptor, Queue& queue) {
    for (std::string line = queue.next(); !line.empty(); line = queue.next()) {
        std::size_t done = 0;
        while (done < line.size() && waitForReader(descriptor, [&queue] { queue.setStuck(true); })) {
            // So much a pipe takes as a whole once it takes anything.
            const ssize_t count = ::write(descriptor, &line[done], std::min<std::size_t>(line.size() - done, PIPE_BUF));
            if (count < 0 && errno != EINTR && errno != EAGAIN) {
                break;
            }
            done += count > 0 ? static_cast<std::size_t>(count) : 0;
        }
        queue.countWritten();
    }
}

} // namespace kelutv::simulator
