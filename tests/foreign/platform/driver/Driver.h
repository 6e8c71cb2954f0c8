#pragma once

#include "foreign/platform/droid/Route.h"

#include <cstddef>
#include <optional>
#include <string>

namespace foreign {

/** What became of a call. */
struct Answer {
    android::status_t status = android::NO_ERROR;
    Bytes bytes;
    /** The object in the reply, held until the process is gone. */
    std::optional<std::uint32_t> handle;
};

/** The binder driver as a process uses it that calls and offers nothing. */
class Driver {
public:
    /** The one of the process, opened on the first use. */
    static Driver& ofProcess();

    bool isOpen() const { return mMemory != nullptr; }
    /** Why it is not open. */
    const std::string& complaint() const { return mComplaint; }

    /** A synchronous call, on several threads at once. */
    Answer call(std::uint32_t handle, std::uint32_t code, const Bytes& request);
    /** Makes the thread one of those that take notices, and returns when the object's process is gone. */
    void awaitDeath(std::uint32_t handle);

private:
    Driver();

    const int mDevice;
    void* mMemory = nullptr;
    std::string mComplaint;
};

} // namespace foreign
