#include <kelutv/link/BpTVBaseService.h>
#include <kelutv/link/ITVBaseService.h>

#include <binder/Binder.h>
#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include <type_traits>

namespace {

using android::BpTVBaseService;
using android::IBinder;
using android::IInterface;
using android::ITVBaseService;
using android::Parcel;
using android::sp;
using android::status_t;
using android::String16;

/** A service in this process. */
class LocalService : public android::BnInterface<ITVBaseService> {
public:
    status_t invoke(const Parcel&, Parcel*) override { return android::NO_ERROR; }
};

/** A binder of another interface that notes how it is called. */
class NotingBinder : public android::BBinder {
public:
    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override {
        lastCode = code;
        lastData = &data;
        lastReply = reply;
        lastFlags = flags;
        ++calls;
        return status;
    }

    int calls = 0;
    uint32_t lastCode = 0;
    uint32_t lastFlags = 99;
    const Parcel* lastData = nullptr;
    Parcel* lastReply = nullptr;
    status_t status = android::NO_ERROR;
};

TEST(AsInterface, ofNullIsNull) { EXPECT_EQ(ITVBaseService::asInterface(nullptr), nullptr); }

TEST(AsInterface, ofALocalObjectIsTheObjectItself) {
    const sp<LocalService> service = new LocalService;
    const sp<ITVBaseService> interface = ITVBaseService::asInterface(IInterface::asBinder(service));
    EXPECT_EQ(interface.get(), static_cast<ITVBaseService*>(service.get()));
    EXPECT_EQ(dynamic_cast<BpTVBaseService*>(interface.get()), nullptr);
}

TEST(AsInterface, ofAnythingElseIsANewProxy) {
    const sp<IBinder> binder = new NotingBinder;
    const sp<ITVBaseService> interface = ITVBaseService::asInterface(binder);
    ASSERT_NE(dynamic_cast<BpTVBaseService*>(interface.get()), nullptr);
    EXPECT_EQ(IInterface::asBinder(interface), binder);
    EXPECT_NE(ITVBaseService::asInterface(binder), interface);
}

TEST(AsInterface, isWhatAnInterfaceCastCalls) {
    const sp<IBinder> binder = new NotingBinder;
    const sp<ITVBaseService> interface = android::interface_cast<ITVBaseService>(binder);
    EXPECT_NE(dynamic_cast<BpTVBaseService*>(interface.get()), nullptr);
}

TEST(ITVBaseServiceTest, hasItsDescriptor) {
    EXPECT_EQ(ITVBaseService::descriptor, String16("android.ITVBaseService"));
    const sp<ITVBaseService> interface = ITVBaseService::asInterface(new NotingBinder);
    EXPECT_EQ(&interface->getInterfaceDescriptor(), &ITVBaseService::descriptor);
    EXPECT_TRUE((std::is_base_of_v<IInterface, ITVBaseService>));
    EXPECT_TRUE((std::is_base_of_v<android::BpInterface<ITVBaseService>, BpTVBaseService>));
}

TEST(BpTVBaseServiceTest, makesOneSynchronousTransaction) {
    const sp<NotingBinder> binder = new NotingBinder;
    const sp<ITVBaseService> proxy = ITVBaseService::asInterface(binder);
    const Parcel request;
    Parcel reply;
    EXPECT_EQ(proxy->invoke(request, &reply), android::NO_ERROR);
    EXPECT_EQ(binder->calls, 1);
    EXPECT_EQ(binder->lastCode, 1U);
    EXPECT_EQ(binder->lastFlags, 0U);
    EXPECT_EQ(binder->lastData, &request);
    EXPECT_EQ(binder->lastReply, &reply);
}

TEST(BpTVBaseServiceTest, returnsTheTransportsStatusUnchanged) {
    const sp<NotingBinder> binder = new NotingBinder;
    const sp<ITVBaseService> proxy = ITVBaseService::asInterface(binder);
    const Parcel request;
    Parcel reply;
    for (const status_t status : {status_t{android::DEAD_OBJECT}, status_t{android::BAD_VALUE}, status_t{17}}) {
        binder->status = status;
        EXPECT_EQ(proxy->invoke(request, &reply), status);
    }
}

} // namespace
