#pragma once

#include "kelutv-service/Service.h"
#include "service/RequestServer.h"
#include "wire/codec/Reply.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace kelutv::service {

/** Hands each request to the handler of its module, and holds what that answers against the catalogue. */
class Dispatcher : public RequestServer {
public:
    using Complaint = std::function<void(const std::string& text)>;

    /** @param complain is told what handlers do wrong */
    Dispatcher(std::shared_ptr<Events> events, Complaint complain)
        : mEvents(std::move(events)), mComplain(std::move(complain)) {}

    /** @throws std::invalid_argument for a module without commands */
    void handle(const std::string& module, Handler handler);

    /** The answer to a request as it goes over the wire; nothing from `end` on. */
    std::optional<wire::Reply> answer(const wire::Request& request);

    /** Waits for the handler that runs, and calls none from now on: requests find a service that is gone. */
    void end();

protected:
    android::status_t serve(const wire::Request& request, const android::Parcel& data, android::Parcel* reply) override;

private:
    wire::Reply carryOut(const wire::Request& request);
    wire::Reply failure(const wire::Request& request, const std::string& why);

    const std::shared_ptr<Events> mEvents;
    const Complaint mComplain;
    /** Held while a request is carried out, so that replies and events have one order. */
    std::mutex mMutex;
    std::map<std::string, Handler> mHandlers;
    std::atomic<bool> mHasEnded{false};
};

} // namespace kelutv::service
