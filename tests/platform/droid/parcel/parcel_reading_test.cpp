#include "ParcelBytes.h"
#include "support/Capture.h"

#include <binder/Parcel.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

namespace kelutv::test {
namespace {

using android::NO_ERROR;
using android::NOT_ENOUGH_DATA;
using android::Parcel;
using android::String16;

TEST(ParcelReading, givesBackWhatWasWritten) {
    Parcel parcel;
    parcel.writeInt32(-7);
    parcel.writeDouble(0.1);
    parcel.writeCString("speaker");
    parcel.writeString16(String16("subwoofer"));
    parcel.write("raw", 3);
    parcel.writeInt64(INT64_MIN);
    parcel.setDataPosition(0);
    EXPECT_EQ(parcel.readInt32(), -7);
    EXPECT_EQ(parcel.readDouble(), 0.1);
    EXPECT_STREQ(parcel.readCString(), "speaker");
    EXPECT_TRUE(parcel.readString16() == String16("subwoofer"));
    char raw[3];
    EXPECT_EQ(parcel.read(raw, sizeof(raw)), NO_ERROR);
    EXPECT_EQ(std::string(raw, 3), "raw");
    EXPECT_EQ(parcel.readInt64(), INT64_MIN);
    EXPECT_EQ(parcel.dataAvail(), 0u);
}

/** A parcel of exactly these bytes, in memory of exactly that size, so that a read beyond them is caught. */
std::unique_ptr<Parcel> holding(const Bytes& bytes) {
    auto parcel = std::make_unique<Parcel>();
    // More than fits into the parcel itself, then cut down to what is left at the end.
    Bytes padded(1024 + bytes.size(), 0xAA);
    std::copy(bytes.begin(), bytes.end(), padded.begin() + 1024);
    parcel->setData(padded.data(), padded.size());
    parcel->setDataPosition(1024);
    return parcel;
}

TEST(ParcelReading, scalarsBeyondTheEndAreZeroAndStay) {
    for (size_t left = 0; left < 8; ++left) {
        const std::unique_ptr<Parcel> parcel = holding(Bytes(left, 0xFF));
        EXPECT_EQ(parcel->readDouble(), 0.0);
        EXPECT_EQ(parcel->readInt64(), 0);
        double untouched = 4.5;
        EXPECT_EQ(parcel->readDouble(&untouched), NOT_ENOUGH_DATA);
        EXPECT_EQ(untouched, 4.5);
        EXPECT_EQ(parcel->dataPosition(), 1024u);
        EXPECT_EQ(parcel->readInt32(), left < 4 ? 0 : -1);
        EXPECT_EQ(parcel->dataPosition(), left < 4 ? 1024u : 1028u);
    }
}

TEST(ParcelReading, rawBytesBeyondTheEndAreRefused) {
    const std::unique_ptr<Parcel> parcel = holding({1, 2, 3, 4});
    char bytes[8] = "same";
    EXPECT_EQ(parcel->read(bytes, 5), NOT_ENOUGH_DATA);
    EXPECT_EQ(parcel->read(bytes, static_cast<size_t>(-1)), NOT_ENOUGH_DATA);
    EXPECT_EQ(parcel->readInplace(static_cast<size_t>(-2)), nullptr);
    EXPECT_STREQ(bytes, "same");
    EXPECT_EQ(parcel->dataPosition(), 1024u);
    EXPECT_EQ(parcel->read(bytes, 3), NO_ERROR);
    EXPECT_EQ(parcel->dataPosition(), 1028u);
}

TEST(ParcelReading, unterminatedCStringIsNullAndStays) {
    for (size_t left = 0; left <= 5; ++left) {
        const std::unique_ptr<Parcel> parcel = holding(Bytes(left, 'x'));
        EXPECT_EQ(parcel->readCString(), nullptr) << left;
        EXPECT_EQ(parcel->dataPosition(), 1024u);
    }
}

TEST(ParcelReading, cStringWithoutItsPaddingIsReadToTheEnd) {
    const std::unique_ptr<Parcel> parcel = holding({'a', 0});
    EXPECT_STREQ(parcel->readCString(), "a");
    EXPECT_EQ(parcel->dataAvail(), 0u);
}

TEST(ParcelReading, string16WithABadLengthIsNullAndStays) {
    const int32_t lengths[] = {-1, -2, INT32_MIN, 2, 3, 1000, 0x3FFFFFFF, 0x40000000, INT32_MAX - 1, INT32_MAX};
    for (const int32_t length : lengths) {
        const std::unique_ptr<Parcel> parcel = holding(Wire::reply().i32(length).raw("a\0", 2).bytes());
        size_t units = 99;
        EXPECT_EQ(parcel->readString16Inplace(&units), nullptr) << length;
        EXPECT_EQ(units, 0u);
        EXPECT_EQ(parcel->dataPosition(), 1024u);
        String16 text("untouched");
        EXPECT_NE(parcel->readString16(&text), NO_ERROR);
        EXPECT_TRUE(text == String16("untouched"));
        EXPECT_EQ(parcel->readString16().size(), 0u);
    }
}

TEST(ParcelReading, string16CutAnywhereIsNull) {
    const Bytes whole = Wire::reply().str16(u"abc").bytes();
    for (size_t left = 0; left < whole.size(); ++left) {
        const std::unique_ptr<Parcel> parcel = holding(Bytes(whole.begin(), whole.begin() + static_cast<long>(left)));
        size_t units = 99;
        EXPECT_EQ(parcel->readString16Inplace(&units), nullptr) << left;
        EXPECT_EQ(parcel->dataPosition(), 1024u);
    }
    size_t units = 0;
    EXPECT_NE(holding(whole)->readString16Inplace(&units), nullptr);
    EXPECT_EQ(units, 3u);
}

TEST(ParcelReading, tokenIsRecognised) {
    Parcel parcel;
    parcel.writeInterfaceToken(String16("android.ITVBaseService"));
    parcel.writeInt32(5);
    parcel.setDataPosition(0);
    EXPECT_TRUE(parcel.enforceInterface(String16("android.ITVBaseService")));
    EXPECT_EQ(parcel.readInt32(), 5);
}

TEST(ParcelReading, tokenOfAnotherInterfaceIsRefusedInTheLog) {
    LogCapture log;
    Parcel parcel;
    parcel.writeInterfaceToken(String16("android.IOther"));
    for (const char* const wanted : {"android.IOthe", "android.IOther2", "android.IotheR", ""}) {
        parcel.setDataPosition(0);
        EXPECT_FALSE(parcel.enforceInterface(String16(wanted))) << wanted;
    }
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[1].text,
              "request of binder level 28 names the interface \"android.IOther\" and not \"android.IOther2\"");
}

TEST(ParcelReading, interfaceOfAnotherProcessCannotSteerTheTerminalThroughTheLog) {
    LogCapture log;
    Parcel parcel;
    parcel.writeInterfaceToken(String16("\x1B[2J\\\n\xC2\x9B\xE2\x80\xAE\xC3\xA9"));
    parcel.setDataPosition(0);
    EXPECT_FALSE(parcel.enforceInterface(String16("wanted")));
    Parcel endless;
    endless.writeInterfaceToken(String16(std::string(200'000, 'x').c_str()));
    endless.setDataPosition(0);
    EXPECT_FALSE(endless.enforceInterface(String16("wanted")));
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].text, "request of binder level 28 names the interface "
                               "\"\\u001B[2J\\\\\\u000A\\u009B\\u202E\xC3\xA9\" and not \"wanted\"");
    EXPECT_EQ(entries[1].text,
              "request of binder level 28 names the interface \"" + std::string(128, 'x') + "...\" and not \"wanted\"");
}

TEST(ParcelReading, tokenCutAnywhereIsRefused) {
    const LogCapture log;
    for (const int level : {28, 29, 30}) {
        const Bytes whole = Wire::token(level, u"android.ITVBaseService").bytes();
        for (size_t left = 0; left < whole.size(); ++left) {
            const std::unique_ptr<Parcel> parcel =
                holding(Bytes(whole.begin(), whole.begin() + static_cast<long>(left)));
            EXPECT_FALSE(parcel->enforceInterface(String16("android.ITVBaseService"))) << level << ", " << left;
        }
        EXPECT_TRUE(holding(whole)->enforceInterface(String16("android.ITVBaseService"))) << level;
    }
}

TEST(ParcelReading, tokenOfAnyLevelIsRecognised) {
    const LogCapture log;
    for (const int level : {28, 29, 30}) {
        const std::unique_ptr<Parcel> parcel = holding(Wire::token(level, u"android.ITVBaseService").i32(5).bytes());
        EXPECT_TRUE(parcel->enforceInterface(String16("android.ITVBaseService"))) << level;
        EXPECT_EQ(parcel->readInt32(), 5) << level;
    }
}

TEST(ParcelReading, tokenMayNameAnyWorkSource) {
    const LogCapture log;
    // 22 is also the length of the name.
    for (const int32_t workSource : {0, 22, 1000, INT32_MAX}) {
        const Bytes token = Wire::reply().i32(-1).i32(workSource).str16(u"android.ITVBaseService").i32(5).bytes();
        const std::unique_ptr<Parcel> parcel = holding(token);
        EXPECT_TRUE(parcel->enforceInterface(String16("android.ITVBaseService"))) << workSource;
        EXPECT_EQ(parcel->readInt32(), 5) << workSource;
    }
}

TEST(ParcelReading, refusedTokenIsNamedByItsForm) {
    for (const int level : {28, 29, 30}) {
        LogCapture log;
        EXPECT_FALSE(holding(Wire::token(level, u"a.B").bytes())->enforceInterface(String16("a.C")));
        const std::vector<LogEntry> entries = log.take();
        ASSERT_EQ(entries.size(), 1u);
        EXPECT_EQ(entries[0].text,
                  "request of binder level " + std::to_string(level) + " names the interface \"a.B\" and not \"a.C\"");
    }
}

TEST(ParcelReading, tokenOfAnUnknownFormIsShownInItsFirstWords) {
    LogCapture log;
    for (const Bytes& bytes :
         {Bytes(), Bytes{1, 2, 3}, replyOf({1}), replyOf({0x400000, -1, 0x564E4452, 3, 4, 5, 6})}) {
        EXPECT_FALSE(holding(bytes)->enforceInterface(String16("a.C")));
    }
    const std::string rest = ", which is no token of binder level 28, 29 or 30, and not with that of \"a.C\"";
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0].text, "request begins with nothing" + rest);
    EXPECT_EQ(entries[1].text, "request begins with nothing" + rest);
    EXPECT_EQ(entries[2].text, "request begins with 00000001" + rest);
    EXPECT_EQ(entries[3].text, "request begins with 00400000 FFFFFFFF 564E4452 00000003" + rest);
}

} // namespace
} // namespace kelutv::test
