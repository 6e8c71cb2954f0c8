#include "BinderDriver.h"

#include "ThreadEnd.h"
#include "socket/Descriptors.h"

#include <linux/android/binder.h>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/mman.h>

#include <cerrno>
#include <cstring>

namespace android {

namespace {

// The most that the driver maps; half of it is there for one-way calls, which leaves room for the largest of both
// kinds.
constexpr size_t kMemorySize = 4 * 1024 * 1024;

int interruptible(int device, unsigned long request, void* argument) {
    int result = 0;
    do {
        result = ::ioctl(device, request, argument);
    } while (result < 0 && errno == EINTR);
    return result < 0 ? -errno : 0;
}

const char* reasonOf(int error) {
    switch (error) {
    case -EPROTO:
        return "speaks another version of the protocol";
    case -ENOTTY:
        return "is no binder driver";
    default:
        return std::strerror(-error);
    }
}

/** Tells the driver of the end of this thread; `noted` is the device and 1. */
void tellOfEnd(void* noted) {
    if (!kq::inForkedChild()) {
        interruptible(static_cast<int>(reinterpret_cast<intptr_t>(noted) - 1), BINDER_THREAD_EXIT, nullptr);
    }
}

/** Has the driver told when this thread ends: 0 or a negative errno value. */
int noteEnd(int device) {
    static const ThreadEnd end(tellOfEnd);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): null says that there is nothing to tell.
    return end.tellOfThis(reinterpret_cast<const void*>(static_cast<intptr_t>(device) + 1));
}

} // namespace

std::unique_ptr<BinderDevice> BinderDevice::open(const std::string& path, std::string* problem) {
    kq::UniqueFd file = kq::openDescriptor([&path] { return ::open(path.c_str(), O_RDWR | O_CLOEXEC); });
    int error = file ? 0 : -errno;
    std::unique_ptr<BinderDevice> device(new BinderDevice(std::move(file)));
    if (error == 0) {
        error = device->checkVersion();
    }
    if (error == 0) {
        error = device->map();
    }
    if (error != 0) {
        *problem = path + ": " + reasonOf(error);
        return nullptr;
    }
    return device;
}

BinderDevice::~BinderDevice() {
    if (mMemory != nullptr) {
        ::munmap(const_cast<uint8_t*>(mMemory), kMemorySize);
    }
}

int BinderDevice::checkVersion() {
    binder_version version{};
    if (interruptible(mDevice.get(), BINDER_VERSION, &version) != 0) {
        return -ENOTTY;
    }
    return version.protocol_version == BINDER_CURRENT_PROTOCOL_VERSION ? 0 : -EPROTO;
}

int BinderDevice::map() {
    void* const memory = ::mmap(nullptr, kMemorySize, PROT_READ, MAP_PRIVATE | MAP_NORESERVE, mDevice.get(), 0);
    if (memory == MAP_FAILED) {
        return -errno;
    }
    mMemory = static_cast<const uint8_t*>(memory);
    return 0;
}

int BinderDevice::control(unsigned long request, void* argument) {
    const int error = noteEnd(mDevice.get());
    return error != 0 ? error : interruptible(mDevice.get(), request, argument);
}

bool BinderDevice::owns(const uint8_t* data, size_t length) const {
    const auto start = reinterpret_cast<uintptr_t>(mMemory);
    const auto place = reinterpret_cast<uintptr_t>(data);
    return place >= start && place - start <= kMemorySize && length <= kMemorySize - (place - start);
}

} // namespace android
