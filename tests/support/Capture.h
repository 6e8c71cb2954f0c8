#pragma once

#include "support/OutputFile.h"
#include "tools/process/Redirection.h"

#include <kqlog/capture.h>

#include <mutex>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace kelutv::test {

/** One call of the platform log: the tag is missing when a null tag was passed; the text keeps its line end. */
struct LogEntry {
    int priority;
    std::optional<std::string> tag;
    std::string text;
};

bool operator==(const LogEntry& a, const LogEntry& b);
std::ostream& operator<<(std::ostream& out, const LogEntry& entry);

/**
 * Gathers what this process writes to the platform log, from construction to destruction, but for the runtime's line on
 * the transport that it takes.
 */
class LogCapture : private kqlog::Sink {
public:
    LogCapture();
    ~LogCapture() override;
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /** The entries since the last take. */
    std::vector<LogEntry> take();

private:
    void write(int priority, const char* tag, const char* text) override;

    std::mutex mMutex;
    std::vector<LogEntry> mEntries;
};

/** Takes over a standard descriptor; what is never taken goes to the real descriptor at the end. */
class FdCapture {
public:
    explicit FdCapture(int fd);
    ~FdCapture();
    FdCapture(const FdCapture&) = delete;
    FdCapture& operator=(const FdCapture&) = delete;

    /** What was written since the last take. */
    std::string take();

    /** Waits until the text written contains the part. */
    bool waitFor(const std::string& part, std::chrono::milliseconds patience = kPatience) const;

private:
    int mFd;
    OutputFile mFile;
    std::optional<process::Redirection> mRedirection;
};

} // namespace kelutv::test
