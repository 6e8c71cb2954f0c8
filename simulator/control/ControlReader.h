#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace kelutv::simulator {

/**
 * Reads lines for the control channel from a file, in a thread of its own, until the file or the object ends.
 *
 * Lines longer than `kLongestLine` are dropped.
 */
class ControlReader {
public:
    using Receiver = std::function<void(const std::string& line)>;

    /**
     * @param path a file or a named pipe, which may be written to again and again; `-` for standard input
     * @throws std::runtime_error when it cannot be opened
     */
    ControlReader(const std::string& path, Receiver receiver);
    ~ControlReader();
    ControlReader(const ControlReader&) = delete;
    ControlReader& operator=(const ControlReader&) = delete;

private:
    void read();
    void handOn(const char* bytes, std::size_t count);
    void endLine();

    const Receiver mReceiver;
    std::string mLine;
    int mChannel = -1;
    int mStop = -1;
    /** Seen also when nothing can be waited for. */
    std::atomic<bool> mIsEnding{false};
    std::thread mThread;
};

} // namespace kelutv::simulator
