#pragma once

#include "Television.h"

#include <binder/Binder.h>
#include <keluem/publisher.h>

#include <cstdio>
#include <mutex>
#include <string>
#include <utility>

namespace simulator {

/** The binder object behind "TVBaseService". */
class Service : public android::BBinder {
public:
    /** @param trace receives one line per request and per event; null for none */
    Service(std::FILE* trace, EepStore eep) : mTrace(trace), mTelevision(std::move(eep)) {}

    const android::String16& getInterfaceDescriptor() const override;

    /** Does what a line of the control channel says; a line that makes no sense is told of on standard error. */
    void control(const std::string& line);

protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override;

private:
    Reply answer(const Request& request);
    void publishNews();
    void publish(const Notice& notice);
    void trace(const std::string& line);

    std::FILE* const mTrace;
    /** Held while a request is carried out, so that state, events and trace have one order. */
    std::mutex mMutex;
    Television mTelevision;
    keluem::Publisher mPublisher;
};

} // namespace simulator
