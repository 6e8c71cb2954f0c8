#include <binder/Parcel.h>

#include <gtest/gtest.h>

#include <new>
#include <vector>

namespace {

bool gRefused = false;

} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return gRefused ? nullptr : ::operator new(size);
}

namespace kelutv::test {
namespace {

using android::Parcel;

TEST(ParcelMemory, contentStaysWhereThereIsNoneForItsReplacement) {
    Parcel parcel;
    parcel.writeInt32(7);
    parcel.writeInt32(8);
    parcel.setDataPosition(sizeof(std::int32_t));
    const std::vector<std::uint8_t> large(64 * 1024);
    gRefused = true;
    const android::status_t status = parcel.setData(large.data(), large.size());
    gRefused = false;
    EXPECT_EQ(status, android::NO_MEMORY);
    EXPECT_EQ(parcel.dataSize(), 2 * sizeof(std::int32_t));
    EXPECT_EQ(parcel.readInt32(), 8);
}

TEST(ParcelMemory, contentIsReplacedFromItsStart) {
    const std::vector<std::uint8_t> large(64 * 1024, 1);
    Parcel parcel;
    ASSERT_EQ(parcel.setData(large.data(), large.size()), android::NO_ERROR);
    parcel.setDataPosition(4096);
    const std::int32_t word = 5;
    ASSERT_EQ(parcel.setData(reinterpret_cast<const std::uint8_t*>(&word), sizeof(word)), android::NO_ERROR);
    EXPECT_EQ(parcel.dataSize(), sizeof(word));
    EXPECT_EQ(parcel.readInt32(), 5);
}

} // namespace
} // namespace kelutv::test
