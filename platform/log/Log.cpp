#include <android/log.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "ErrnoKeeper.h"
#include "Level.h"
#include "Line.h"
#include "Sink.h"

namespace kqlog {

namespace {

constexpr int kDefaultLevel = ANDROID_LOG_DEBUG;

int writeLine(int priority, const char* tag, const char* text) {
    std::string_view shown(text);
    if (!shown.empty() && shown.back() == '\n') {
        shown.remove_suffix(1);
    }
    Line line(priority, tag);
    line.append(shown);
    return line.write();
}

bool wanted(int priority) { return sinkInstalled() || reachesLevel(priority, kDefaultLevel); }

int deliver(int priority, const char* tag, const char* text) {
    if (offerToSink(priority, tag, text)) {
        return 1;
    }
    return reachesLevel(priority, kDefaultLevel) ? writeLine(priority, tag, text) : -EPERM;
}

[[noreturn]] void die(const char* tag, const char* text) {
    if (!offerToSink(ANDROID_LOG_FATAL, tag, text)) {
        writeLine(ANDROID_LOG_FATAL, tag, text);
    }
    std::abort();
}

struct Free {
    void operator()(char* text) const { std::free(text); }
};

/** A formatted text, on the heap only when it is long. */
class Text {
public:
    __attribute__((__format__(printf, 2, 0))) Text(const char* format, va_list arguments) {
        va_list again;
        va_copy(again, arguments);
        const int length = std::vsnprintf(mInline, sizeof(mInline), format, arguments);
        if (length < 0) {
            mText = format;
        } else if (static_cast<std::size_t>(length) >= sizeof(mInline)) {
            formatLong(static_cast<std::size_t>(length) + 1, format, again);
        }
        va_end(again);
    }

    const char* get() const { return mText; }

private:
    __attribute__((__format__(printf, 3, 0))) void formatLong(std::size_t size, const char* format, va_list arguments) {
        mLong.reset(static_cast<char*>(std::malloc(size)));
        if (mLong != nullptr) {
            std::vsnprintf(mLong.get(), size, format, arguments);
            mText = mLong.get();
        }
    }

    char mInline[1024];
    std::unique_ptr<char, Free> mLong;
    const char* mText = mInline;
};

[[noreturn]] __attribute__((__format__(printf, 2, 3))) void dieWith(const char* tag, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    die(tag, Text(format, arguments).get());
}

} // namespace

} // namespace kqlog

int __android_log_write(int prio, const char* tag, const char* text) {
    const kqlog::ErrnoKeeper keeper;
    return kqlog::deliver(prio, tag, text != nullptr ? text : "");
}

int __android_log_vprint(int prio, const char* tag, const char* fmt, va_list ap) {
    const kqlog::ErrnoKeeper keeper;
    if (fmt == nullptr) {
        return kqlog::deliver(prio, tag, "");
    }
    return kqlog::wanted(prio) ? kqlog::deliver(prio, tag, kqlog::Text(fmt, ap).get()) : -EPERM;
}

int __android_log_print(int prio, const char* tag, const char* fmt, ...) {
    va_list ap;
    va_start(ap, fmt);
    const int result = __android_log_vprint(prio, tag, fmt, ap);
    va_end(ap);
    return result;
}

void __android_log_assert(const char* cond, const char* tag, const char* fmt, ...) {
    va_list ap;
    va_start(ap, fmt);
    if (fmt != nullptr) {
        kqlog::die(tag, kqlog::Text(fmt, ap).get());
    }
    if (cond != nullptr) {
        kqlog::dieWith(tag, "Assertion failed: %s", cond);
    }
    kqlog::die(tag, "Unspecified assertion failed");
}

int __android_log_is_loggable(int prio, const char* /*tag*/, int default_prio) {
    return kqlog::reachesLevel(prio, default_prio) ? 1 : 0;
}
