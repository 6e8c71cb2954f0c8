#include <binder/Parcel.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

thread_local int tAllocations = 0;

void* counted(std::size_t size) {
    ++tAllocations;
    return std::malloc(size == 0 ? 1 : size);
}

} // namespace

// Every allocation of C++ code in this process, the libraries included, comes through here.
void* operator new(std::size_t size) {
    if (void* const memory = counted(size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return counted(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

namespace kelutv::test {
namespace {

using android::Parcel;

TEST(ParcelAllocation, smallRequestAndReplyAllocateNothing) {
    const android::String16 descriptor("android.ITVBaseService");
    int32_t sum = 0;
    tAllocations = 0;
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
    EXPECT_EQ(tAllocations, 0);
    EXPECT_EQ(sum, 1);
}

TEST(ParcelAllocation, largeOneAllocatesFarLessThanOncePerItem) {
    tAllocations = 0;
    Parcel parcel;
    for (int i = 0; i < 10'000; ++i) {
        parcel.writeInt32(i);
    }
    const int allocations = tAllocations;
    EXPECT_GT(allocations, 0) << "allocations are not seen";
    EXPECT_LT(allocations, 20);
}

} // namespace
} // namespace kelutv::test
