#pragma once

#include "recording/Line.h"

#include <cstddef>
#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::recording {

/** Reads a recording line by line; the stream must outlive it. */
class Reader {
public:
    /** @param name what messages call the recording */
    Reader(std::istream& input, const std::string& name);

    /**
     * The next whole line; nothing at the end. What stands behind the last line end was cut off and is no line.
     *
     * @throws LineError `NAME:NUMBER: ...` when the line is not one of a recording, or the first is no header. The
     * next call goes on behind it, unless that line is longer than 64 MiB: then it was the last.
     */
    std::optional<Line> next();

    /** What messages call the recording. */
    const std::string& name() const { return mName; }

    /** The number of the line that came last, counted from 1. */
    std::size_t number() const { return mNumber; }

    /** Once all lines are read: whether the last was cut off, or not read to its end. */
    bool isCutOff() const { return mIsCutOff; }

private:
    std::optional<std::string> nextText();

    std::istream& mInput;
    std::string mName;
    std::string mBlock;
    std::size_t mNumber = 0;
    bool mIsCutOff = false;
};

/** A whole recording. @throws LineError, std::system_error when the file cannot be read */
std::vector<Line> linesOfFile(const std::string& path);

} // namespace kelutv::recording
