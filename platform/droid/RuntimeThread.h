#pragma once

#include "socket/QuietThread.h"

#include <functional>

namespace android {

/**
 * Starts a detached thread of the runtime with all signals blocked: those belong to the application. False, with a line
 * in the log, when there is none to be had.
 */
bool startRuntimeThread(const char* name, std::function<void()> body, size_t stackSize = kq::kDefaultStack);

} // namespace android
