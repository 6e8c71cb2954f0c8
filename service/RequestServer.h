#pragma once

#include "wire/codec/Request.h"

#include <binder/Binder.h>
#include <binder/Parcel.h>

#include <sys/types.h>

#include <cstdint>

namespace kelutv::service {

/** The binder object behind "TVBaseService": reads the requests that come in, on the threads of the binder runtime. */
class RequestServer : public android::BBinder {
public:
    const android::String16& getInterfaceDescriptor() const final;

protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) final;

    /**
     * Carries out a request, which may have been refused while it was read.
     *
     * @param data its bytes, from the interface token on
     * @param reply where the answer is written; null when nobody waits for one
     * @return the status of the transaction; a std::bad_alloc that leaves it is one, too
     */
    virtual android::status_t serve(const wire::Request& request, const android::Parcel& data,
                                    android::Parcel* reply) = 0;
};

/** The process whose request this thread carries out. */
pid_t caller();

} // namespace kelutv::service
