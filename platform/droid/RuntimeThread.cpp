#include "RuntimeThread.h"

#include "socket/QuietThread.h"

#include <android/log.h>

#include <system_error>
#include <utility>

namespace android {

bool startRuntimeThread(const char* name, std::function<void()> body) {
    try {
        kq::startQuietThread(name, std::move(body)).detach();
        return true;
    } catch (const std::system_error& error) {
        __android_log_print(ANDROID_LOG_ERROR, "kqdroid", "starting thread %s: %s", name, error.what());
        return false;
    }
}

} // namespace android
