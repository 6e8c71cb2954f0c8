#pragma once

#include <pthread.h>

namespace android {

/**
 * Calls a function at the end of each thread that asks for it. The C library calls those of objects made earlier first.
 *
 * A thread-local object with a destructor would end the process where there is no memory to note it.
 */
class ThreadEnd {
public:
    explicit ThreadEnd(void (*tell)(void*)) : mError(::pthread_key_create(&mKey, tell)) {}

    /**
     * Has the function called with `value`, which must not be null, when this thread ends. A thread that asks again
     * while it ends is called again.
     * @return 0, also when it had asked before, or a negative errno value
     */
    int tellOfThis(const void* value) const {
        if (mError != 0) {
            return -mError;
        }
        return ::pthread_getspecific(mKey) != nullptr ? 0 : -::pthread_setspecific(mKey, value);
    }

private:
    pthread_key_t mKey{};
    const int mError;
};

} // namespace android
