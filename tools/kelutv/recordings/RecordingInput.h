#pragma once

#include "recording/Reader.h"

#include <fstream>
#include <optional>
#include <string>

namespace kelutv::tool {

/** A recording that a command reads, from a file or, for `-`, from standard input. */
class RecordingInput {
public:
    /** @throws ToolError when it cannot be read */
    explicit RecordingInput(const std::string& path);

    /** As `recording::Reader::next`. @throws ToolError in place of LineError, for a file without any line, and for a
     * section whose bytes are in another order than those of this machine */
    std::optional<recording::Line> next();

    recording::Reader& reader() { return mReader; }

private:
    std::ifstream mFile;
    recording::Reader mReader;
};

} // namespace kelutv::tool
