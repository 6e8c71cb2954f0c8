#include "tools/kelutv/recordings/RecordingInput.h"

#include "recording/Origin.h"
#include "tools/kelutv/output/Errors.h"
#include "wire/text/Shown.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <system_error>

namespace kelutv::tool {

namespace {

std::ifstream opened(const std::string& path) {
    const auto fail = [&path](const std::string& why) {
        throw ToolError(Exit::Failure, "cannot read " + wire::shown(path, wire::kMostOfPath) + ": " + why);
    };
    if (std::error_code ignored; std::filesystem::is_directory(path, ignored)) {
        fail("it is a directory, and a recording is needed");
    }
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) {
        fail(std::strerror(errno));
    }
    return file;
}

} // namespace

RecordingInput::RecordingInput(const std::string& path)
    : mFile(path == "-" ? std::ifstream() : opened(path)),
      mReader(path == "-" ? std::cin : static_cast<std::istream&>(mFile), path == "-" ? "standard input" : path) {}

std::optional<recording::Line> RecordingInput::next() {
    try {
        auto line = mReader.next();
        const auto* const header = line ? std::get_if<recording::Header>(&line->content) : nullptr;
        if (header != nullptr && !recording::isInOwnOrder(*header)) {
            throw ToolError(Exit::Failure, mReader.name() + ':' + std::to_string(mReader.number()) +
                                               ": the bytes are in another order than those of this machine");
        }
        if (mReader.number() == 0) {
            throw ToolError(Exit::Failure, mReader.name() + " has no line, and a recording begins with a header");
        }
        return line;
    } catch (const recording::LineError& error) {
        throw ToolError(Exit::Failure, error.what());
    }
}

} // namespace kelutv::tool
