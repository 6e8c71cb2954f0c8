#include "Level.h"

#include <android/log.h>

#include <atomic>
#include <cstdlib>
#include <cstring>

namespace kqlog {

namespace {

constexpr int kUnread = -1;
constexpr int kUnset = 0;

std::atomic<int> gLevel{kUnread};

int levelOf(const char* word) {
    static constexpr char kLetters[] = "vdiwefs";
    const char* found = std::strlen(word) == 1 ? std::strchr(kLetters, word[0]) : nullptr;
    return found != nullptr ? ANDROID_LOG_VERBOSE + static_cast<int>(found - kLetters) : kUnset;
}

void complainAbout(const char* word) {
    __android_log_print(ANDROID_LOG_WARN, "kqlog", "KQLOG_LEVEL is \"%s\" but must be one of v d i w e f s; d is used",
                        word);
}

int configuredLevel() {
    int level = gLevel.load(std::memory_order_relaxed);
    if (level != kUnread) {
        return level;
    }
    const char* word = std::getenv("KQLOG_LEVEL");
    const int read = word != nullptr ? levelOf(word) : kUnset;
    const bool first = gLevel.compare_exchange_strong(level, read, std::memory_order_relaxed);
    if (first && word != nullptr && read == kUnset) {
        complainAbout(word);
    }
    return read;
}

} // namespace

bool reachesLevel(int priority, int fallback) {
    const int level = configuredLevel();
    return priority >= (level != kUnset ? level : fallback);
}

} // namespace kqlog
