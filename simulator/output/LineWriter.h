#pragma once

#include <memory>
#include <string>
#include <thread>

namespace kelutv::simulator {

/**
 * Writes lines to a descriptor in a thread of its own, so that a reader that stops keeps nobody waiting.
 *
 * Lines wait in a queue of at most 1 MiB. Those that come while it is full are left out, and `... 17 lines left out`
 * stands for them.
 */
class LineWriter {
public:
    /** The descriptor must stay open until the end of the process. */
    explicit LineWriter(int descriptor);

    /** Does `finish`. */
    ~LineWriter();
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    /** Never waits. */
    void add(std::string line);

    /** Waits until what has been added is written, but not for a reader that takes nothing. */
    void flush();

    /** Waits until what has been added is written; gives up when nothing has been taken for a second. */
    void finish();

private:
    struct Queue;

    static void write(int descriptor, Queue& queue);

    const std::shared_ptr<Queue> mQueue;
    std::thread mThread;
};

} // namespace kelutv::simulator
