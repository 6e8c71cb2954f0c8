#include "support/Deadline.h"

#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_notify.h>

#include <atomic>
#include <cstdlib>
#include <thread>

namespace {

std::atomic<int> gAnswered{0};

void askForever() {
    for (;;) {
        if (linux_tv_Audio_getVolume(0) == 7) {
            ++gAnswered;
        }
        linux_tv_Audio_setVolume(0, 1);
    }
}

void awaitAnswers(int count) {
    const int wanted = gAnswered + count;
    kelutv::test::eventually([wanted] { return gAnswered >= wanted; }, std::chrono::seconds(1));
}

void ignoreEvent(int, void*, unsigned int, void*) {}

} // namespace

/** Leaves main while other threads are in the middle of their requests, and lets them go on for a while. */
int main() {
    // Registered before the library makes its objects, so that it runs when they have been destroyed.
    std::atexit([] { awaitAnswers(50); });
    linux_tv_registerCallbackFunc(ignoreEvent);
    std::thread(askForever).detach();
    std::thread(askForever).detach();
    awaitAnswers(3);
    return 0;
}
