#pragma once

#include "Failures.h"

#include <utils/String16.h>

namespace kelutv::internal {

/**
 * What every request starts with. Never destroyed: threads of the application may be in calls until the process is
 * gone.
 */
inline const android::String16& TBS_INTERFACE_NAME =
    *allocating([] { return new android::String16("android.ITVBaseService"); });

} // namespace kelutv::internal
