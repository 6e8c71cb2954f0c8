#pragma once

#include "Television.h"

#include <binder/Binder.h>
#include <keluem/publisher.h>

#include <cstdio>
#include <mutex>
#include <string>

namespace simulator {

/** The binder object behind "TVBaseService". */
class Service : public android::BBinder {
public:
    /** @param trace receives one line per request and per event; null for none */
    explicit Service(std::FILE* trace) : mTrace(trace) {}

    const android::String16& getInterfaceDescriptor() const override;

protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override;

private:
    Reply answer(const Request& request);
    void publish(const Change& change);
    void trace(const std::string& line);

    std::FILE* const mTrace;
    /** Held while a request is carried out, so that state, events and trace have one order. */
    std::mutex mMutex;
    Television mTelevision;
    keluem::Publisher mPublisher;
};

} // namespace simulator
