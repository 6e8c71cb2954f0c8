#include "torture/processes/PlainService.h"

#include <binder/Binder.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <binder/ProcessState.h>
#include <keluem/publisher.h>
#include <kelutv/events.h>

#include <cstdio>
#include <stdexcept>

namespace kelutv::test {

using android::Parcel;
using android::status_t;

class PlainService::Binder : public android::BBinder {
public:
    Binder(const std::vector<Operation>& operations, Before before, Page& page)
        : mBefore(std::move(before)), mPage(page) {
        mExchanges.push_back({requestOf(kPublishCommand), replyOf({0})});
        for (const Operation& operation : operations) {
            mExchanges.insert(mExchanges.end(), operation.exchanges.begin(), operation.exchanges.end());
        }
    }

protected:
    status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override {
        if (code != FIRST_CALL_TRANSACTION) {
            return BBinder::onTransact(code, data, reply, flags);
        }
        const int number = mRequests.fetch_add(1);
        if (const status_t status = mBefore ? mBefore(number) : android::NO_ERROR; status != android::NO_ERROR) {
            return status;
        }
        const Bytes request(data.data(), data.data() + data.dataSize());
        for (const Exchange& exchange : mExchanges) {
            if (exchange.request == request) {
                if (&exchange == &mExchanges.front()) {
                    publish();
                }
                return reply->setData(exchange.reply.data(), exchange.reply.size());
            }
        }
        if (mPage.wrongRequests.fetch_add(1) == 0) {
            std::snprintf(mPage.firstWrongRequest.data(), mPage.firstWrongRequest.size(), "%s", hex(request).c_str());
        }
        return android::BAD_VALUE;
    }

private:
    void publish() {
        for (unsigned int event = 1; event <= kEventsPerRequest; ++event) {
            mPublisher.publish(KELU_EM_MODE_VOLUME + event, &event, sizeof event);
        }
    }

    const Before mBefore;
    std::atomic<int> mRequests{0};
    Page& mPage;
    std::vector<Exchange> mExchanges;
    keluem::Publisher mPublisher;
};

void PlainService::start() {
    mProcess.reset();
    mPage.renew();
    mProcess = std::make_unique<ForkedProcess>([this] { serve(); });
    if (!eventually([this] { return mPage->ready.load(); })) {
        throw std::runtime_error("the service cannot be found; it said: " + mProcess->text());
    }
}

void PlainService::awaitEnd() {
    if (!mProcess->wait()) {
        throw std::runtime_error("the service does not end; it said: " + mProcess->text());
    }
}

void PlainService::serve() {
    android::ProcessState::self()->startThreadPool();
    const android::sp<android::IBinder> binder = new Binder(mOperations, mBefore, *mPage);
    // A service that was killed may keep its name for a moment.
    const bool added = eventually([&] {
        return android::defaultServiceManager()->addService(android::String16("TVBaseService"), binder) ==
               android::NO_ERROR;
    });
    mPage->ready = added;
    android::IPCThreadState::self()->joinThreadPool();
}

} // namespace kelutv::test
