#include "support/Capture.h"

#include "support/FailureReports.h"

#include <android/log.h>

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <system_error>
#include <utility>

namespace kelutv::test {

bool operator==(const LogEntry& a, const LogEntry& b) {
    return a.priority == b.priority && a.tag == b.tag && a.text == b.text;
}

std::ostream& operator<<(std::ostream& out, const LogEntry& entry) {
    return out << '{' << entry.priority << ", " << (entry.tag ? '"' + *entry.tag + '"' : "no tag") << ", \""
               << entry.text << "\"}";
}

namespace {

/** The runtime's one verbose line a process, which comes with whatever is first to use it. */
bool isChoiceOfTransport(int priority, const char* tag) {
    return priority == ANDROID_LOG_VERBOSE && tag != nullptr && std::strcmp(tag, "kqdroid") == 0;
}

} // namespace

LogCapture::LogCapture() { kqlog::installSink(this); }

LogCapture::~LogCapture() { kqlog::removeSink(); }

std::vector<LogEntry> LogCapture::take() {
    const std::lock_guard lock(mMutex);
    return std::exchange(mEntries, {});
}

void LogCapture::write(int priority, const char* tag, const char* text) {
    if (isChoiceOfTransport(priority, tag)) {
        return;
    }
    const std::lock_guard lock(mMutex);
    mEntries.push_back({priority, tag != nullptr ? std::optional<std::string>(tag) : std::nullopt, text});
}

FdCapture::FdCapture(int fd) : mFd(fd) {
    keepFailureReportsOutOfCaptures();
    mRedirection.emplace(fd, mFile.fd());
    if (!mRedirection->isActive()) {
        throw std::system_error(errno, std::generic_category(), "cannot take over descriptor " + std::to_string(fd));
    }
}

FdCapture::~FdCapture() {
    const std::string rest = take();
    mRedirection.reset();
    std::fwrite(rest.data(), 1, rest.size(), mFd == STDERR_FILENO ? stderr : stdout);
}

std::string FdCapture::take() {
    std::fflush(nullptr);
    return mFile.take();
}

bool FdCapture::waitFor(const std::string& part, std::chrono::milliseconds patience) const {
    return mFile.waitFor(part, patience);
}

} // namespace kelutv::test
