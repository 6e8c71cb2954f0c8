#pragma once

#include "droid/Transport.h"

#include <binder/IBinder.h>

namespace android {

/** The calls that a system's service manager answers behind handle 0. Each begins with the manager's token. */
enum ServiceManagerCall : uint32_t {
    kGetService = IBinder::FIRST_CALL_TRANSACTION, // name: an object or null
    kCheckService,                                 // as above
    kAddService,                                   // name, object, allow isolated, dump priorities: int32 0
    kListServices,                                 // index, dump priorities: a name; fails after the last
};

/** The descriptor of the manager's interface. */
const String16& serviceManagerInterface();
/** Strict-mode word, work source (-1: the caller itself), then the manager's descriptor. */
void writeManagerToken(Parcel* request);
/** Reads what writeManagerToken wrote; false, with a line in the log, when it is something else. */
bool readManagerToken(const Parcel& request);

} // namespace android
