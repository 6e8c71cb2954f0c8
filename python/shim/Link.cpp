#include "python/shim/Interface.h"
#include "python/shim/Prints.h"
#include "python/shim/Text.h"
#include "python/shim/Transactions.h"
#include "tools/interposition/LogCollector.h"

#include <binder/IServiceManager.h>
#include <kelutv/link/BpTVBaseService.h>
#include <kelutv/link/TVBaseClient.h>

#include <mutex>
#include <utility>

namespace kelutv::python {

namespace {

using android::Parcel;

/** Takes the place of the client's proxy and sees what it sends. */
class ObservedService : public android::BpTVBaseService {
public:
    using BpTVBaseService::BpTVBaseService;

    android::status_t invoke(const Parcel& request, Parcel* reply) override {
        const android::status_t status = BpTVBaseService::invoke(request, reply);
        interposition::Transaction transaction{};
        transaction.status = status;
        transaction.request.assign(request.data(), request.data() + request.dataSize());
        if (status == android::NO_ERROR && reply != nullptr) {
            transaction.reply.assign(reply->data(), reply->data() + reply->dataSize());
        }
        noteTransaction(std::move(transaction));
        return status;
    }
};

/** One look-up before the client's own, which is the only one of a process. */
bool isServiceThere() {
    return android::defaultServiceManager()->getService(android::String16("TVBaseService")) != nullptr;
}

bool connect() {
    if (!isServiceThere()) {
        return false;
    }
    android::sp<android::ITVBaseService>& service = android::TVBaseClient::self()->getBpTvbaseService();
    if (service == nullptr) {
        return false;
    }
    // Threads of the interpreter may still be in a call when the client is destroyed at the end of the process.
    static const auto* const own = new android::sp<android::ITVBaseService>(service);
    static const auto* const observed =
        new android::sp<android::ITVBaseService>(new ObservedService(android::IInterface::asBinder(*own)));
    service = *observed;
    return true;
}

std::string reasons() {
    std::string text;
    for (const std::string& message : interposition::LogCollector::messages()) {
        text += (text.empty() ? "" : "; ") + message;
    }
    return text;
}

} // namespace

} // namespace kelutv::python

extern "C" int kelutv_python_connect(char* text, unsigned int room) {
    static std::mutex mutex;
    static bool isConnected = false;
    const std::lock_guard<std::mutex> lock(mutex);
    if (!isConnected) {
        kelutv::python::keepPrintsBack();
        const kelutv::interposition::LogCollector log;
        isConnected = kelutv::python::connect();
        kelutv::python::store(isConnected ? "" : kelutv::python::reasons(), text, room);
    }
    return isConnected ? 1 : 0;
}
