// Speaks to the platform log in the ways that need a process of their own: log_speaker CASE.

#include <android/log.h>

#include <atomic>
#include <cstdio>
#include <map>
#include <string>
#include <thread>

namespace {

class LastWords {
public:
    ~LastWords() {
        if (mSpeak) {
            __android_log_write(ANDROID_LOG_INFO, "speaker", "last words");
        }
    }
    void request() { mSpeak = true; }

private:
    bool mSpeak = false;
};

LastWords lastWords;

int everyPriority() {
    for (int priority = ANDROID_LOG_VERBOSE; priority <= ANDROID_LOG_FATAL; ++priority) {
        __android_log_write(priority, "speaker", "x");
    }
    return 0;
}

int loggable() {
    std::printf("info %d, with default error %d\n",
                __android_log_is_loggable(ANDROID_LOG_INFO, "speaker", ANDROID_LOG_INFO),
                __android_log_is_loggable(ANDROID_LOG_INFO, "speaker", ANDROID_LOG_ERROR));
    return 0;
}

int assertWithMessage() { __android_log_assert("a < b", "speaker", "a is %d\n", 3); }

int assertWithCondition() { __android_log_assert("a < b", "speaker", nullptr); }

int assertWithNothing() { __android_log_assert(nullptr, nullptr, nullptr); }

int whileExiting() {
    static std::atomic<int> spoken{0};
    lastWords.request();
    std::thread([] {
        for (;;) {
            __android_log_write(ANDROID_LOG_INFO, "speaker", "on and on");
            ++spoken;
        }
    }).detach();
    while (spoken < 5) {
        std::this_thread::yield();
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::map<std::string, int (*)()> cases{
        {"priorities", everyPriority},         {"loggable", loggable},
        {"assert-message", assertWithMessage}, {"assert-condition", assertWithCondition},
        {"assert-nothing", assertWithNothing}, {"exit", whileExiting},
    };
    const auto chosen = cases.find(argc == 2 ? argv[1] : "");
    return chosen != cases.end() ? chosen->second() : 2;
}
