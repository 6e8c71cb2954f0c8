#include "ParcelBytes.h"
#include "platform/droid/peer/PeerService.h"

#include <binder/Parcel.h>

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

using android::BAD_VALUE;
using android::NO_ERROR;
using android::Parcel;

TEST(ParcelEditing, startsEmpty) {
    const Parcel parcel;
    EXPECT_EQ(parcel.dataSize(), 0u);
    EXPECT_EQ(parcel.dataPosition(), 0u);
    EXPECT_EQ(parcel.dataAvail(), 0u);
    EXPECT_EQ(parcel.readInt32(), 0);
    EXPECT_EQ(parcel.readCString(), nullptr);
}

TEST(ParcelEditing, writingMovesThePosition) {
    Parcel parcel;
    parcel.writeInt32(1);
    parcel.writeInt32(2);
    EXPECT_EQ(parcel.dataPosition(), 8u);
    EXPECT_EQ(parcel.dataAvail(), 0u);
    parcel.setDataPosition(4);
    EXPECT_EQ(parcel.dataAvail(), 4u);
    EXPECT_EQ(parcel.readInt32(), 2);
    parcel.setDataPosition(1000);
    EXPECT_EQ(parcel.dataPosition(), 8u);
}

TEST(ParcelEditing, overwritesAtAnEarlierPosition) {
    Parcel parcel;
    parcel.writeInt32(1);
    parcel.writeInt32(2);
    parcel.writeInt32(3);
    parcel.setDataPosition(4);
    parcel.writeInt32(20);
    EXPECT_EQ(bytesOf(parcel), replyOf({1, 20, 3}));
    parcel.writeInt32(30);
    parcel.writeInt32(40);
    EXPECT_EQ(bytesOf(parcel), replyOf({1, 20, 30, 40}));
}

TEST(ParcelEditing, setDataReplacesAndRewinds) {
    Parcel parcel;
    parcel.writeCString("what was there before");
    const Bytes bytes = replyOf({5, 6});
    EXPECT_EQ(parcel.setData(bytes.data(), bytes.size()), NO_ERROR);
    EXPECT_EQ(parcel.dataPosition(), 0u);
    EXPECT_EQ(bytesOf(parcel), bytes);
    EXPECT_EQ(parcel.setData(nullptr, 0), NO_ERROR);
    EXPECT_EQ(parcel.dataSize(), 0u);
}

TEST(ParcelEditing, freeDataEmpties) {
    Parcel parcel;
    const std::vector<uint8_t> large = pattern(5000);
    parcel.write(large.data(), large.size());
    parcel.freeData();
    EXPECT_EQ(parcel.dataSize(), 0u);
    EXPECT_EQ(parcel.dataPosition(), 0u);
    EXPECT_LT(parcel.dataCapacity(), 5000u);
    parcel.writeInt32(9);
    EXPECT_EQ(bytesOf(parcel), replyOf({9}));
}

TEST(ParcelEditing, appendsPartOfAnother) {
    Parcel from;
    for (int i = 1; i <= 4; ++i) {
        from.writeInt32(i);
    }
    Parcel to;
    to.writeInt32(100);
    EXPECT_EQ(to.appendFrom(&from, 4, 8), NO_ERROR);
    EXPECT_EQ(to.appendFrom(&from, 0, 0), NO_ERROR);
    EXPECT_EQ(to.appendFrom(&from, 16, 0), NO_ERROR);
    EXPECT_EQ(bytesOf(to), replyOf({100, 2, 3}));
    EXPECT_EQ(from.dataPosition(), 16u);
}

TEST(ParcelEditing, appendsNothingFromBeyondTheEnd) {
    Parcel from;
    from.writeInt32(1);
    Parcel to;
    EXPECT_EQ(to.appendFrom(&from, 0, 5), BAD_VALUE);
    EXPECT_EQ(to.appendFrom(&from, 5, 0), BAD_VALUE);
    EXPECT_EQ(to.appendFrom(&from, 4, 1), BAD_VALUE);
    EXPECT_EQ(to.appendFrom(&from, 4, static_cast<size_t>(-4)), BAD_VALUE);
    EXPECT_EQ(to.appendFrom(&from, static_cast<size_t>(-1), 2), BAD_VALUE);
    EXPECT_EQ(to.dataSize(), 0u);
}

TEST(ParcelEditing, appendsItself) {
    Parcel parcel;
    const std::vector<uint8_t> block = pattern(200);
    parcel.write(block.data(), block.size());
    EXPECT_EQ(parcel.appendFrom(&parcel, 0, 200), NO_ERROR);
    Bytes expected = block;
    expected.insert(expected.end(), block.begin(), block.end());
    EXPECT_EQ(bytesOf(parcel), expected);
}

TEST(ParcelEditing, growthKeepsTheContent) {
    Parcel parcel;
    const std::vector<uint8_t> bytes = pattern(300'000);
    for (size_t at = 0; at < bytes.size(); at += 100) {
        ASSERT_EQ(parcel.write(bytes.data() + at, 100), NO_ERROR);
    }
    EXPECT_TRUE(bytesOf(parcel) == bytes);
    EXPECT_GE(parcel.dataCapacity(), parcel.dataSize());
}

} // namespace
} // namespace kelutv::test
