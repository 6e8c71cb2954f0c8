#include "Calls.h"
#include "DroidTest.h"
#include "peer/PeerProtocol.h"
#include "peer/PeerService.h"
#include "support/Deadline.h"

#include <binder/IInterface.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <binder/ProcessState.h>

#include <future>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::sp;
using android::String16;

android::status_t publish(const char* name, const sp<IBinder>& object) {
    return android::defaultServiceManager()->addService(String16(name), object);
}

using LocalService = DroidTest;

TEST_F(LocalService, isFoundAsTheVeryObject) {
    const sp<IBinder> object = new PeerService;
    ASSERT_EQ(publish("local.very", object), android::NO_ERROR);
    EXPECT_EQ(android::defaultServiceManager()->getService(String16("local.very")), object);
    EXPECT_EQ(android::defaultServiceManager()->checkService(String16("local.very")), object);
}

TEST_F(LocalService, isReplacedByALaterOneOfThisProcess) {
    ASSERT_EQ(publish("local.replaced", new PeerService), android::NO_ERROR);
    const sp<IBinder> second = new PeerService;
    EXPECT_EQ(publish("local.replaced", second), android::NO_ERROR);
    EXPECT_EQ(service("local.replaced"), second);
}

/** Looks for a service while it is destroyed. */
class Inquirer : public android::BBinder {
public:
    explicit Inquirer(std::promise<sp<IBinder>>* found) : mFound(found) {}

protected:
    ~Inquirer() override { mFound->set_value(service("local.inquired")); }

private:
    std::promise<sp<IBinder>>* mFound;
};

TEST_F(LocalService, mayUseTheRuntimeWhileItIsReplaced) {
    android::ProcessState::self()->startThreadPool();
    std::promise<sp<IBinder>> promise;
    std::future<sp<IBinder>> found = promise.get_future();
    ASSERT_EQ(publish("local.inquired", new Inquirer(&promise)), android::NO_ERROR);
    const sp<IBinder> second = new PeerService;
    EXPECT_EQ(publish("local.inquired", second), android::NO_ERROR);
    ASSERT_EQ(found.wait_for(kPatience), std::future_status::ready);
    EXPECT_EQ(found.get(), second);
}

TEST_F(LocalService, cannotBeLinkedTo) {
    const sp<IBinder> object = new PeerService;
    EXPECT_EQ(object->linkToDeath(nullptr), android::INVALID_OPERATION);
    EXPECT_EQ(object->unlinkToDeath(nullptr), android::INVALID_OPERATION);
}

class ICounter : public android::IInterface {
public:
    static const String16 descriptor;
    virtual int32_t next() = 0;
};

const String16 ICounter::descriptor("kelutv.test.ICounter");

class Counter : public android::BnInterface<ICounter> {
public:
    int32_t next() override { return ++mLast; }

private:
    int32_t mLast = 0;
};

class BpCounter : public android::BpInterface<ICounter> {
public:
    explicit BpCounter(const sp<IBinder>& object) : BpInterface(object) {}
    int32_t next() override { return ask(remote(), kEcho); }
};

TEST_F(LocalService, givesItsOwnInterfaceOnly) {
    const sp<Counter> counter = new Counter;
    const sp<IBinder> binder = counter;
    EXPECT_EQ(binder->queryLocalInterface(ICounter::descriptor), sp<android::IInterface>(counter));
    EXPECT_EQ(binder->queryLocalInterface(String16("kelutv.test.IOther")), nullptr);
    EXPECT_EQ(binder->getInterfaceDescriptor() == ICounter::descriptor, true);
    EXPECT_EQ(android::IInterface::asBinder(sp<android::IInterface>(counter)), binder);
    EXPECT_EQ(counter->next(), 1);
}

TEST_F(LocalService, proxyGivesTheBinderItSpeaksFor) {
    const sp<IBinder> object = new PeerService;
    const sp<ICounter> proxy = new BpCounter(object);
    EXPECT_EQ(android::IInterface::asBinder(sp<android::IInterface>(proxy)), object);
    EXPECT_EQ(android::IInterface::asBinder(sp<android::IInterface>()), nullptr);
    EXPECT_EQ(proxy->next(), 0);
}

} // namespace
} // namespace kelutv::test
