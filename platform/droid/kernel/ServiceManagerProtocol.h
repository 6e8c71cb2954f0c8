#pragma once

#include "droid/BinderLevel.h"
#include "droid/Transport.h"

#include <binder/IBinder.h>

namespace android {

/**
 * The calls that a system's service manager answers behind handle 0. Each begins with a token of the manager's
 * interface, whose level decides what else goes over the wire.
 *
 * From level 30 on every answer begins with an exception word, and a word of stability follows every object.
 */
enum ServiceManagerCall : uint32_t {
    kGetService = IBinder::FIRST_CALL_TRANSACTION, // name: an object or null
    kCheckService,                                 // as above
    kAddService,                                   // name, object, allow isolated, dump priorities: int32 0
    kListServices, // index, dump priorities: a name, fails after the last; level 30: dump priorities: all names
    // From level 30 on.
    kRegisterForNotifications,   // name, callback
    kUnregisterForNotifications, // name, callback
    kIsDeclared,                 // name: bool
    kRegisterClientCallback,     // name, object, callback
    kTryUnregisterService,       // name, object
};

/** The calls that the manager of level 30 makes, one-way. Each begins with a token of the callback's interface. */
enum ServiceCallbackCall : uint32_t {
    kOnRegistration = IBinder::FIRST_CALL_TRANSACTION, // name, object
};

/** Of the manager, in every process. */
constexpr uint32_t kServiceManagerHandle = 0;

/** What the exception word of an answer says. */
enum ManagerException : int32_t {
    kNoException = 0,
    kSecurityException = -1,
    kIllegalArgumentException = -3,
    kNullPointerException = -4,
    kIllegalStateException = -5,
    kUnsupportedOperationException = -7,
};

/** The word behind an object that is null. */
constexpr int32_t kNoStability = 0;
/** The word behind an object that keeps its form as long as the system does. */
constexpr int32_t kSystemStability = 12;

/** The descriptor of the manager's interface. */
const String16& serviceManagerInterface();
/** The descriptor of the interface of those that are told of services that come. */
const String16& serviceCallbackInterface();

/** True when the answer to a call begins with an exception word. */
constexpr bool answerBeginsWithException(BinderLevel level, uint32_t code) {
    return level == BinderLevel::k30 || code == kAddService;
}

/** Appends an object, null as well, in the form of a level; BAD_VALUE for one that parcels cannot carry. */
status_t writeManagedObject(Parcel* parcel, BinderLevel level, const sp<IBinder>& object, int32_t stability);

/** Appends an exception word and what comes with it. */
status_t writeException(Parcel* reply, ManagerException exception);

} // namespace android
