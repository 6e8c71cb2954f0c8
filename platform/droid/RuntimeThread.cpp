#include "RuntimeThread.h"

#include <android/log.h>

#include <pthread.h>

#include <csignal>
#include <system_error>
#include <thread>
#include <utility>

namespace android {

namespace {

bool startDetached(const char* name, std::function<void()> body) {
    try {
        std::thread thread(std::move(body));
        ::pthread_setname_np(thread.native_handle(), name);
        thread.detach();
        return true;
    } catch (const std::system_error& error) {
        __android_log_print(ANDROID_LOG_ERROR, "kqdroid", "starting thread %s: %s", name, error.what());
        return false;
    }
}

} // namespace

bool startRuntimeThread(const char* name, std::function<void()> body) {
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const bool started = startDetached(name, std::move(body));
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return started;
}

} // namespace android
