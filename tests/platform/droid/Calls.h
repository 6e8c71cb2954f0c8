#pragma once

#include "support/Wire.h"

#include <binder/IBinder.h>

#include <string>

namespace kelutv::test {

/** What came of one call: its status and the bytes of the reply, which held something else before. */
struct Answer {
    android::status_t status;
    Bytes bytes;
};

Answer call(const android::sp<android::IBinder>& binder, uint32_t code, const Bytes& request = {}, uint32_t flags = 0);

/** The first word of the answer; throws when the call fails. */
int32_t ask(const android::sp<android::IBinder>& binder, uint32_t code, const Bytes& request = {});

/** The current service of that name, null if there is none. */
android::sp<android::IBinder> service(const std::string& name);

/** Waits until the object holds that many callers in kHold. */
bool waitUntilHeld(const android::sp<android::IBinder>& binder, int32_t callers);

} // namespace kelutv::test
