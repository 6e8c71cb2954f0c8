#pragma once

#include <binder/IBinder.h>

#include <string>

namespace kelutv::service {

/** The name under which clients find the service. */
constexpr char kServiceName[] = "TVBaseService";

/** Lets clients find the object by the name. @return why that cannot be, empty when it is done */
std::string registerService(const android::sp<android::IBinder>& object);

} // namespace kelutv::service
