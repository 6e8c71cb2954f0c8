#include "Line.h"

#include <android/log.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace kqlog {

namespace {

char letterOf(int priority) {
    const bool known = priority >= ANDROID_LOG_VERBOSE && priority <= ANDROID_LOG_SILENT;
    return known ? "VDIWEFS"[priority - ANDROID_LOG_VERBOSE] : '?';
}

} // namespace

Line::Line(int priority, const char* tag) {
    char ids[32];
    std::snprintf(ids, sizeof(ids), "  %d/%d ", getpid(), gettid());
    put(letterOf(priority));
    put(' ');
    append(tag != nullptr ? tag : "-");
    append(ids);
}

Line::~Line() {
    if (mData != mInline) {
        std::free(mData);
    }
}

void Line::append(std::string_view text) {
    for (const char c : text) {
        if (c == '\n') {
            put('\\');
            put('n');
        } else {
            put(c);
        }
    }
}

int Line::write() {
    mData[mSize++] = '\n';
    const char* next = mData;
    std::size_t left = mSize;
    while (left > 0) {
        const ssize_t written = ::write(STDERR_FILENO, next, left);
        if (written < 0 && errno != EINTR) {
            return -errno;
        }
        if (written > 0) {
            next += written;
            left -= static_cast<std::size_t>(written);
        }
    }
    return 1;
}

/** Always leaves room for the line end; without memory the line is cut. */
void Line::put(char c) {
    if (mSize + 1 < mCapacity || grow()) {
        mData[mSize++] = c;
    }
}

bool Line::grow() {
    char* larger = static_cast<char*>(std::malloc(mCapacity * 2));
    if (larger == nullptr) {
        return false;
    }
    std::memcpy(larger, mData, mSize);
    if (mData != mInline) {
        std::free(mData);
    }
    mData = larger;
    mCapacity *= 2;
    return true;
}

} // namespace kqlog
