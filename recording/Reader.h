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
     * next call goes on behind it.
     */
    std::optional<Line> next();

    /** What messages call the recording. */
    const std::string& name() const { return mName; }

    /** The number of the line that came last, counted from 1. */
    std::size_t number() const { return mNumber; }

    /** Once all lines are read: whether the last was cut off. */
    bool isCutOff() const { return mIsCutOff; }

private:
    std::istream& mInput;
    std::string mName;
    std::size_t mNumber = 0;
    bool mIsCutOff = false;
};

/** A whole recording. @throws LineError, std::system_error when the file cannot be read */
std::vector<Line> linesOfFile(const std::string& path);

} // namespace kelutv::recording
