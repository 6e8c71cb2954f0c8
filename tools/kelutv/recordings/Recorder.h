#pragma once

#include "tools/kelutv/recordings/RecordingFile.h"
#include "tools/kelutv/trace/TracePipe.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <variant>

namespace kelutv::tool {

/**
 * Writes the header of a section that begins now.
 *
 * @return time 0 of the section, by the clock that nobody sets
 * @throws ToolError when it cannot be written, UsageError when the limit is below it
 */
std::chrono::nanoseconds beginSection(RecordingFile& file);

/**
 * Decodes and writes on a thread of its own, so that a slow disk delays neither the programs nor whoever takes what
 * they send. To be made when all signals that are waited for are blocked.
 */
class Recorder {
public:
    /** @param file which must live longer @param begin what `beginSection` gave */
    Recorder(RecordingFile& file, std::chrono::nanoseconds begin);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /** Whether it is so far behind that what comes had better stay where it is. */
    bool isBehind() const;

    /** What is added once it is over is dropped. */
    void add(TracedTransaction traced);
    void addGap(std::uint32_t count);

    /** Whether the disk or the limit has ended the recording. */
    bool isOver() const { return mIsOver; }

    /** What was added is written, and then the end; nothing is added behind that. Does not wait. */
    void finish(const std::string& reason);

    /** Waits until all is written; once, behind `finish`. */
    void join();

    /** @name To be asked behind `join`. @{ */
    /** Why it ended: the reason, or `size` or `disk`. */
    const std::string& reason() const { return mReason; }
    std::size_t transactions() const { return mTransactions; }
    std::size_t events() const { return mEvents; }
    std::size_t leftOut() const { return mLeftOut; }
    /** @} */

private:
    struct Missing {
        std::uint32_t count;
    };
    struct Finish {
        std::string reason;
    };
    using Task = std::variant<TracedTransaction, Missing, Finish>;

    static std::size_t sizeOf(const Task& task);
    void put(Task task);
    std::deque<Task> takeTasks();
    void work();
    /** @return whether there is more to come */
    bool carryOut(std::deque<Task> tasks);
    void forget(std::size_t bytes);
    bool write(const TracedTransaction& traced);
    bool write(const Missing& missing);
    bool write(const Finish& finish);
    bool writeLine(const recording::Line& line);
    void end(const std::string& reason);
    std::int64_t now() const;

    RecordingFile& mFile;
    std::chrono::nanoseconds mBegin;
    std::int64_t mSequence = 0;
    std::string mReason;
    std::size_t mTransactions = 0;
    std::size_t mEvents = 0;
    std::size_t mLeftOut = 0;
    std::atomic<bool> mIsOver{false};

    mutable std::mutex mMutex;
    std::condition_variable mChange;
    std::deque<Task> mTasks;
    /** Of what is not written yet. */
    std::size_t mBytes = 0;
    std::thread mThread;
};

} // namespace kelutv::tool
