#include "tools/kelutv/recordings/RecordingOutput.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/StandardOutput.h"
#include "wire/text/Shown.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kelutv::tool {

RecordingOutput::RecordingOutput(std::string path) : mPath(std::move(path)), mFile(nullptr, std::fclose) {
    if (mPath.empty()) {
        return;
    }
    mTemporary = mPath + '.' + std::to_string(::getpid());
    mFile.reset(std::fopen(mTemporary.c_str(), "wxe"));
    if (mFile == nullptr) {
        fail();
    }
}

RecordingOutput::~RecordingOutput() {
    if (mFile != nullptr) {
        ::unlink(mTemporary.c_str());
    }
}

void RecordingOutput::write(const std::string& text) {
    if (mFile == nullptr) {
        writeData(text);
    } else if (std::fwrite(text.data(), 1, text.size(), mFile.get()) != text.size()) {
        fail();
    }
}

void RecordingOutput::finish() {
    if (mFile == nullptr) {
        return;
    }
    if (std::fflush(mFile.get()) != 0 || std::rename(mTemporary.c_str(), mPath.c_str()) != 0) {
        fail();
    }
    mFile.reset();
}

void RecordingOutput::fail() const {
    throw ToolError(Exit::Failure,
                    "cannot write to " + wire::shown(mPath, wire::kMostOfPath) + ": " + std::strerror(errno));
}

} // namespace kelutv::tool
