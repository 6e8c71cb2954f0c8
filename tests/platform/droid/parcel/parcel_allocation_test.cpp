#include "support/AllocationGuard.h"

#include <binder/Parcel.h>

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

using android::Parcel;

TEST(ParcelAllocation, smallRequestAndReplyAllocateNothing) {
    const android::String16 descriptor("android.ITVBaseService");
    int32_t sum = 0;
    const AllocationGuard guard;
    {
        Parcel request;
        request.writeInterfaceToken(descriptor);
        for (int i = 0; i < 20; ++i) {
            request.writeInt32(i);
        }
        request.writeDouble(1.5);
        request.writeCString("speaker");
        Parcel reply;
        reply.setData(request.data(), request.dataSize());
        if (reply.enforceInterface(descriptor)) {
            sum = reply.readInt32() + reply.readInt32();
        }
        reply.freeData();
    }
    EXPECT_EQ(guard.allocations(), 0);
    EXPECT_EQ(sum, 1);
}

TEST(ParcelAllocation, largeOneAllocatesFarLessThanOncePerItem) {
    const AllocationGuard guard;
    Parcel parcel;
    for (int i = 0; i < 10'000; ++i) {
        parcel.writeInt32(i);
    }
    const int allocations = guard.allocations();
    EXPECT_GT(allocations, 0) << "allocations are not seen";
    EXPECT_LT(allocations, 20);
}

} // namespace
} // namespace kelutv::test
