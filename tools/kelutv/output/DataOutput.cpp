#include "tools/kelutv/output/DataOutput.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/StandardOutput.h"
#include "wire/text/Shown.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace kelutv::tool {

namespace {

/** What the path leads to when all links are followed; the path when nobody can say. */
std::string targetOf(const std::string& path) {
    std::error_code error;
    const std::string target = std::filesystem::canonical(path, error).string();
    return error ? path : target;
}

} // namespace

DataOutput::DataOutput(std::string path) : mPath(std::move(path)), mFile(nullptr, std::fclose) {
    if (mPath.empty()) {
        return;
    }
    struct stat there {};
    const bool isThere = ::stat(mPath.c_str(), &there) == 0;
    if (isThere && !S_ISREG(there.st_mode)) {
        mFile.reset(std::fopen(mPath.c_str(), "we"));
    } else {
        mTarget = isThere ? targetOf(mPath) : mPath;
        mTemporary = mTarget + '.' + std::to_string(::getpid());
        mFile.reset(std::fopen(mTemporary.c_str(), "wxe"));
    }
    if (mFile == nullptr) {
        fail();
    }
    if (isThere && !mTemporary.empty()) {
        // Where a disk knows no modes, there is none to keep.
        [[maybe_unused]] const int ignored = ::fchmod(::fileno(mFile.get()), there.st_mode);
    }
}

DataOutput::~DataOutput() {
    if (mFile != nullptr && !mTemporary.empty()) {
        ::unlink(mTemporary.c_str());
    }
}

void DataOutput::write(const std::string& text) {
    if (mFile == nullptr) {
        writeData(text);
    } else if (std::fwrite(text.data(), 1, text.size(), mFile.get()) != text.size()) {
        fail();
    }
}

void DataOutput::finish() {
    if (mFile == nullptr) {
        return;
    }
    if (std::fflush(mFile.get()) != 0 ||
        (!mTemporary.empty() && std::rename(mTemporary.c_str(), mTarget.c_str()) != 0)) {
        fail();
    }
    mFile.reset();
}

void DataOutput::fail() const {
    throw ToolError(Exit::Failure,
                    "cannot write to " + wire::shown(mPath, wire::kMostOfPath) + ": " + std::strerror(errno));
}

} // namespace kelutv::tool
