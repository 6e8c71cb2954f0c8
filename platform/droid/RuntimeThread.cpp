#include "RuntimeThread.h"

#include <android/log.h>

#include <cstring>
#include <utility>

namespace android {

bool startRuntimeThread(const char* name, std::function<void()> body, size_t stackSize) {
    const int error = kq::startDetachedThread(name, stackSize, std::move(body));
    if (error != 0) {
        __android_log_print(ANDROID_LOG_ERROR, "kqdroid", "starting thread %s: %s", name, std::strerror(error));
    }
    return error == 0;
}

} // namespace android
