#pragma once

#include "support/Deadline.h"

#include <string>

namespace kelutv::test {

/** An unnamed file that a descriptor or a child process writes to and the test reads from. */
class OutputFile {
public:
    OutputFile();
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    int fd() const { return mFd; }

    /** Everything written since the file was made. */
    std::string text() const;

    /** Everything written since the last take. */
    std::string take();

    /** Waits until the text written contains the part. */
    bool waitFor(const std::string& part, std::chrono::milliseconds patience = kPatience) const;

    /** The same, and for the end of the line that contains it. */
    bool waitForLine(const std::string& part, std::chrono::milliseconds patience = kPatience) const;

private:
    std::string readFrom(long offset) const;

    int mFd;
    long mTaken = 0;
};

} // namespace kelutv::test
