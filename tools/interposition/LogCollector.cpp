#include "tools/interposition/LogCollector.h"

#include "tools/interposition/Next.h"

#include <android/log.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <mutex>

namespace kelutv::interposition {

namespace {

constexpr std::size_t kMostMessages = 16;

/** What threads of the runtime log, too, as long as the process lives. */
struct Collected {
    std::mutex mutex;
    bool isOn = false;
    std::vector<std::string> messages;
};

Collected& collected() {
    static auto* const collected = new Collected;
    return *collected;
}

void collect(std::string message) {
    if (!message.empty() && message.back() == '\n') {
        message.pop_back();
    }
    Collected& all = collected();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const bool isNew = std::find(all.messages.begin(), all.messages.end(), message) == all.messages.end();
    if (all.isOn && isNew && all.messages.size() < kMostMessages) {
        all.messages.push_back(std::move(message));
    }
}

[[gnu::format(printf, 1, 0)]] std::string formatted(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

int log(int priority, const char* tag, const std::string& text) {
    if (priority >= ANDROID_LOG_WARN && priority < ANDROID_LOG_SILENT) {
        collect(text);
    }
    using Print = int (*)(int, const char*, const char*, ...);
    static const auto platform = next<Print>("__android_log_print");
    return platform(priority, tag, "%s", text.c_str());
}

} // namespace

LogCollector::LogCollector() {
    const std::lock_guard<std::mutex> lock(collected().mutex);
    collected().isOn = true;
    collected().messages.clear();
}

LogCollector::~LogCollector() {
    const std::lock_guard<std::mutex> lock(collected().mutex);
    collected().isOn = false;
}

std::vector<std::string> LogCollector::messages() {
    const std::lock_guard<std::mutex> lock(collected().mutex);
    return collected().messages;
}

} // namespace kelutv::interposition

/** Goes before the platform's own. */
extern "C" __attribute__((visibility("default"))) int __android_log_print(int prio, const char* tag, const char* fmt,
                                                                          ...) {
    const int error = errno;
    va_list arguments;
    va_start(arguments, fmt);
    const std::string text = fmt != nullptr ? kelutv::interposition::formatted(fmt, arguments) : "";
    va_end(arguments);
    errno = error;
    const int result = kelutv::interposition::log(prio, tag, text);
    errno = error;
    return result;
}
