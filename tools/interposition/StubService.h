#pragma once

#include <binder/IServiceManager.h>

namespace android {
class Parcel;
}

namespace kelutv::interposition {

/** Answers a request with zeros, enough of them for every reply. @return the transport's status */
int answerWithZeros(const android::Parcel& request, android::Parcel* reply);

/** A service manager that has, under every name, a service that answers with zeros. */
android::sp<android::IServiceManager> stubServiceManager();

} // namespace kelutv::interposition
