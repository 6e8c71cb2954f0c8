#include "tools/kelutv/compliance/framework/Television.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/Answering.h"
#include "tools/kelutv/service/ServiceLink.h"

#include <binder/IBinder.h>
#include <binder/Parcel.h>

#include <algorithm>
#include <utility>

namespace kelutv::tool::compliance {

Exchange Television::ask(const Bytes& request, std::uint32_t code) {
    const android::sp<android::IBinder> service = requireService();
    android::Parcel data;
    if (data.setData(request.data(), request.size()) != android::NO_ERROR) {
        throw ToolError(Exit::Failure, "there is no memory for a request");
    }
    android::Parcel reply;
    Exchange exchange{code, request, 0, {}};
    const auto time = timeOf([&] { exchange.status = service->transact(code, data, &reply, 0); });
    noteAnswer();
    if (exchange.status == android::NO_ERROR) {
        mLatencies.push_back(time);
    }
    exchange.reply.assign(reply.data(), reply.data() + reply.dataSize());
    mHasLost = mHasLost || exchange.status != android::NO_ERROR;
    mHasDied = mHasDied || exchange.status == android::DEAD_OBJECT;
    return exchange;
}

bool Television::isAlive() const {
    try {
        android::Parcel reply;
        return requireService()->transact(kAskForInterface, android::Parcel(), &reply, 0) != android::DEAD_OBJECT;
    } catch (const LinkError&) {
        return false;
    }
}

void Television::add(const std::vector<std::chrono::nanoseconds>& latencies) {
    mLatencies.insert(mLatencies.end(), latencies.begin(), latencies.end());
}

std::chrono::nanoseconds Television::slowestAnswer() const {
    const auto slowest = std::max_element(mLatencies.begin(), mLatencies.end());
    return slowest != mLatencies.end() ? *slowest : std::chrono::nanoseconds(0);
}

std::vector<std::chrono::nanoseconds> Television::takeLatencies() { return std::exchange(mLatencies, {}); }

bool Television::takeLoss() { return std::exchange(mHasLost, false); }

bool Television::takeDeath() { return std::exchange(mHasDied, false); }

} // namespace kelutv::tool::compliance
