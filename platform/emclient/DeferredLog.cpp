#include "DeferredLog.h"

#include <android/log.h>

#include <cstdarg>
#include <cstdio>

#include "Event.h"

namespace keluem {

bool OncePerSecond::due() {
    const auto now = std::chrono::steady_clock::now();
    if (now < mNext) {
        return false;
    }
    mNext = now + std::chrono::seconds(1);
    return true;
}

DeferredLog::~DeferredLog() {
    for (std::size_t i = 0; i < mCount; ++i) {
        __android_log_write(mLines[i].priority, kLogTag, mLines[i].text);
    }
}

void DeferredLog::add(int priority, const char* format, ...) {
    if (mCount == kLines) {
        return;
    }
    Line& line = mLines[mCount++];
    line.priority = priority;
    va_list arguments;
    va_start(arguments, format);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): clang 14 overlooks va_start here
    std::vsnprintf(line.text, sizeof(line.text), format, arguments);
    va_end(arguments);
}

} // namespace keluem
