#include "client/ClientTest.h"

#include <kelutv/link/TVBaseClient.h>

#include <array>
#include <limits>

namespace {

std::array<unsigned char, 8> gBuffer{1, 2, 3, 4, 5, 6, 7, 8};
std::vector<std::size_t> gLengths;

} // namespace

/**
 * This program's definition goes before that of the library and notes the lengths at which the test's buffer is
 * written. A parcel refuses a length that was negative, so what it holds does not tell whether it was asked.
 */
KELUTV_API android::status_t android::Parcel::write(const void* bytes, size_t length) {
    if (bytes == gBuffer.data()) {
        gLengths.push_back(length);
    }
    Parcel content;
    const status_t status = content.setData(static_cast<const uint8_t*>(bytes), length);
    return status == NO_ERROR ? appendFrom(&content, 0, length) : status;
}

namespace kelutv::test {
namespace {

class RawBuffer : public ClientTest {
protected:
    /** The lengths at which the buffer was written into the request. */
    static std::vector<std::size_t> writtenAt(int dataSize) {
        gLengths.clear();
        int size = 77;
        android::Parcel result;
        EXPECT_EQ(android::TVBaseClient::self()->exeCmdGet(0x4321, 11, 22, dataSize, &size, gBuffer.data(), result), 0);
        return gLengths;
    }
};

TEST_F(RawBuffer, isWrittenAtItsLength) {
    EXPECT_EQ(writtenAt(5), std::vector<std::size_t>{5});
    EXPECT_EQ(sent(), only(Wire::request(0x4321).i32(11).i32(22).i32(5).i32(77).raw("\1\2\3\4\5", 5).bytes()));
}

TEST_F(RawBuffer, isNotWrittenWhereItsLengthIsNotPositive) {
    for (const int length : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(writtenAt(length), std::vector<std::size_t>{}) << length;
        EXPECT_EQ(sent(), only(requestOf(0x4321, {11, 22, length, 77})));
    }
}

} // namespace
} // namespace kelutv::test
