#pragma once

#include "BinderLevel.h"

#include <binder/Parcel.h>

#include <optional>

namespace android {

/** What stands at the start of a request. */
struct InterfaceToken {
    /** Whose form the token has; empty for no known one. */
    std::optional<BinderLevel> level;
    /** True when it names the interface that was wanted. */
    bool accepted;
};

/** Appends the words that tokens of a level begin with, then the interface's name. */
status_t writeInterfaceToken(Parcel* request, BinderLevel level, const String16& interface);

/**
 * Reads a token of whatever level; the position is behind it when it is accepted.
 *
 * What is refused is a line in the log, and so is the first token of another level than this process's.
 */
InterfaceToken readInterfaceToken(const Parcel& request, const String16& wanted);

} // namespace android
