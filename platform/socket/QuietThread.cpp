#include "QuietThread.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <new>

namespace kq {

namespace {

using Body = std::function<void()>;

/** The attributes of a detached thread. */
class Attributes {
public:
    explicit Attributes(std::size_t stackSize) : mError(::pthread_attr_init(&mAttributes)) {
        mSet = mError == 0;
        if (mSet) {
            ::pthread_attr_setdetachstate(&mAttributes, PTHREAD_CREATE_DETACHED);
        }
        if (mSet && stackSize != kDefaultStack) {
            mError = ::pthread_attr_setstacksize(&mAttributes, stackSize);
        }
    }
    ~Attributes() {
        if (mSet) {
            ::pthread_attr_destroy(&mAttributes);
        }
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    int error() const { return mError; }
    const pthread_attr_t* get() const { return &mAttributes; }

private:
    pthread_attr_t mAttributes{};
    int mError;
    bool mSet = false;
};

struct Start {
    const char* name;
    Body body;
};

void* run(void* argument) {
    const std::unique_ptr<Start> start(static_cast<Start*>(argument));
    ::pthread_setname_np(::pthread_self(), start->name);
    start->body();
    return nullptr;
}

} // namespace

int startDetachedThread(const char* name, std::size_t stackSize, std::function<void()> body) noexcept {
    std::unique_ptr<Start> start(new (std::nothrow) Start{name, std::move(body)});
    const Attributes attributes(stackSize);
    if (start == nullptr || attributes.error() != 0) {
        return start == nullptr ? ENOMEM : attributes.error();
    }
    const AllSignalsBlocked blocked;
    pthread_t thread{};
    const int error = ::pthread_create(&thread, attributes.get(), run, start.get());
    if (error == 0) {
        static_cast<void>(start.release());
    }
    return error;
}

} // namespace kq
