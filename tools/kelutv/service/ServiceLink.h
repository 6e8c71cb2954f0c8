#pragma once

#include <binder/IBinder.h>
#include <utils/StrongPointer.h>

#include <string>

namespace kelutv::tool {

/** The service's object, connected on the first use. @throws LinkError when there is none */
android::sp<android::IBinder> requireService();

/** Ends a command whose call failed: with a LinkError when the service is gone, else with a ServiceError. */
[[noreturn]] void failCall(const std::string& what);

} // namespace kelutv::tool
