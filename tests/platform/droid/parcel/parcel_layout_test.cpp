#include "ParcelBytes.h"

#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace kelutv::test {
namespace {

using android::BAD_VALUE;
using android::NO_ERROR;
using android::Parcel;
using android::String16;

TEST(ParcelLayout, int32IsFourBytesLowestFirst) {
    Parcel parcel;
    EXPECT_EQ(parcel.writeInt32(0x12345678), NO_ERROR);
    EXPECT_EQ(parcel.writeInt32(-2), NO_ERROR);
    EXPECT_EQ(bytesOf(parcel), (Bytes{0x78, 0x56, 0x34, 0x12, 0xFE, 0xFF, 0xFF, 0xFF}));
}

TEST(ParcelLayout, int64IsEightBytesOnAMultipleOfFour) {
    Parcel parcel;
    parcel.writeInt32(1);
    EXPECT_EQ(parcel.writeInt64(0x0102030405060708), NO_ERROR);
    EXPECT_EQ(bytesOf(parcel), (Bytes{1, 0, 0, 0, 8, 7, 6, 5, 4, 3, 2, 1}));
}

TEST(ParcelLayout, doubleIsEightBytesOnAMultipleOfFour) {
    Parcel parcel;
    parcel.writeInt32(7);
    EXPECT_EQ(parcel.writeDouble(-2.5), NO_ERROR);
    EXPECT_EQ(bytesOf(parcel), (Bytes{7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x04, 0xC0}));
}

TEST(ParcelLayout, cStringIsBytesTerminatorAndZeroPadding) {
    const struct {
        const char* text;
        Bytes bytes;
    } cases[] = {
        {"", {0, 0, 0, 0}},          {"a", {'a', 0, 0, 0}},
        {"abc", {'a', 'b', 'c', 0}}, {"abcd", {'a', 'b', 'c', 'd', 0, 0, 0, 0}},
        {nullptr, {0, 0, 0, 0}},
    };
    for (const auto& one : cases) {
        Parcel parcel;
        EXPECT_EQ(parcel.writeCString(one.text), NO_ERROR);
        EXPECT_EQ(bytesOf(parcel), one.bytes);
    }
}

TEST(ParcelLayout, string16IsLengthUnitsTerminatorAndZeroPadding) {
    Parcel even;
    EXPECT_EQ(even.writeString16(String16("ab")), NO_ERROR);
    EXPECT_EQ(bytesOf(even), (Bytes{2, 0, 0, 0, 'a', 0, 'b', 0, 0, 0, 0, 0}));
    Parcel odd;
    EXPECT_EQ(odd.writeString16(u"\u20ACx!", 3), NO_ERROR);
    EXPECT_EQ(bytesOf(odd), (Bytes{3, 0, 0, 0, 0xAC, 0x20, 'x', 0, '!', 0, 0, 0}));
    Parcel empty;
    EXPECT_EQ(empty.writeString16(String16()), NO_ERROR);
    EXPECT_EQ(bytesOf(empty), (Bytes{0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(ParcelLayout, nullString16IsMinusOneAlone) {
    Parcel parcel;
    EXPECT_EQ(parcel.writeString16(nullptr, 5), NO_ERROR);
    EXPECT_EQ(bytesOf(parcel), (Bytes{0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(ParcelLayout, interfaceTokenIsStrictModeWordAndDescriptor) {
    Parcel parcel;
    EXPECT_EQ(parcel.writeInterfaceToken(String16("a.B")), NO_ERROR);
    EXPECT_EQ(bytesOf(parcel), (Bytes{0, 0, 0x40, 0, 3, 0, 0, 0, 'a', 0, '.', 0, 'B', 0, 0, 0}));
}

TEST(ParcelLayout, interfaceTokenCarriesTheThreadsStrictMode) {
    android::IPCThreadState::self()->setStrictModePolicy(0x21);
    Parcel parcel;
    parcel.writeInterfaceToken(String16("I"));
    android::IPCThreadState::self()->setStrictModePolicy(0);
    parcel.setDataPosition(0);
    EXPECT_EQ(parcel.readInt32(), 0x00400021);
}

TEST(ParcelLayout, tokenOfTheTelevisionService) {
    Parcel parcel;
    parcel.writeInterfaceToken(String16("android.ITVBaseService"));
    parcel.writeInt32(0x2008);
    EXPECT_EQ(bytesOf(parcel), Wire::request(0x2008).bytes());
}

TEST(ParcelLayout, rawBytesArePaddedWithZeros) {
    for (size_t length = 0; length <= 8; ++length) {
        Parcel parcel;
        // What the memory held before must not show in the padding.
        for (int i = 0; i < 8; ++i) {
            parcel.writeInt32(-1);
        }
        parcel.setDataPosition(0);
        EXPECT_EQ(parcel.write("\x11\x22\x33\x44\x55\x66\x77\x88", length), NO_ERROR);
        const size_t end = (length + 3) / 4 * 4;
        EXPECT_EQ(parcel.dataPosition(), end);
        for (size_t i = 0; i < 32; ++i) {
            const int expected = i < length ? static_cast<int>(0x11 * (i + 1)) : i < end ? 0 : 0xFF;
            EXPECT_EQ(parcel.data()[i], expected) << "byte " << i << " of " << length;
        }
    }
}

TEST(ParcelLayout, paddingOfStringsIsZeroOverOldContent) {
    Parcel parcel;
    for (int i = 0; i < 4; ++i) {
        parcel.writeInt32(-1);
    }
    parcel.setDataPosition(0);
    parcel.writeCString("a");
    parcel.writeString16(u"b", 1);
    EXPECT_EQ(bytesOf(parcel), (Bytes{'a', 0, 0, 0, 1, 0, 0, 0, 'b', 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(ParcelLayout, lengthsThatAreNegativeOrHugeAreRefused) {
    Parcel parcel;
    parcel.writeInt32(1);
    const char byte = 'x';
    EXPECT_EQ(parcel.write(&byte, static_cast<size_t>(-1)), BAD_VALUE);
    EXPECT_EQ(parcel.write(&byte, size_t{0x80000000}), BAD_VALUE);
    EXPECT_EQ(parcel.write(&byte, static_cast<size_t>(std::numeric_limits<int32_t>::min())), BAD_VALUE);
    EXPECT_LT(parcel.write(&byte, size_t{0x7FFFFFFF}), NO_ERROR);
    EXPECT_EQ(parcel.writeString16(u"x", size_t{0x40000000}), BAD_VALUE);
    EXPECT_EQ(parcel.writeString16(u"x", static_cast<size_t>(-1)), BAD_VALUE);
    EXPECT_EQ(parcel.setData(reinterpret_cast<const uint8_t*>(&byte), size_t{0x80000000}), BAD_VALUE);
    EXPECT_EQ(bytesOf(parcel), (Bytes{1, 0, 0, 0}));
}

} // namespace
} // namespace kelutv::test
