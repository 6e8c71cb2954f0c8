#include "tools/kelutv/compliance/clients/Client.h"

#include "tools/kelutv/output/Errors.h"

#include <cstdlib>

namespace kelutv::tool::compliance {

void ClientLine::say(const Json& message) const { mSays.send(message.dump()); }

void ClientLine::hear() const {
    while (!mHears.take() && !mHears.isAtEnd()) {
        process::waitToRead({mHears.fd()}, std::nullopt);
    }
}

Client::Client(const std::function<void(const ClientLine& line)>& work)
    : mWorker(process::Worker::start([this, &work] { return doWork(work); })) {
    mHears.keepReceiving();
    mSays.keepSending();
}

int Client::doWork(const std::function<void(const ClientLine& line)>& work) {
    mHears.keepSending();
    mSays.keepReceiving();
    const ClientLine line(mHears, mSays);
    try {
        work(line);
    } catch (const ToolError& error) {
        line.say({{"error", error.what()}});
    }
    return EXIT_SUCCESS;
}

std::optional<Json> Client::hear(process::Deadline deadline) {
    for (;;) {
        if (const std::optional<std::string> message = mHears.take()) {
            return Json::parsed(*message);
        }
        if (mHears.isAtEnd() || !process::waitToRead({mHears.fd()}, deadline)) {
            return std::nullopt;
        }
    }
}

void Client::say(const Json& message) const { mSays.send(message.dump()); }

} // namespace kelutv::tool::compliance
