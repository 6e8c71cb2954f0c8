#include "support/OutputFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace kelutv::test {

OutputFile::OutputFile() : mFd(::memfd_create("kelutv-test-output", MFD_CLOEXEC)) {
    // Several threads write at once, and such a file gives them no common position of its own.
    if (mFd < 0 || ::fcntl(mFd, F_SETFL, O_APPEND) < 0) {
        throw std::system_error(errno, std::generic_category(), "cannot make a file for captured output");
    }
}

OutputFile::~OutputFile() { ::close(mFd); }

std::string OutputFile::text() const { return readFrom(0); }

std::string OutputFile::take() {
    std::string fresh = readFrom(mTaken);
    mTaken += static_cast<long>(fresh.size());
    return fresh;
}

bool OutputFile::waitFor(const std::string& part, std::chrono::milliseconds patience) const {
    return eventually([&] { return text().find(part) != std::string::npos; }, patience);
}

bool OutputFile::waitForLine(const std::string& part, std::chrono::milliseconds patience) const {
    return eventually(
        [&] {
            const std::string written = text();
            const std::size_t place = written.find(part);
            return place != std::string::npos && written.find('\n', place) != std::string::npos;
        },
        patience);
}

std::string OutputFile::readFrom(long offset) const {
    std::string text;
    char block[4096];
    ssize_t got = 0;
    while ((got = ::pread(mFd, block, sizeof block, offset)) > 0) {
        text.append(block, static_cast<std::size_t>(got));
        offset += static_cast<long>(got);
    }
    return text;
}

} // namespace kelutv::test
